// Size, shape and background of the window from a skin's numbers.
#include "support/skin_fixture.h"

namespace {

// A region's keys; `sides` are left, top, right and bottom.
std::string Rgn(int number, const std::array<Long, 4>& sides, const std::string& more = {}) {
    return Joined("[rgn", number, "] ", more, " enabled=1 x1=", sides[0], " y1=", sides[1],
                  " x2=", sides[2], " y2=", sides[3], " ");
}

std::string Combine(int dest, int one, int other, Long mode) {
    return Joined("destrgn=", dest, " srcrgn1=", one, " srcrgn2=", other, " combinemode=", mode);
}

// Region 1, and others beside it that are joined to it unless their own keys, which come first, say
// otherwise.
std::string Beside(const Lines& others) {
    std::string text = Rgn(1, {0, 0, 10, 10});
    for (int number = 2; number < int(others.size()) + 2; ++number)
        text += Rgn(number, {20, 0, 30, 10},
                    others[std::size_t(number - 2)] + " " + Combine(1, 1, number, 2));
    return text;
}

// Of regions in a window of 389 by 279 pixels, whose offsets are 4 and 25.
struct ShapeRow {
    std::string Name, Regions, Shape;
};

const ShapeRow kShapes[] = {
    {"no region 1", Rgn(2, {0, 0, 10, 10}), "no region"},
    {"rectangle, ellipse, rounded corners, which get no offset, and corners of no size",
     Rgn(1, {10, 5, 30, 20}) + Rgn(2, {10, 25, 15, 29}, "type=2 " + Combine(1, 1, 2, 2)) +
         Rgn(3, {10, 35, 18, 41}, "type=3 x3=4 y3=6 " + Combine(1, 1, 3, 2)) +
         Rgn(4, {10, 45, 19, 50}, "type=3 " + Combine(1, 1, 4, 2)),
     "region 14,30-34,45 15,50-18,51 14,51-19,53 15,53-18,54 15,60-21,61 14,61-22,65 15,65-21,66 "
     "14,70-23,75"},
    {"an ellipse as wide as numbers go",
     Rgn(1, {-2147483647 - 1, -2147483647 - 1, 2147483643, 2147483622}, "type=2"),
     "region 0,0-389,279"},
    {"an empty result is a shape, too", Rgn(1, {0, 0, 9, 9}, Combine(1, 1, 1, 3)), "region"},
    // 2 cuts a piece out of 1, 3 is joined to what is left, 4 is copied into 5, and that joins
    // them.
    {"combined in the order of the numbers, not of the sections",
     Rgn(5, {0, 0, 1, 1}, Combine(1, 5, 1, 2)) + Rgn(4, {0, 20, 5, 25}, Combine(5, 4, 4, 5)) +
         Rgn(3, {50, 0, 60, 10}, Combine(1, 3, 1, 2)) +
         Rgn(2, {0, 0, 10, 10}, Combine(1, 1, 2, 4)) + Rgn(1, {0, 0, 40, 10}),
     "region 14,25-44,35 54,25-64,35 4,45-9,50"},
    {"numbers and modes that aren't there combine nothing",
     Beside({Combine(1, 2, 2, 0), Combine(0, 2, 2, 5), Combine(1, 0, 2, 2), Combine(1, 2, 0, 5),
             Combine(1, 2, 21, 5), Combine(1, 21, 2, 2), Combine(21, 2, 2, 2),
             Combine(1, 2, 32767, 5), Combine(1, -1, 2, 2), Combine(-1, 2, 2, 2),
             Combine(1, 2, 19, 5), Combine(19, 1, 2, 2), Combine(1, 2, 2, 6), Combine(1, 2, 2, -1),
             Combine(1, 2, 2, 2147483647)}),
     "region 4,25-14,35"},
    {"what overflows, is disabled or of another type is neither built nor combined",
     Beside({"x1=2147483644", "x2=2147483644", "y1=2147483623", "y2=2147483623", "enabled=0",
             "type=0", "type=4", "type=-1", "enabled=0 " + Combine(1, 1, 1, 3)}),
     "region 4,25-14,35"},
    {"element 20 is the last",
     Beside(Lines(18)) + Rgn(20, {50, 0, 60, 10}, Combine(1, 1, 20, 2)) +
         Rgn(21, {}, Combine(1, 1, 1, 3)),
     "region 4,25-14,35 24,25-34,35 54,25-64,35"},
};

} // namespace

TEST(Applying, TheRegionsMakeTheShapeOfTheWindow) {
    for (const ShapeRow& row : kShapes) {
        SkinMachine at;
        at.Apply(SkinText("ShapeCount=32767 " + row.Regions));
        EXPECT_EQ(at.RegionText(), row.Shape) << row.Name;
    }
}

TEST(Applying, ASizeThatNoWindowCanHaveLeavesThatSide) {
    const char* rows[][3] = {{"7", "245753", "5835x4185 4,25"},
                             {"8", "245752", "8x245752 -2,25"},
                             {"245752", "8", "245752x8 4,0"},
                             {"245753", "7", "5835x4185 4,25"}};
    for (const auto& [width, height, outcome] : rows) {
        SkinMachine at;
        at.Apply(SkinText("", Joined("Width=", width, " Height=", height, " ")));
        EXPECT_EQ(Joined(at.form.Width, "x", at.form.Height, " ", at.velora.RegionOffsetX, ",",
                         at.velora.RegionOffsetY),
                  outcome);
    }
}

TEST(Applying, AgainIsAsOnceAndASkinOfAnotherTypeOrNoneChangesNothing) {
    SkinMachine at;
    const Integer slot =
        at.Apply(SkinText("ShapeCount=2 " + Beside({""}), "Width=3000 Height=1500 "));
    const Integer other = at.Load(SkinText("Type=2", "Width=600 Height=600 Graphic=skin.vs4 "));
    const Lines before = at.All();
    for (const Integer number : {slot, other, Integer{0}, Integer{16}, Integer{-1}})
        ApplySkin(at.velora, number);
    EXPECT_EQ(Changes(before, at.All()), "");
    EXPECT_EQ(at.velora.Regions.Regions.size(), 2u) << "no old regions are kept";
}
