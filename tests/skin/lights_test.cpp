// The progress lights: thirteen, once in a run, up to the first fault of the shape file.
#include "skin/lights.h"

#include "support/skin_fixture.h"

namespace {

class Lights : public SkinTest {
protected:
    // Applies a skin whose one object is the row of lights of that file.
    void ApplyLights(std::string_view shapeFile, const char* name = "lights.ini") {
        directory.Put(name, shapeFile);
        Apply(
            "[Settings]\nGraphic=none.gif\nObjectCount=1\n[object1]\nenabled=1\ntype=13\nleft=77\nfilename=" +
            std::string(name) + "\n");
    }
    static std::string Section(int number, const std::string& keys = "top=5\nheight=6\n") {
        return "[" + std::to_string(number) + "]\n" + keys;
    }
    static std::string AllSections() {
        std::string text;
        for (int number = 1; number <= 14; ++number)
            text += Section(number, "left=" + std::to_string(10 * number) +
                                        "\ntop=5\nwidth=8\nheight=6\nshape=3\n"
                                        "backcolor=vbred\nbordercolor=vbwhite\n");
        return text;
    }
    // How many lights are ready, and that the next one, if it exists, is hidden, and no further one exists.
    std::size_t ReadyLights() const {
        std::size_t ready = 0;
        while (ready < 13 && form.shpPercent[ready + 1].Visible)
            ++ready;
        for (std::size_t number = ready + 1; number <= 13; ++number) {
            EXPECT_FALSE(form.shpPercent[number].Visible) << number;
            EXPECT_TRUE(!form.shpPercent[number].Exists || number == ready + 1) << number;
        }
        return ready;
    }
    const Shape& Light(std::size_t number) const { return form.shpPercent[number]; }
};

} // namespace

TEST_F(Lights, AllThirteenTakeTheirNumbersAndColours) {
    ApplyLights(AllSections());
    EXPECT_EQ(ReadyLights(), 13u);
    for (Long number = 1; number <= 13; ++number) {
        const Shape& light = Light(static_cast<std::size_t>(number));
        EXPECT_EQ((std::array<Long, 4>{light.Left, light.Top, light.Width, light.Height}),
                  (std::array<Long, 4>{10 * number, 5, 8, 6}));
        EXPECT_EQ(light.Form, ShapeForm::Circle);
        EXPECT_EQ(light.FillColour, 0x0000FF);
        EXPECT_EQ(light.BorderColour, 0xFFFFFF);
    }
    EXPECT_TRUE(Light(0).Visible);
    EXPECT_EQ(Light(0).Left, 288) << "the pattern stays where it is";
}

TEST_F(Lights, ASectionOfTopAndHeightIsABlackOvalWithoutWidth) {
    std::string text;
    for (int number = 1; number <= 13; ++number)
        text += Section(number);
    ApplyLights(text);
    EXPECT_EQ(ReadyLights(), 13u);
    EXPECT_EQ(Light(1).Left, 0);
    EXPECT_EQ(Light(1).Width, 0);
    EXPECT_EQ(Light(1).Form, ShapeForm::Oval);
    EXPECT_EQ(Light(1).FillColour, 0);
    EXPECT_EQ(Light(1).BorderColour, 0);
}

TEST_F(Lights, AFractionIsCutDownward) {
    ApplyLights(Section(1, "left=-0.5\ntop=12.9\nwidth=1e1\nheight=&HFF\nshape=4.9\n"));
    EXPECT_EQ((std::array<Long, 4>{Light(1).Left, Light(1).Top, Light(1).Width, Light(1).Height}),
              (std::array<Long, 4>{-1, 12, 10, 255}));
    EXPECT_EQ(Light(1).Form, ShapeForm::RoundedRectangle);
}

TEST_F(Lights, TheFirstFaultEndsTheRow) {
    for (const std::string keys :
         {"height=6\n", "top=5\n", "left=x\ntop=5\nheight=6\n", "top=5\nheight=6\nwidth=1,5\n",
          "top=\nheight=6\n", "top=5\nheight=6\nshape=6\n", "top=5\nheight=6\nshape=9\n",
          "top=5\nheight=6\nshape=-1\n", "top=5\nheight=6\nshape=oval\n", "top=2147483648\nheight=6\n",
          "top=5\nheight=1e300\n"}) {
        for (Shape& light : form.shpPercent)
            light.Exists = light.Visible = &light == &form.shpPercent[0];
        velora.SkinCount = 0;
        ApplyLights(Section(1) + Section(2) + Section(3, keys) + Section(4) + Section(5));
        EXPECT_EQ(ReadyLights(), 2u) << keys;
        EXPECT_TRUE(Light(3).Exists) << keys;
    }
}

TEST_F(Lights, AFileThatEndsAnywhereIsSurvived) {
    const std::string whole = AllSections();
    for (std::size_t length = 0; length < whole.size(); length += 17) {
        for (Shape& light : form.shpPercent)
            light.Exists = light.Visible = &light == &form.shpPercent[0];
        velora.SkinCount = 0;
        ApplyLights(std::string_view(whole).substr(0, length));
        ReadyLights();
    }
}

TEST_F(Lights, AreMadeOnceInARun) {
    ApplyLights(AllSections());
    ApplyLights(Section(1, "left=1\ntop=1\nheight=1\nbackcolor=vbblue\n"));
    EXPECT_EQ(Light(1).Left, 10);
    EXPECT_EQ(Light(1).FillColour, 0x0000FF);
}

TEST_F(Lights, ABrokenRowIsNotRepairedByALaterSkin) {
    ApplyLights(Section(1) + Section(2, "top=x\n"));
    ApplyLights(AllSections(), "better.ini");
    EXPECT_EQ(ReadyLights(), 1u);
    EXPECT_EQ(Light(1).Left, 0);
}

TEST_F(Lights, AMissingShapeFileLeavesTheRowToALaterSkin) {
    Apply("[Settings]\nObjectCount=1\n[object1]\nenabled=1\ntype=13\nfilename=none.ini\n");
    EXPECT_FALSE(Light(1).Exists);
    ApplyLights(AllSections());
    EXPECT_EQ(ReadyLights(), 13u);
}

TEST_F(Lights, AFaultIsReportedToTheCaller) {
    directory.Put("lights.ini", Section(1, "top=x\n"));
    velora.Skins[1].Objects[2] = {true, u"", 13, 0, 0, 0, 0, directory.PathText("lights.ini"), u""};
    EXPECT_FALSE(LoadShapeObject(velora, 1, 2));
    velora.Skins[1].Objects[2].FileName.clear();
    EXPECT_TRUE(LoadShapeObject(velora, 1, 2));
}

TEST(ShapeColours, NamesMatchWithoutCaseAndOtherwiseExactly) {
    const std::pair<const char16_t*, Long> names[] = {
        {u"vbBlue", 0xFF0000},    {u"VBBLACK", 0},      {u"vbcyan", 0xFFFF00},  {u"vbGreen", 0x00FF00},
        {u"vbmagenta", 0xFF00FF}, {u"VbRed", 0x0000FF}, {u"vbwhite", 0xFFFFFF}, {u"vbyellow", 0x00FFFF}};
    for (const auto& [name, value] : names) {
        Shape shape;
        shape.FillColour = shape.BorderColour = 7;
        SetShapeColours(shape, name, name);
        EXPECT_EQ(shape.FillColour, value);
        EXPECT_EQ(shape.BorderColour, value);
    }
    Shape shape;
    shape.FillColour = 7;
    SetShapeColours(shape, u" vbred", u"vbwhite");
    EXPECT_EQ(shape.FillColour, 7) << "blanks count";
    EXPECT_EQ(shape.BorderColour, 0xFFFFFF) << "an unknown name doesn't stop the other";
    SetShapeColours(shape, u"255", u"16711680");
    EXPECT_EQ(shape.FillColour, 7) << "numbers aren't colours";
    SetShapeColours(shape, u"vbred", u"");
    SetShapeColours(shape, u"", u"vbred");
    EXPECT_EQ(shape.FillColour, 7) << "an empty name stops both";
    EXPECT_EQ(shape.BorderColour, 0xFFFFFF);
}
