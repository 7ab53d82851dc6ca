// Regions against a model: a pixel at a time, with whole numbers only.
#include <gtest/gtest.h>

#include <bitset>
#include <limits>
#include <random>

#include "platform/regions.h"

namespace {

constexpr Long kMost = std::numeric_limits<Long>::max();
constexpr Long kLeast = std::numeric_limits<Long>::min();
constexpr Rect kOuter{0, 0, 48, 32};
using Bitmap = std::bitset<48 * 32>;

// Whether the pixel's centre lies in the rectangle that has such ellipses for corners. Sides in order,
// corners at most the sides.
bool InRounded(int x, int y, const Rect& sides, std::int64_t cornerWidth, std::int64_t cornerHeight) {
    if (!sides.Holds(x, y)) return false;
    // How far the centre stands outside the middle of the corner's ellipse, doubled; 0 between the corners.
    const auto outside = [](std::int64_t centre, std::int64_t low, std::int64_t high, std::int64_t size) {
        return std::max({2 * low + size - centre, centre - 2 * high + size, std::int64_t{0}});
    };
    const std::int64_t wide = outside(2 * x + 1, sides.Left, sides.Right, cornerWidth) * cornerHeight;
    const std::int64_t high = outside(2 * y + 1, sides.Top, sides.Bottom, cornerHeight) * cornerWidth;
    const std::int64_t whole = cornerWidth * cornerHeight;
    return wide * wide + high * high <= whole * whole;
}

Bitmap Model(const Rect& sides, int cornerWidth, int cornerHeight) {
    Bitmap pixels;
    for (int at = 0; at < 48 * 32; ++at)
        pixels[std::size_t(at)] = InRounded(at % 48, at / 48, sides, cornerWidth, cornerHeight);
    return pixels;
}

Bitmap Combined(const Bitmap& first, const Bitmap& second, Long mode) {
    const Bitmap results[] = {first & second, first | second, first ^ second, first & ~second, first};
    return results[mode - 1];
}

// Whether a region has exactly those pixels: by `Holds`, which gives nothing outside, and by `Rectangles`,
// which tells each pixel of a view once, counted from the view's corner.
bool HasPixels(const RegionTable& table, Long handle, const Bitmap& pixels) {
    const Region& region = *FindRegion(table, handle);
    for (int y = -1; y < 33; ++y)
        for (int x = -1; x < 49; ++x)
            if (region.Holds(x, y) != (kOuter.Holds(x, y) && pixels[std::size_t(y * 48 + x)])) return false;
    constexpr Rect kView{20, 9, 41, 30};
    Bitmap told;
    for (const Rect& part : region.Rectangles(kView))
        for (int y = part.Top + 9; y < part.Bottom + 9; ++y)
            for (int x = part.Left + 20; x < part.Right + 20; ++x) {
                if (told[std::size_t(y * 48 + x)]) return false;
                told.set(std::size_t(y * 48 + x));
            }
    return told == (pixels & Model(kView, 0, 0)) && region.IsEmpty() == pixels.none();
}

} // namespace

TEST(RegionMakers, HaveThePixelsWhoseCentreLiesInTheFigureAndInTheWindow) {
    for (int width = 0; width <= 60; width += 1 + width / 8)
        for (int height = 0; height <= 40; height += 1 + width % 4) {
            const int left = width % 11 - 4, top = height % 7 - 3;
            const Rect sides{left, top, left + width, top + height};
            // The sides and the corners may stand either way round.
            const Rect turned{sides.Right, sides.Bottom, sides.Left, sides.Top};
            const int high = std::min(width * 5 % 23, height), wide = std::min(height * 7 % 29, width);
            RegionTable table;
            EXPECT_TRUE(
                HasPixels(table, CreateRectRgn(table, kOuter, turned), Model(sides, 0, 0)) &&
                HasPixels(table, CreateEllipticRgn(table, kOuter, sides), Model(sides, width, height)) &&
                HasPixels(table, CreateRoundRectRgn(table, kOuter, turned, -wide, high),
                          Model(sides, wide, high)) &&
                HasPixels(table, CreateRoundRectRgn(table, kOuter, sides, wide, kLeast),
                          Model(sides, wide, height)))
                << width << "x" << height << " corners " << wide << "x" << high;
        }
    RegionTable table;
    constexpr Rect kLarge{-151, -2, 461, 610};
    const auto large = FindRegion(table, CreateEllipticRgn(table, {0, 0, 700, 700}, kLarge));
    for (int y = 0; y < 700; y += 3)
        for (int x = 0; x < 700; ++x)
            ASSERT_EQ(large->Holds(x, y), InRounded(x, y, kLarge, 612, 612)) << x << ", " << y;
}

TEST(RegionMakers, NoNumberIsTooLarge) {
    RegionTable table;
    const Rect whole{kLeast, kLeast, kMost, kMost}, turned{kMost, kMost, kLeast, kLeast};
    for (const Long handle : {CreateRectRgn(table, kOuter, whole), CreateEllipticRgn(table, kOuter, whole),
                              CreateRoundRectRgn(table, kOuter, turned, kMost, 0)})
        EXPECT_TRUE(HasPixels(table, handle, ~Bitmap()));
    for (const Long handle :
         {CreateRectRgn(table, kOuter, {kMost - 1, 0, kMost, 30}),
          CreateRectRgn(table, kOuter, {kLeast, kLeast, 0, 30}), CreateRectRgn(table, {}, {0, 0, 9, 9})})
        EXPECT_TRUE(FindRegion(table, handle)->IsEmpty());
}

TEST(CombineRgn, WorksPixelByPixelInAnyOrderAndRefusesWhatIsNotThere) {
    std::mt19937 random(7);
    RegionTable table;
    std::array<Bitmap, 9> model; // By handle. 0, 7 and 8 have no region.
    for (int step = 0; step < 600; ++step) {
        if (step % 20 == 0) {
            table = {};
            for (Long handle = 1; handle <= 6; ++handle) {
                const int left = int(random() % 40), top = int(random() % 26), width = int(random() % 30);
                const Rect sides{left, top, left + width, top + int(random() % 20)};
                EXPECT_EQ(CreateEllipticRgn(table, kOuter, sides), handle);
                model[std::size_t(handle)] = Model(sides, width, sides.Bottom - top);
            }
        }
        const Long dest = random() % 9, first = random() % 9, second = random() % 9, mode = random() % 8;
        const auto known = [](Long handle) { return handle >= 1 && handle <= 6; };
        const bool possible = known(dest) && known(first) && known(second) && mode >= 1 && mode <= 5;
        const auto held = FindRegion(table, dest);
        const Region before = held ? *held : Region();
        ASSERT_EQ(CombineRgn(table, dest, first, second, mode == 7 ? -1 : mode), possible);
        EXPECT_TRUE(!held || *held == before) << "a region that a window holds stays as it was";
        if (!possible) continue;
        model[std::size_t(dest)] = Combined(model[std::size_t(first)], model[std::size_t(second)], mode);
        ASSERT_TRUE(HasPixels(table, dest, model[std::size_t(dest)])) << "step " << step;
    }
}

TEST(CombineRgn, EqualSetsAreEqualRegionsHoweverTheyCameAbout) {
    RegionTable table;
    const Long whole = CreateRectRgn(table, kOuter, {2, 2, 12, 12});
    const Long left = CreateRectRgn(table, kOuter, {2, 2, 7, 12});
    const Long right = CreateRectRgn(table, kOuter, {7, 2, 12, 12});
    EXPECT_TRUE(CombineRgn(table, left, left, right, 2));
    EXPECT_EQ(*FindRegion(table, left), *FindRegion(table, whole));
    EXPECT_TRUE(CombineRgn(table, left, left, whole, 3));
    EXPECT_EQ(*FindRegion(table, left), Region());
    ReleaseRegion(table, whole);
    EXPECT_EQ(FindRegion(table, whole), nullptr);
}
