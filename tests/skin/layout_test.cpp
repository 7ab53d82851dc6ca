// Which control an object of a skin takes, what it does to it, and what stays when it can't have
// one: buttons, texts, the volume, the row of lights and the background.
#include "skin/layout.h"

#include "support/skin_fixture.h"

namespace {

struct LayoutRow {
    const char* Name;
    Lines First;         ///< The objects of a skin that is applied before; none if empty.
    Lines Objects;       ///< The first one at left 31 unless its own keys say otherwise.
    const char* Changed; ///< By the second skin, of everything.
    std::string Graphic = "Graphic=none.gif ";
};

std::string SkinOf(const Lines& objects, const std::string& graphic = "Graphic=none.gif ") {
    std::string text = "ObjectCount=32767 ";
    int number = 0;
    for (const std::string& keys : objects) {
        ++number;
        text += Joined("[object", number, "] ", keys, " enabled=1 left=", 30 + number, " ");
    }
    return SkinText(text, "Width=5835 Height=4185 " + graphic);
}

const std::string kPictures = "filename=a.gif filename2=b.gif top=12 width=13 height=14 ";

Lines OfTypes(int least, int most, const std::string& keys = kPictures) {
    Lines objects;
    for (int type = least; type <= most; ++type)
        objects.push_back(Joined(keys, "type=", type));
    return objects;
}

const LayoutRow kLayouts[] = {
    {"each type takes its control and its holders, and two loads are two pictures",
     {},
     OfTypes(0, 13),
     "step 1; picBackground 31,12 20x10 a.gif#1; picVolume 42,12 20x10 a.gif#25; picPlay 32,12 "
     "20x10 a.gif#4; picPause 38,12 20x10 a.gif#22; picBackward 35,12 20x10 a.gif#13; picForward "
     "34,12 20x10 a.gif#10; picPlaylist 37,12 20x10 a.gif#19; picEject 36,12 20x10 a.gif#16; "
     "picBackground1 8,8 33x33 hidden a.gif#2; picBackground2 8,48 33x33 hidden b.gif#3; picPlay1 "
     "48,8 33x33 hidden a.gif#5; picPlay2 48,48 33x33 hidden b.gif#6; picPause1 88,8 33x33 hidden "
     "a.gif#23; picPause2 88,48 33x33 hidden b.gif#24; picStop1 128,8 33x33 hidden a.gif#8; "
     "picStop2 128,48 33x33 hidden b.gif#9; picBackward1 168,8 33x33 hidden a.gif#14; picBackward2 "
     "168,48 33x33 hidden b.gif#15; picForeward1 208,8 33x33 hidden a.gif#11; picForeward2 208,48 "
     "33x33 hidden b.gif#12; picPlaylist1 248,8 33x33 hidden a.gif#20; picPlaylist2 248,48 33x33 "
     "hidden b.gif#21; picEject1 288,8 33x33 hidden a.gif#17; picEject2 288,48 33x33 hidden "
     "b.gif#18; picStop 33,12 20x10 a.gif#7; lblStatusLabel 43,12 13x14 11 80ffff Ready; "
     "lblFilescroll 40,12 13x14 9 80ffff ; VFmp3scope1 39,12 13x14; shpPercent 0,64 5x5 hidden "
     "form 2 0 0; steps 0,0 ~b1.gif 0,0 ~b2.gif 0,0 ~b3.gif 0,0 ~b4.gif 0,0 ~b5.gif 0,0 ~b6.gif "
     "0,0 ~b7.gif"},
    {"disabled objects of each type", {}, OfTypes(0, 13, "enabled=0 " + kPictures), ""},
    {"what a later skin leaves out, or hasn't the files for, stays", OfTypes(0, 13),
     OfTypes(0, 7, "filename=m.gif filename2=m.gif "), ""},
    {"what is no picture has its place, types end on both sides, the graphic covers the background",
     {},
     {"filename=a.gif filename2=b.gif", "type=-1", "type=14",
      "type=4 filename=skin.vs4 filename2=skin.vs4"},
     "picBackground 0,0 20x10 c.gif#6; picBackward 34,0 33x33 -; picBackground1 8,8 33x33 hidden "
     "a.gif#2; picBackground2 8,48 33x33 hidden b.gif#3",
     "Graphic=c.gif "},
    {"a second file that is missing, or the directory itself, leaves the picture before",
     {"type=1 filename=c.gif filename2=c.gif"},
     {"type=1 filename=a.gif filename2=none.gif", "type=1 filename=a.gif"},
     "picPlay 32,0 20x10 a.gif#6; picPlay1 48,8 33x33 hidden a.gif#7"},
    {"all 24 objects are visited and no more",
     {},
     Lines(25, "type=9"),
     "lblFilescroll 54,0 0x0 9 80ffff "},
    {"a volume takes its pictures, the positions of its own section, and its place",
     {},
     {"enabled=0 y1=6", "enabled=0",
      "type=11 filename=a.gif filename2=knob.bmp left=31 top=32 x1=1 y1=2 x2=70000 "
      "y2=x y3=4.5 x7=-3 y7=8 x8=9"},
     "step 1; picVolume 31,32 20x10 a.gif#1; picVolumeArray 328,48 33x33 hidden - knob1.gif#2 "
     "knob2.gif#3 knob3.gif#4 knob4.gif#5 knob5.gif#6 knob6.gif#7 knob7.gif#8; steps 1,2 "
     "~knob1.gif 0,0 ~knob2.gif 0,4 ~knob3.gif 0,0 ~knob4.gif 0,0 ~knob5.gif 0,0 ~knob6.gif -3,8 "
     "~knob7.gif"},
    {"lights are made once in a run, and a broken row is not repaired",
     {"type=13 filename=one.ini"},
     {"type=13 filename=two.ini"},
     ""},
    {"a missing shape file leaves the row to a later skin",
     {"type=13 filename=none.ini"},
     {"type=13 filename=one.ini left=77"},
     "shpPercent 3,5 0x6 form 2 0 0; shpPercent 0,64 5x5 hidden form 2 0 0"},
    {"without a graphic the background shows without a picture",
     {},
     {},
     "picBackground 0,0 369x89 -",
     ""},
};

} // namespace

TEST(Layout, AnObjectChangesItsOwnControlsAndNothingElse) {
    for (const LayoutRow& row : kLayouts) {
        SkinMachine at;
        for (const char* name :
             {"a", "b", "c", "knob1", "knob2", "knob3", "knob4", "knob5", "knob6", "knob7"})
            at.directory.Put(Joined(name, ".gif"), "picture");
        at.directory.Put("one.ini", "[1]\nleft=3\ntop=5\nheight=6\n");
        at.directory.Put("two.ini", "[1]\ntop=7\nheight=8\n[2]\ntop=7\nheight=8\n");
        if (!row.First.empty()) at.Apply(SkinOf(row.First));
        const Integer slot = at.Load(SkinOf(row.Objects, row.Graphic));
        at.form.lCurVol = 5;
        at.form.lblStatusLabel.Visible = at.form.lblFilescroll.Visible = row.First.size() == 14;
        const Lines before = at.All();
        ApplySkin(at.velora, slot);
        EXPECT_EQ(Changes(before, at.All()), row.Changed) << row.Name;
    }
}
