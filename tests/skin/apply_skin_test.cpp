// Size, shape and background of the window from a skin's numbers.
#include <filesystem>

#include "support/skin_fixture.h"

namespace {

class Applying : public SkinTest {
protected:
    struct Rgn {
        int Number;
        std::string Keys;
    };
    // A window of 100 by 80 pixels with those regions; sections stand in the order given.
    Integer ApplyRegions(const std::vector<Rgn>& regions, int count = 20) {
        std::string text =
            "[Settings]\nGraphic=none.gif\nWidth=1500\nHeight=1200\nShapeCount=" + std::to_string(count) +
            "\n";
        for (const Rgn& region : regions)
            text += "[rgn" + std::to_string(region.Number) + "]\nenabled=True\n" + region.Keys;
        return Apply(text);
    }
    static std::string Sides(int x1, int y1, int x2, int y2) {
        return "x1=" + std::to_string(x1) + "\ny1=" + std::to_string(y1) + "\nx2=" + std::to_string(x2) +
               "\ny2=" + std::to_string(y2) + "\n";
    }
    static std::string Combine(int dest, int source1, int source2, int mode) {
        return "destrgn=" + std::to_string(dest) + "\nsrcrgn1=" + std::to_string(source1) +
               "\nsrcrgn2=" + std::to_string(source2) + "\ncombinemode=" + std::to_string(mode) + "\n";
    }
    // The window's region as one rectangle; an empty one if it isn't a single rectangle.
    Rect WindowRectangle() const {
        if (!form.Region) return {};
        const std::vector<Rect> parts = form.Region->Rectangles({0, 0, 1000, 1000});
        return parts.size() == 1 ? parts.front() : Rect{};
    }
};

} // namespace

TEST_F(Applying, GivesTheWindowItsOuterSizeInTwipsAndOffsetsThatAreSumsOverTheFrame) {
    Apply("[Settings]\nWidth=3000\nHeight=1500\nLeft=99\nTop=99\n");
    EXPECT_EQ(form.Width, 3000);
    EXPECT_EQ(form.Height, 1500);
    EXPECT_EQ(velora.CurrentSkin, 1);
    EXPECT_EQ(velora.RegionOffsetX, 4);
    EXPECT_EQ(velora.RegionOffsetY, 25);
}

TEST_F(Applying, ASizeThatNoWindowCanHaveLeavesThatSide) {
    Apply("[Settings]\nWidth=3000\nHeight=1500\n");
    for (const char* size : {"0", "-1", "7", "-2147483648", "2147483647", "245753", "nothing"}) {
        velora.SkinCount = 0;
        Apply(std::string("[Settings]\nWidth=") + size + "\nHeight=1800\n");
        EXPECT_EQ(form.Width, 3000) << size;
        EXPECT_EQ(form.Height, 1800) << size;
    }
    Apply("[Settings]\nWidth=8\nHeight=245752\n");
    EXPECT_EQ(form.Width, 8);
    EXPECT_EQ(form.Height, 245752);
}

TEST_F(Applying, ASkinOfAnotherTypeKeepsTheOneThatShows) {
    PutPictures({"back.gif"});
    const Integer first =
        Apply("[Settings]\nWidth=3000\nGraphic=back.gif\nShapeCount=1\n[rgn1]\nenabled=1\nx2=9\ny2=9\n");
    const auto region = form.Region;
    Apply("[Settings]\nWidth=600\nType=2\n");
    ApplySkin(velora, 0);
    ApplySkin(velora, 16);
    ApplySkin(velora, -1);
    EXPECT_EQ(velora.CurrentSkin, first);
    EXPECT_EQ(form.Width, 3000);
    EXPECT_EQ(form.Region, region);
}

TEST_F(Applying, AWindowAsWideAsItsClientAreaHasAnOffsetOfMinusTwo) {
    Apply("[Settings]\nWidth=15\nHeight=15\n");
    EXPECT_EQ(velora.RegionOffsetX, -2);
    EXPECT_EQ(velora.RegionOffsetY, 0);
}

TEST_F(Applying, WithoutARegionOneTheWindowShowsItsFrame) {
    ApplyRegions({}, 0);
    EXPECT_EQ(form.Region, nullptr);
    ApplyRegions({{1, "type=4\n" + Sides(0, 0, 10, 10)}, {2, Sides(0, 0, 10, 10)}});
    EXPECT_EQ(form.Region, nullptr) << "a type that isn't built";
    ApplyRegions({{2, Sides(0, 0, 10, 10) + Combine(1, 2, 2, 2)}});
    EXPECT_EQ(form.Region, nullptr) << "a destination without a region";
    ApplyRegions({{1, Sides(0, 0, 10, 10)}});
    EXPECT_NE(form.Region, nullptr);
    ApplyRegions({}, 0);
    EXPECT_EQ(form.Region, nullptr) << "a later skin takes the shape away again";
}

TEST_F(Applying, ARegionIsMovedByTheOffsets) {
    ApplyRegions({{1, Sides(10, 5, 30, 25)}});
    EXPECT_EQ(WindowRectangle(), (Rect{14, 30, 34, 50}));
    ApplyRegions({{1, "type=3\n" + Sides(10, 5, 30, 25)}});
    EXPECT_EQ(WindowRectangle(), (Rect{14, 30, 34, 50})) << "corners of no size round nothing";
}

TEST_F(Applying, CornerSizesGetNoOffset) {
    ApplyRegions({{1, "type=3\nx3=8\ny3=8\n" + Sides(10, 5, 30, 25)}});
    RegionTable table;
    EXPECT_EQ(*form.Region,
              *FindRegion(table, CreateRoundRectRgn(table, {0, 0, 100, 80}, {14, 30, 34, 50}, 8, 8)));
    ApplyRegions({{1, "type=2\n" + Sides(10, 5, 30, 25)}});
    EXPECT_EQ(*form.Region, *FindRegion(table, CreateEllipticRgn(table, {0, 0, 100, 80}, {14, 30, 34, 50})));
}

TEST_F(Applying, RegionsAreCombinedInTheOrderOfTheirNumbers) {
    // 2 cuts a piece out of 1, then 3 copies 4 into 1: the order of the sections in the file doesn't matter.
    const Rgn one{1, Sides(0, 0, 40, 10)};
    const Rgn two{2, Sides(0, 0, 10, 10) + Combine(1, 1, 2, 4)};
    const Rgn three{3, Sides(50, 0, 60, 10) + Combine(4, 3, 1, 2)};
    const Rgn four{4, Sides(0, 20, 5, 25) + Combine(1, 4, 4, 5)};
    ApplyRegions({four, three, two, one});
    ASSERT_TRUE(form.Region);
    EXPECT_FALSE(form.Region->Holds(4 + 5, 25 + 5)) << "what 2 had cut out before 3 looked at 1";
    EXPECT_TRUE(form.Region->Holds(4 + 15, 25 + 5));
    EXPECT_TRUE(form.Region->Holds(4 + 55, 25 + 5));
    EXPECT_FALSE(form.Region->Holds(4 + 2, 25 + 22)) << "4 was the destination of 3";
}

TEST_F(Applying, AnElementWithAZeroAmongItsFourNumbersIsNotCombined) {
    for (const std::string& numbers :
         {Combine(1, 2, 2, 0), Combine(0, 2, 2, 5), Combine(1, 0, 2, 5), Combine(1, 2, 0, 5)}) {
        ApplyRegions({{1, Sides(0, 0, 10, 10)}, {2, Sides(20, 0, 30, 10) + numbers}});
        EXPECT_EQ(WindowRectangle(), (Rect{4, 25, 14, 35})) << numbers;
    }
}

TEST_F(Applying, NumbersOfElementsThatAreNotThereAreSkipped) {
    for (const std::string& numbers : {Combine(1, 2, 21, 2), Combine(1, 21, 2, 2), Combine(21, 1, 2, 2),
                                       Combine(1, -1, 2, 2), Combine(1, 2, 32767, 5), Combine(1, 2, 7, 2),
                                       Combine(1, 2, 2, 6), Combine(1, 2, 2, -1), Combine(7, 1, 2, 2)}) {
        ApplyRegions({{1, Sides(0, 0, 10, 10)}, {2, Sides(20, 0, 30, 10) + numbers}});
        EXPECT_EQ(WindowRectangle(), (Rect{4, 25, 14, 35})) << numbers;
        velora.SkinCount = 0;
    }
}

TEST_F(Applying, ADisabledElementIsLeftOutOfBothPasses) {
    Apply("[Settings]\nWidth=1500\nHeight=1200\nShapeCount=2\n[rgn1]\nenabled=True\n" + Sides(0, 0, 10, 10) +
          "[rgn2]\nenabled=False\n" + Sides(20, 0, 30, 10) + Combine(1, 1, 2, 2));
    EXPECT_EQ(WindowRectangle(), (Rect{4, 25, 14, 35}));
}

TEST_F(Applying, ASumThatOverflowsBuildsNoRegion) {
    ApplyRegions({{1, "x1=0\nx2=2147483647\ny1=0\ny2=10\n"}});
    EXPECT_EQ(form.Region, nullptr);
    ApplyRegions({{1, "x1=-2147483648\nx2=2147483643\ny1=-2147483648\ny2=2147483622\n"}});
    EXPECT_EQ(WindowRectangle(), (Rect{0, 0, 100, 80}));
}

TEST_F(Applying, AnEmptyResultIsARegionAllTheSame) {
    ApplyRegions({{1, Sides(0, 0, 10, 10) + Combine(1, 1, 1, 3)}});
    ASSERT_TRUE(form.Region);
    EXPECT_TRUE(form.Region->IsEmpty());
}

TEST_F(Applying, ElementsAboveTwentyArePassedOver) {
    ApplyRegions({{1, Sides(0, 0, 10, 10)},
                  {20, Sides(10, 0, 20, 10) + Combine(1, 1, 20, 2)},
                  {21, Sides(20, 0, 30, 10) + Combine(1, 1, 21, 2)}},
                 32767);
    EXPECT_EQ(WindowRectangle(), (Rect{4, 25, 24, 35}));
}

TEST_F(Applying, AHundredTimesIsAsOnceAndKeepsNoOldRegions) {
    const Integer slot = ApplyRegions(
        {{1, "type=2\n" + Sides(0, 0, 50, 50)}, {2, Sides(20, 0, 30, 10) + Combine(1, 1, 2, 4)}});
    const Region once = *form.Region;
    for (int time = 0; time < 100; ++time)
        ApplySkin(velora, slot);
    EXPECT_EQ(*form.Region, once);
    EXPECT_EQ(velora.Regions.Regions.size(), 2u);
}

TEST_F(Applying, TheBackgroundComesLastAndStandsInTheCorner) {
    PutPictures({"back.gif", "object.gif"});
    Apply("[Settings]\nGraphic=back.gif\nObjectCount=1\n[object1]\nenabled=1\nfilename=object.gif\n"
          "filename2=object.gif\nleft=5\ntop=6\n");
    EXPECT_EQ(FileOf(form.picBackground), "back.gif");
    EXPECT_EQ(form.picBackground.Left, 0);
    EXPECT_EQ(form.picBackground.Top, 0);
    EXPECT_EQ(FileOf(form.picBackground1), "object.gif");
    EXPECT_TRUE(form.picBackground.Visible);
}

TEST_F(Applying, AMissingBackgroundLeavesTheOneBefore) {
    PutPictures({"back.gif"});
    Apply("[Settings]\nGraphic=none.gif\n");
    EXPECT_FALSE(form.picBackground.Visible) << "nothing of the surface is seen";
    Apply("[Settings]\nGraphic=back.gif\n");
    Apply("[Settings]\nGraphic=none.gif\n");
    EXPECT_EQ(FileOf(form.picBackground), "back.gif");
}

TEST_F(Applying, ASkinWithoutAGraphicKeyShowsABackgroundWithoutAPicture) {
    Apply("[Settings]\n");
    EXPECT_TRUE(form.picBackground.Visible);
    EXPECT_EQ(form.picBackground.Picture, nullptr);
    EXPECT_EQ(form.picBackground.Left, 0);
}

TEST_F(Applying, ASkinWhoseFolderIsGoneKeepsItsPictures) {
    PutPictures({"sub/back.gif", "sub/a.gif"});
    const Integer slot =
        Apply("[Settings]\nGraphic=back.gif\nObjectCount=2\nShapeCount=1\n[rgn1]\nenabled=1\nx2=9\ny2=9\n"
              "[object1]\nenabled=1\ntype=1\nfilename=a.gif\nfilename2=a.gif\n"
              "[object2]\nenabled=1\ntype=11\nfilename=a.gif\nfilename2=a.gif\nx1=5\n",
              "sub/skin.vs4");
    std::filesystem::remove_all(directory.Path("sub"));
    ApplySkin(velora, slot);
    EXPECT_EQ(FileOf(form.picBackground), "back.gif");
    EXPECT_EQ(FileOf(form.picPlay), "a.gif");
    EXPECT_EQ(FileOf(form.picVolume), "a.gif");
    EXPECT_EQ(velora.Skins[1].VolumeX[1], 5);
    EXPECT_NE(form.Region, nullptr);
}

TEST_F(Applying, TheLargestSkinHasAShapeOfNoMoreRowsThanTheWindow) {
    std::string text = "[Settings]\nWidth=245745\nHeight=245745\nShapeCount=20\n";
    for (int number = 1; number <= 20; ++number)
        text += "[rgn" + std::to_string(number) + "]\nenabled=1\ntype=2\nx1=" + std::to_string(number * 300) +
                "\nx2=16000\ny1=0\ny2=16000\ndestrgn=1\nsrcrgn1=1\nsrcrgn2=" + std::to_string(number) +
                "\ncombinemode=3\n";
    Apply(text);
    ASSERT_TRUE(form.Region);
    EXPECT_LE(form.Region->Bands().size(), 16383u);
}
