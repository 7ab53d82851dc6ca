// Regions against a model: a pixel at a time, with whole numbers only.
#include <gtest/gtest.h>

#include <bitset>
#include <random>

#include "platform/regions.h"

namespace {

constexpr Rect kOuter{0, 0, 48, 32};
using Bitmap = std::bitset<48 * 32>;

// Whether the pixel's centre lies in the rectangle that has such ellipses for corners. Sides in
// order, corners at most the sides.
bool InRounded(int x, int y, const Rect& sides, std::int64_t cornerWidth,
               std::int64_t cornerHeight) {
    if (!sides.Holds(x, y)) return false;
    // How far the centre stands outside the middle of the corner's ellipse, doubled; 0 between the
    // corners.
    const auto outside = [](std::int64_t centre, std::int64_t low, std::int64_t high,
                            std::int64_t size) {
        return std::max({2 * low + size - centre, centre - 2 * high + size, std::int64_t{0}});
    };
    const std::int64_t wide =
        outside(2 * x + 1, sides.Left, sides.Right, cornerWidth) * cornerHeight;
    const std::int64_t high =
        outside(2 * y + 1, sides.Top, sides.Bottom, cornerHeight) * cornerWidth;
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
    const Bitmap results[] = {first & second, first | second, first ^ second, first & ~second,
                              first};
    return results[mode - 1];
}

// Whether a region has exactly those pixels: by `Rectangles`, which tells each pixel of a view
// once, counted from the view's corner, and nothing outside.
bool HasPixels(const RegionTable& table, Long handle, const Bitmap& pixels) {
    const Region& region = *FindRegion(table, handle);
    for (const Rect& view : {Rect{-1, -1, 49, 33}, Rect{20, 9, 41, 30}}) {
        Bitmap told;
        for (const Rect& part : region.Rectangles(view))
            for (int y = part.Top + view.Top; y < part.Bottom + view.Top; ++y)
                for (int x = part.Left + view.Left; x < part.Right + view.Left; ++x) {
                    if (!kOuter.Holds(x, y)) return false;
                    told.flip(std::size_t(y * 48 + x));
                }
        if (told != (pixels & Model(view, 0, 0))) return false;
    }
    return region.Bands().empty() == pixels.none();
}

// A region of any of the three forms, whose sides and corners stand either way round, and its
// pixels.
Long MakeRegion(RegionTable& table, std::mt19937& random, Bitmap& pixels) {
    const auto below = [&](unsigned most) { return int(random() % most); };
    const int left = below(44) - 4, top = below(30) - 4, width = below(60), height = below(40);
    const int wide = below(30), high = below(23);
    const Rect sides{left, top, left + width, top + height},
        turned{left + width, top + height, left, top};
    switch (random() % 3) {
    case 0:
        pixels = Model(sides, 0, 0);
        return CreateRectRgn(table, kOuter, turned);
    case 1:
        pixels = Model(sides, width, height);
        return CreateEllipticRgn(table, kOuter, sides);
    default:
        pixels = Model(sides, std::min(wide, width), std::min(high, height));
        return CreateRoundRectRgn(table, kOuter, turned, -wide, high);
    }
}

} // namespace

TEST(Regions, HaveThePixelsOfTheirFormsAndCombineThem) {
    std::mt19937 random(7);
    RegionTable table;
    std::array<Bitmap, 9> model; // By handle. 0, 7 and 8 have no region.
    for (int step = 0; step < 1500; ++step) {
        for (Long handle = 1; step % 15 == 0 && handle <= 6; ++handle) {
            if (handle == 1) table = {};
            ASSERT_EQ(MakeRegion(table, random, model[std::size_t(handle)]), handle);
            ASSERT_TRUE(HasPixels(table, handle, model[std::size_t(handle)])) << "step " << step;
        }
        const Long dest = random() % 9, first = random() % 9, second = random() % 9,
                   mode = random() % 8;
        const auto held = FindRegion(table, dest);
        const bool possible =
            held && FindRegion(table, first) && FindRegion(table, second) && mode >= 1 && mode <= 5;
        const Region before = held ? *held : Region();
        CombineRgn(table, dest, first, second, mode == 7 ? -1 : mode);
        EXPECT_TRUE(!held || *held == before) << "a region that a window holds stays as it was";
        ASSERT_EQ(FindRegion(table, dest) != held, possible);
        if (!possible) continue;
        model[std::size_t(dest)] =
            Combined(model[std::size_t(first)], model[std::size_t(second)], mode);
        ASSERT_TRUE(HasPixels(table, dest, model[std::size_t(dest)])) << "step " << step;
    }
}
