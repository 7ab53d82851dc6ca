// Regions against a naive model: a pixel at a time, with whole numbers only.
#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "platform/regions.h"

namespace {

constexpr Long kMost = std::numeric_limits<Long>::max();
constexpr Long kLeast = std::numeric_limits<Long>::min();
constexpr Rect kOuter{0, 0, 40, 30};

using PixelTest = std::function<bool(std::int64_t x, std::int64_t y)>;

void ExpectPixels(const RegionTable& table, Long handle, const PixelTest& expected,
                  const Rect& outer = kOuter) {
    const auto region = FindRegion(table, handle);
    ASSERT_TRUE(region);
    for (std::int32_t y = outer.Top - 2; y < outer.Bottom + 2; ++y)
        for (std::int32_t x = outer.Left - 2; x < outer.Right + 2; ++x)
            ASSERT_EQ(region->Holds(x, y), outer.Holds(x, y) && expected(x, y)) << "at " << x << ", " << y;
}

// Whether the pixel's centre lies in the ellipse that fills the rectangle, in whole numbers.
bool InEllipse(std::int64_t x, std::int64_t y, const Rect& sides) {
    const std::int64_t width = sides.Right - sides.Left, height = sides.Bottom - sides.Top;
    const std::int64_t fromMiddleX = 2 * x + 1 - (sides.Left + sides.Right);
    const std::int64_t fromMiddleY = 2 * y + 1 - (sides.Top + sides.Bottom);
    const auto square = [](std::int64_t number) { return number * number; };
    return width > 0 && height > 0 &&
           square(fromMiddleX * height) + square(fromMiddleY * width) <= square(width * height);
}

// Moves a pixel of a corner into the ellipse that rounds it; a pixel between the corners passes.
bool InRoundedRectangle(std::int64_t x, std::int64_t y, const Rect& sides, int cornerWidth,
                        int cornerHeight) {
    if (!sides.Holds(static_cast<std::int32_t>(x), static_cast<std::int32_t>(y))) return false;
    const auto intoCorner = [](std::int64_t doubled, int low, int high, int size) -> std::int64_t {
        if (doubled < 2 * low + size) return doubled - 2 * low;
        if (doubled > 2 * high - size) return doubled - 2 * high + 2 * size;
        return size;
    };
    const std::int64_t cornerX = intoCorner(2 * x + 1, sides.Left, sides.Right, cornerWidth);
    const std::int64_t cornerY = intoCorner(2 * y + 1, sides.Top, sides.Bottom, cornerHeight);
    if (cornerX == cornerWidth || cornerY == cornerHeight) return true;
    const std::int64_t wide = (cornerX - cornerWidth) * cornerHeight;
    const std::int64_t high = (cornerY - cornerHeight) * cornerWidth;
    const std::int64_t whole = std::int64_t{cornerWidth} * cornerHeight;
    return wide * wide + high * high <= whole * whole;
}

struct TwoRegions {
    RegionTable Table;
    Long First = CreateEllipticRgn(Table, kOuter, {3, 2, 27, 25});
    Long Second = CreateRectRgn(Table, kOuter, {10, 8, 36, 18});
    static bool InFirst(std::int64_t x, std::int64_t y) { return InEllipse(x, y, {3, 2, 27, 25}); }
    static bool InSecond(std::int64_t x, std::int64_t y) { return x >= 10 && x < 36 && y >= 8 && y < 18; }
    static bool Combined(Long mode, bool first, bool second) {
        switch (mode) {
        case 1:
            return first && second;
        case 2:
            return first || second;
        case 3:
            return first != second;
        case 4:
            return first && !second;
        default:
            return first;
        }
    }
};

} // namespace

TEST(RegionMakers, TheRightAndBottomEdgesOfARectangleAreOutside) {
    RegionTable table;
    const Long handle = CreateRectRgn(table, kOuter, {2, 3, 7, 9});
    EXPECT_NE(handle, 0);
    ExpectPixels(table, handle, [](auto x, auto y) { return x >= 2 && x < 7 && y >= 3 && y < 9; });
}

TEST(RegionMakers, CornersThatStandTheWrongWayRoundAreTheSameRegion) {
    RegionTable table;
    const auto same = [&](Long one, Long other) {
        return *FindRegion(table, one) == *FindRegion(table, other);
    };
    EXPECT_TRUE(same(CreateRectRgn(table, kOuter, {7, 9, 2, 3}), CreateRectRgn(table, kOuter, {2, 3, 7, 9})));
    EXPECT_TRUE(same(CreateEllipticRgn(table, kOuter, {30, 2, 3, 20}),
                     CreateEllipticRgn(table, kOuter, {3, 20, 30, 2})));
    EXPECT_TRUE(same(CreateRoundRectRgn(table, kOuter, {30, 2, 3, 20}, -8, 6),
                     CreateRoundRectRgn(table, kOuter, {3, 2, 30, 20}, 8, -6)));
}

TEST(RegionMakers, AnEllipseHasThePixelsWhoseCentreLiesInIt) {
    for (int width = 0; width <= 33; ++width)
        for (int height = 0; height <= 25; height += 1 + width % 3) {
            RegionTable table;
            const Rect sides{2, 1, 2 + width, 1 + height};
            const Long handle = CreateEllipticRgn(table, kOuter, sides);
            ExpectPixels(table, handle, [&](auto x, auto y) { return InEllipse(x, y, sides); });
            if (HasFatalFailure()) return;
        }
}

TEST(RegionMakers, ALargeCircleIsExactToThePixel) {
    RegionTable table;
    constexpr Rect kWindow{0, 0, 700, 700};
    const Rect sides{-151, -2, 461, 610};
    ExpectPixels(
        table, CreateEllipticRgn(table, kWindow, sides),
        [&](auto x, auto y) { return InEllipse(x, y, sides); }, kWindow);
}

TEST(RegionMakers, ARoundedRectangleHasAnEllipseAtEachCorner) {
    for (int cornerWidth = 0; cornerWidth <= 28; cornerWidth += 3)
        for (int cornerHeight = 0; cornerHeight <= 20; ++cornerHeight) {
            RegionTable table;
            const Rect sides{4, 3, 33, 24};
            const Long handle = CreateRoundRectRgn(table, kOuter, sides, cornerWidth, cornerHeight);
            ExpectPixels(table, handle, [&](auto x, auto y) {
                return InRoundedRectangle(x, y, sides, cornerWidth, cornerHeight);
            });
            if (HasFatalFailure()) return;
        }
}

TEST(RegionMakers, CornersAreAtMostTheSides) {
    RegionTable table;
    const Rect sides{4, 3, 33, 24};
    const Long handle = CreateRoundRectRgn(table, kOuter, sides, kMost, kLeast);
    ExpectPixels(table, handle, [&](auto x, auto y) { return InEllipse(x, y, sides); });
}

TEST(RegionMakers, AbsurdNumbersGiveWhatCanShowOfThem) {
    RegionTable table;
    const auto all = [](auto, auto) { return true; };
    const auto none = [](auto, auto) { return false; };
    ExpectPixels(table, CreateRectRgn(table, kOuter, {kLeast, kLeast, kMost, kMost}), all);
    ExpectPixels(table, CreateEllipticRgn(table, kOuter, {kLeast, kLeast, kMost, kMost}), all);
    ExpectPixels(table, CreateRoundRectRgn(table, kOuter, {kMost, kMost, kLeast, kLeast}, 0, 0), all);
    ExpectPixels(table, CreateRectRgn(table, kOuter, {kMost - 1, 0, kMost, 30}), none);
    ExpectPixels(table, CreateRectRgn(table, kOuter, {kLeast, kLeast, 0, 30}), none);
    ExpectPixels(table, CreateEllipticRgn(table, kOuter, {5, 5, 5, 25}), none);
    ExpectPixels(table, CreateRectRgn(table, {0, 0, 0, 0}, {0, 0, 9, 9}), none, {0, 0, 9, 9});
}

TEST(CombineRgn, EachModeWorksPixelByPixel) {
    for (Long mode = 1; mode <= 5; ++mode) {
        TwoRegions two;
        const Long target = CreateRectRgn(two.Table, kOuter, {0, 0, 1, 1});
        ASSERT_TRUE(CombineRgn(two.Table, target, two.First, two.Second, mode));
        ExpectPixels(two.Table, target, [&](auto x, auto y) {
            return TwoRegions::Combined(mode, TwoRegions::InFirst(x, y), TwoRegions::InSecond(x, y));
        });
    }
}

TEST(CombineRgn, TheDestinationMayBeOneOfTheSources) {
    for (Long mode = 1; mode <= 5; ++mode)
        for (const bool intoFirst : {true, false}) {
            TwoRegions two;
            const Long target = intoFirst ? two.First : two.Second;
            ASSERT_TRUE(CombineRgn(two.Table, target, two.First, two.Second, mode));
            ExpectPixels(two.Table, target, [&](auto x, auto y) {
                return TwoRegions::Combined(mode, TwoRegions::InFirst(x, y), TwoRegions::InSecond(x, y));
            });
        }
}

TEST(CombineRgn, ARegionWithItselfIsAllOrNothing) {
    TwoRegions two;
    ASSERT_TRUE(CombineRgn(two.Table, two.First, two.First, two.First, 2));
    ExpectPixels(two.Table, two.First, TwoRegions::InFirst);
    ASSERT_TRUE(CombineRgn(two.Table, two.First, two.First, two.First, 3));
    EXPECT_TRUE(FindRegion(two.Table, two.First)->IsEmpty());
}

TEST(CombineRgn, AMissingRegionOrAnUnknownModeChangesNothing) {
    TwoRegions two;
    const Region before = *FindRegion(two.Table, two.First);
    for (const Long mode : {0, -1, 6, 1000000})
        EXPECT_FALSE(CombineRgn(two.Table, two.First, two.First, two.Second, mode));
    EXPECT_FALSE(CombineRgn(two.Table, two.First, 0, two.Second, 2));
    EXPECT_FALSE(CombineRgn(two.Table, two.First, two.Second, 99, 5)) << "a copy looks at both handles";
    EXPECT_FALSE(CombineRgn(two.Table, 99, two.First, two.Second, 2));
    EXPECT_EQ(*FindRegion(two.Table, two.First), before);
    EXPECT_EQ(two.Table.Regions.size(), 2u);
}

TEST(CombineRgn, ARegionThatAWindowHoldsStaysAsItWas) {
    TwoRegions two;
    const auto held = FindRegion(two.Table, two.First);
    const Region copy = *held;
    ASSERT_TRUE(CombineRgn(two.Table, two.First, two.First, two.Second, 4));
    ReleaseRegion(two.Table, two.First);
    EXPECT_EQ(*held, copy);
    EXPECT_EQ(FindRegion(two.Table, two.First), nullptr);
}

TEST(Regions, EqualSetsAreEqualHoweverTheyCameAbout) {
    RegionTable table;
    const Long whole = CreateRectRgn(table, kOuter, {2, 2, 12, 12});
    const Long left = CreateRectRgn(table, kOuter, {2, 2, 7, 12});
    const Long right = CreateRectRgn(table, kOuter, {7, 2, 12, 12});
    ASSERT_TRUE(CombineRgn(table, left, left, right, 2));
    EXPECT_EQ(*FindRegion(table, left), *FindRegion(table, whole));
    EXPECT_EQ(FindRegion(table, left)->Bands().size(), 1u);
}

TEST(Regions, TheirRectanglesAreThePartInAViewCountedFromItsCorner) {
    TwoRegions two;
    ASSERT_TRUE(CombineRgn(two.Table, two.First, two.First, two.Second, 3));
    const auto region = FindRegion(two.Table, two.First);
    constexpr Rect kView{3, 7, 29, 28};
    std::vector<int> covered(26 * 21);
    for (const Rect& part : region->Rectangles(kView)) {
        ASSERT_FALSE(part.IsEmpty());
        for (std::int32_t y = part.Top; y < part.Bottom; ++y)
            for (std::int32_t x = part.Left; x < part.Right; ++x)
                ++covered.at(static_cast<std::size_t>(y * 26 + x));
    }
    for (int at = 0; at < 26 * 21; ++at)
        EXPECT_EQ(covered[std::size_t(at)], region->Holds(3 + at % 26, 7 + at / 26) ? 1 : 0) << at;
}
