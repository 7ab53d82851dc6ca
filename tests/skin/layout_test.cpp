// Which control an object takes, and what stays when it can't have one.
#include "skin/layout.h"

#include <filesystem>
#include <sys/stat.h>

#include "state/stack.h"
#include "support/skin_fixture.h"

namespace {

class Layout : public SkinTest {
protected:
    static std::string Object(int number, const std::string& type, const std::string& keys) {
        return "[object" + std::to_string(number) + "]\nenabled=True\ntype=" + type + "\n" + keys;
    }
    Integer ApplyObject(const std::string& type, const std::string& keys) {
        return Apply("[Settings]\nGraphic=none.gif\nObjectCount=1\n" + Object(1, type, keys));
    }
};

const std::string kPictures = "filename=a.gif\nfilename2=b.gif\nleft=11\ntop=12\nwidth=999\nheight=999\n";
const std::string kPlace = "left=11\ntop=12\nwidth=13\nheight=14\n";

} // namespace

TEST_F(Layout, EachPictureObjectTakesItsControlAndItsHolders) {
    PutPictures({"a.gif", "b.gif"});
    const std::array<std::array<PictureBox*, 3>, 8> expected{{
        {&form.picBackground, &form.picBackground1, &form.picBackground2},
        {&form.picPlay, &form.picPlay1, &form.picPlay2},
        {&form.picStop, &form.picStop1, &form.picStop2},
        {&form.picForward, &form.picForeward1, &form.picForeward2},
        {&form.picBackward, &form.picBackward1, &form.picBackward2},
        {&form.picEject, &form.picEject1, &form.picEject2},
        {&form.picPlaylist, &form.picPlaylist1, &form.picPlaylist2},
        {&form.picPause, &form.picPause1, &form.picPause2},
    }};
    for (std::size_t type = 0; type < expected.size(); ++type) {
        const auto& [control, normal, pressed] = expected[type];
        pictures.Loaded.clear();
        ApplyObject(std::to_string(type), kPictures);
        EXPECT_EQ(pictures.Loaded, (std::vector<std::string>{"a.gif", "a.gif", "b.gif"})) << type;
        EXPECT_EQ(FileOf(*control), "a.gif") << type;
        EXPECT_EQ(FileOf(*normal), "a.gif") << type;
        EXPECT_EQ(FileOf(*pressed), "b.gif") << type;
        EXPECT_NE(control->Picture, normal->Picture) << "two loads are two pictures";
        EXPECT_TRUE(control->Visible) << type;
        EXPECT_FALSE(normal->Visible) << type;
        EXPECT_EQ(control->Left, 11) << type;
        EXPECT_EQ(control->Top, 12) << type;
        EXPECT_EQ(control->Width, 20) << "the picture's size and not the object's";
        EXPECT_EQ(normal->Width, 33) << "holders keep their size";
    }
}

TEST_F(Layout, AnObjectWithoutATypeIsTheBackground) {
    PutPictures({"a.gif"});
    Apply("[Settings]\nGraphic=none.gif\nObjectCount=1\n[object1]\nenabled=1\nfilename=a.gif\n");
    EXPECT_EQ(FileOf(form.picBackground), "a.gif");
    EXPECT_TRUE(form.picBackground.Visible);
}

TEST_F(Layout, LabelsAndTheScopeTakeTheNumbersUnchanged) {
    const auto placeOf = [](const Control& control) {
        return std::array<Long, 4>{control.Left, control.Top, control.Width, control.Height};
    };
    constexpr std::array<Long, 4> kExpected{11, 12, 13, 14};
    form.lblFilescroll.Visible = form.lblStatusLabel.Visible = form.VFmp3scope1.Visible = false;
    ApplyObject("9", kPlace);
    EXPECT_EQ(placeOf(form.lblFilescroll), kExpected);
    EXPECT_TRUE(form.lblFilescroll.Visible);
    ApplyObject("12", kPlace);
    EXPECT_EQ(placeOf(form.lblStatusLabel), kExpected);
    EXPECT_TRUE(form.lblStatusLabel.Visible);
    EXPECT_EQ(form.lblStatusLabel.Caption, u"Ready");
    ApplyObject("8", kPlace);
    EXPECT_EQ(placeOf(form.VFmp3scope1), kExpected);
    EXPECT_FALSE(form.VFmp3scope1.Visible) << "a track shows it, not the skin";
    ApplyObject("9", "left=1\n");
    EXPECT_EQ(placeOf(form.lblFilescroll), (std::array<Long, 4>{1, 0, 0, 0}));
}

TEST_F(Layout, TypesWithoutAControlAndDisabledObjectsChangeNothing) {
    PutPictures({"a.gif", "b.gif"});
    directory.Put("lights.ini", "[1]\ntop=1\nheight=1\n");
    form.picBackground.Visible = true;
    const auto expectNothing = [&](const std::string& type, const char* enabled) {
        velora.SkinCount = 0;
        const Integer slot = Load("[Settings]\nObjectCount=1\n[object1]\nenabled=" + std::string(enabled) +
                                  "\ntype=" + type + "\n" + kPictures);
        const Scene before = SceneOf(form);
        velora.CurrentSkin = slot;
        LayoutSkinObjects(velora, slot);
        EXPECT_TRUE(DamageBetween(before, SceneOf(form)).empty()) << type;
        EXPECT_TRUE(pictures.Loaded.empty()) << type;
        EXPECT_EQ(form.lCurVol, 0) << type;
    };
    for (const char* type : {"10", "14", "-1", "2147483647", "-2147483648"})
        expectNothing(type, "True");
    for (int type = 0; type <= 13; ++type)
        expectNothing(std::to_string(type), "False");
}

TEST_F(Layout, OfTwoObjectsForOneControlTheLaterOneStays) {
    PutPictures({"a.gif", "b.gif", "c.gif"});
    Apply("[Settings]\nObjectCount=2\n" + Object(1, "1", kPictures) +
          Object(2, "1", "filename=c.gif\nfilename2=b.gif\nleft=50\n"));
    EXPECT_EQ(FileOf(form.picPlay), "c.gif");
    EXPECT_EQ(form.picPlay.Left, 50);
    EXPECT_EQ(form.picPlay.Top, 0);
}

TEST_F(Layout, AMissingFirstFilePassesTheObjectOver) {
    PutPictures({"b.gif"});
    ApplyObject("1", kPictures);
    EXPECT_FALSE(form.picPlay.Visible);
    EXPECT_EQ(form.picPlay.Left, 8);
    EXPECT_EQ(form.picPlay2.Picture, nullptr);
}

TEST_F(Layout, AMissingSecondFileLeavesThatPictureAsItWas) {
    PutPictures({"a.gif", "old.gif"});
    ApplyObject("1", "filename=old.gif\nfilename2=old.gif\n");
    ApplyObject("1", kPictures);
    EXPECT_EQ(FileOf(form.picPlay), "a.gif");
    EXPECT_EQ(FileOf(form.picPlay2), "old.gif");
    ApplyObject("1", "filename=a.gif\n");
    EXPECT_EQ(FileOf(form.picPlay2), "old.gif") << "the directory itself is no picture";
}

TEST_F(Layout, AFileThatIsNoPictureStillMovesAndShowsTheButton) {
    directory.Put("text.gif", "not one");
    ApplyObject("1", "filename=text.gif\nfilename2=text.gif\nleft=5\n");
    EXPECT_EQ(form.picPlay.Left, 5);
    EXPECT_TRUE(form.picPlay.Visible);
    EXPECT_EQ(form.picPlay.Picture, nullptr);
}

TEST_F(Layout, AButtonWithoutANameTakesTheDirectoryForItsFile) {
    ApplyObject("1", "left=5\n");
    EXPECT_EQ(form.picPlay.Left, 5);
    EXPECT_TRUE(form.picPlay.Visible);
    EXPECT_EQ(form.picPlay.Picture, nullptr);
}

TEST_F(Layout, ANameOfOneCharacterPlacesNothing) {
    PlacePictureObject(velora, form.picPlay, form.picPlay1, form.picPlay2, u"\\", u"\\", 5, 6);
    PlacePictureObject(velora, form.picPlay, form.picPlay1, form.picPlay2, u"", u"", 5, 6);
    EXPECT_EQ(form.picPlay.Left, 8);
    EXPECT_FALSE(form.picPlay.Visible);
}

TEST_F(Layout, NamesThatAreNoPlainFilesGiveNoPicture) {
    ASSERT_EQ(mkfifo(directory.Path("fifo.gif").c_str(), 0600), 0);
    std::filesystem::create_directory(directory.Path("dir.gif"));
    directory.Put("outside.gif", "picture");
    ASSERT_EQ(symlink("nowhere", directory.Path("dead.gif").c_str()), 0);
    for (const std::string& name : {std::string("fifo.gif"), std::string("dir.gif"), std::string("dead.gif"),
                                    std::string("http://example.org/a.gif"), std::string("/etc/passwd"),
                                    std::string("..\\..\\..\\x"), std::string(5000, 'a')}) {
        ApplyObject("1", "filename=" + name + "\nfilename2=" + name + "\n");
        EXPECT_EQ(form.picPlay.Picture, nullptr) << name.substr(0, 40);
        ApplyObject("11", "filename=" + name + "\nfilename2=" + name + "\n");
        EXPECT_EQ(form.picVolume.Picture, nullptr) << name.substr(0, 40);
        velora.SkinCount = 0;
    }
}

TEST_F(Layout, WhatALaterSkinLeavesOutStaysWhereItWas) {
    PutPictures({"a.gif", "b.gif"});
    ApplyObject("5", kPictures);
    Apply("[Settings]\n", "second.vs4");
    EXPECT_TRUE(form.picEject.Visible);
    EXPECT_EQ(form.picEject.Left, 11);
    EXPECT_EQ(FileOf(form.picEject), "a.gif");
}

TEST_F(Layout, PlacesFarOutsideAreSurvived) {
    PutPictures({"a.gif", "b.gif"});
    form.picBackground.Visible = true;
    for (const char* place : {"2147483647", "-2147483648", "2147483648"})
        for (const char* type : {"0", "1", "8", "9", "11", "12"}) {
            velora.SkinCount = 0;
            const std::string number = place;
            ApplyObject(type, "filename=a.gif\nfilename2=b.gif\nleft=" + number + "\ntop=" + number +
                                  "\nwidth=" + number + "\nheight=" + number + "\n");
            EXPECT_EQ(ControlAt(form, -1, -1), nullptr);
            static_cast<void>(SceneOf(form));
        }
}

TEST_F(Layout, AllTwentyFourObjectsAreVisitedAndNoMore) {
    PutPictures({"a.gif", "b.gif"});
    std::string text = "[Settings]\nObjectCount=32767\n";
    for (int number = 1; number <= 25; ++number)
        text += Object(number, "1", "filename=a.gif\nfilename2=b.gif\nleft=" + std::to_string(number) + "\n");
    Apply(text);
    EXPECT_EQ(form.picPlay.Left, 24);
}

TEST_F(Layout, ASlotThatIsNotLoadedChangesNothing) {
    velora.Skins[3].ObjectCount = 1;
    velora.Skins[3].Objects[1] = {true, u"", 9, 1, 2, 3, 4, u"", u""};
    form.lblFilescroll.Visible = false;
    LayoutSkinObjects(velora, 3);
    EXPECT_FALSE(form.lblFilescroll.Visible);
}
