// The progress lights: thirteen, in the places and colours of the shape file, up to its first
// fault.
#include "skin/lights.h"

#include "support/skin_fixture.h"

namespace {

// What a shape file of those sections makes of the form, whose lights have the colour 7 until then.
std::string LightsOf(const Lines& sections) {
    std::string text;
    int number = 0;
    for (const std::string& keys : sections)
        text += Joined("[", ++number, "] ", keys, " ");
    std::ranges::replace(text, ' ', '\n');
    SkinMachine at;
    for (Shape& light : at.form.shpPercent)
        light.FillColour = light.BorderColour = 7;
    at.velora.Skins[2].Objects[3].FileName = at.directory.Put("lights.ini", text);
    const Lines before = at.All();
    LoadShapeObject(at.velora, 2, 3);
    return Changes(before, at.All());
}

struct LightRow {
    std::string Keys;
    std::string Line; ///< Behind "shpPercent ".
};

// Names match without case and otherwise exactly, a missing colour and a number leave the
// pattern's.
const LightRow kRows[] = {
    {"left=-0.5 top=12.9 width=1e1 height=&HFF shape=4.9 backcolor=vbBlue bordercolor=VBBLACK",
     "-1,12 10x255 form 4 ff0000 0"},
    {"top=5 height=6", "0,5 0x6 form 2 7 7"},
    {"left=1 top=5 height=6 shape=0 backcolor=vbcyan bordercolor=vbGreen",
     "1,5 0x6 form 0 ffff00 ff00"},
    {"left=2 top=5 height=6 shape=5 backcolor=vbmagenta bordercolor=VbRed",
     "2,5 0x6 form 5 ff00ff ff"},
    {"left=3 top=5 height=6 shape=1 backcolor=vbWhite bordercolor=vbyellow",
     "3,5 0x6 form 1 ffffff ffff"},
    {"left=4 top=5 height=6 shape=3 backcolor=red bordercolor=vbwhite", "4,5 0x6 form 3 7 ffffff"},
    {"left=6 top=5 height=6 backcolor=vbred", "6,5 0x6 form 2 ff 7"},
    {"left=7 top=5 height=6 backcolor= bordercolor=vbred", "7,5 0x6 form 2 7 ff"},
};

// The third section of a file and how far its light comes.
const LightRow kFaults[] = {
    {"height=6", "0,64 5x5"},
    {"top=5", "0,5 0x5"},
    {"left=x top=5 height=6", "288,64 5x5"},
    {"top=5 height=6 shape=6", "0,5 0x6"},
    {"top=5 height=6 shape=-1", "0,5 0x6"},
    {"top=5 height=6 shape=oval", "0,5 0x6"},
};

} // namespace

TEST(Lights, ThirteenTakeTheirNumbersAndColours) {
    Lines sections;
    std::string expected;
    for (const LightRow& row : kRows) {
        sections.push_back(row.Keys);
        expected += "shpPercent " + row.Line + "; ";
    }
    sections.resize(14, "left=8 top=1 height=2");
    for (std::size_t light = std::size(kRows); light < 13; ++light)
        expected += "shpPercent 8,1 0x2 form 2 7 7; ";
    EXPECT_EQ(LightsOf(sections) + "; ", expected);
    Shape light;
    SetShapeColours(light, u"vbred", u"");
    SetShapeColours(light, u"", u"vbred");
    EXPECT_EQ(light.FillColour + light.BorderColour, 0) << "an empty name leaves both colours";
}

TEST(Lights, TheFirstFaultOfTheFileEndsTheRow) {
    const std::string sound = "top=5 height=6", line = "shpPercent 0,5 0x6 form 2 7 7; ";
    for (const LightRow& row : kFaults)
        EXPECT_EQ(LightsOf({sound, sound, row.Keys, sound, sound}),
                  line + line + "shpPercent " + row.Line + " hidden form 2 7 7")
            << row.Keys;
}
