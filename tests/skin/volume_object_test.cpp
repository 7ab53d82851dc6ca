// The volume object: seven pictures, seven positions, and the step that a layout goes back to.
#include "skin/volume_object.h"

#include "support/skin_fixture.h"

namespace {

class VolumeObject : public SkinTest {
protected:
    Integer ApplyVolume(const std::string& keys, const std::string& number = "1") {
        return Apply("[Settings]\nGraphic=none.gif\nObjectCount=3\n[object" + number +
                     "]\nenabled=1\ntype=11\n" + keys);
    }
    void PutSteps(const std::string& start, int count = 7) const {
        for (int step = 1; step <= count; ++step)
            directory.Put(start + std::to_string(step) + ".gif", "picture");
    }
};

} // namespace

TEST_F(VolumeObject, TakesItsPicturesPositionsAndPlace) {
    PutPictures({"rest.gif"});
    PutSteps("knob");
    player.SetVolume(form.lCurVol);
    (void)journal.Take();
    form.lCurVol = 5;
    ApplyVolume(
        "filename=rest.gif\nfilename2=knob.bmp\nleft=31\ntop=32\nx1=1\ny1=2\nx7=-3\ny7=4.5\nx8=9\nx2=70000\n");
    EXPECT_EQ(FileOf(form.picVolume), "rest.gif");
    EXPECT_EQ(form.picVolume.Left, 31);
    EXPECT_EQ(form.picVolume.Top, 32);
    EXPECT_EQ(form.picVolume.Width, 20);
    const SkinRecord& skin = velora.Skins[1];
    for (std::size_t step = 1; step <= 7; ++step) {
        EXPECT_TRUE(form.picVolumeArrayExists[step]);
        EXPECT_EQ(FileOf(form.picVolumeArray[step]), "knob" + std::to_string(step) + ".gif");
        EXPECT_FALSE(form.picVolumeArray[step].Visible);
        EXPECT_EQ(form.picVolumeArray[step].Width, 33) << "an element keeps its size";
        EXPECT_EQ(skin.VolumeImages[step], directory.PathText("knob" + std::to_string(step) + ".gif"));
    }
    EXPECT_EQ(skin.VolumeX, (std::array<Integer, 10>{0, 1, 0, 0, 0, 0, 0, -3}));
    EXPECT_EQ(skin.VolumeY, (std::array<Integer, 10>{0, 2, 0, 0, 0, 0, 0, 4}));
    EXPECT_EQ(form.lCurVol, 1);
    EXPECT_TRUE(journal.Take().empty()) << "the player isn't touched";
}

TEST_F(VolumeObject, FourCharactersAreCutOffWhateverTheyAre) {
    PutPictures({"rest.gif"});
    PutSteps("sub/vol.");
    ApplyVolume("filename=rest.gif\nfilename2=sub\\vol.jpeg\n");
    EXPECT_EQ(FileOf(form.picVolumeArray[7]), "vol.7.gif");
}

TEST_F(VolumeObject, AShortNameLeavesNoDirectory) {
    velora.CurrentSkin = 1;
    LoadVolumeObject(velora, 1, 0, 0, u"a", u"abcd");
    EXPECT_EQ(velora.Skins[1].VolumeImages[3], u"3.gif");
    LoadVolumeObject(velora, 1, 0, 0, u"a", u"b");
    EXPECT_EQ(velora.Skins[1].VolumeImages[7], u"7.gif");
    form.lCurVol = 4;
    LoadVolumeObject(velora, 1, 0, 0, u"", u"abcde");
    LoadVolumeObject(velora, 1, 0, 0, u"abcde", u"");
    EXPECT_EQ(form.lCurVol, 4) << "an empty name does nothing";
}

TEST_F(VolumeObject, MissingPicturesLeaveWhatWasThere) {
    PutPictures({"rest.gif"});
    PutSteps("old");
    PutSteps("new", 3);
    ApplyVolume("filename=rest.gif\nfilename2=old.gif\n");
    ApplyVolume("filename=none.gif\nfilename2=new.gif\nleft=9\n");
    EXPECT_EQ(FileOf(form.picVolume), "rest.gif");
    EXPECT_EQ(form.picVolume.Left, 9);
    EXPECT_EQ(FileOf(form.picVolumeArray[3]), "new3.gif");
    EXPECT_EQ(FileOf(form.picVolumeArray[4]), "old4.gif");
    EXPECT_EQ(velora.Skins[2].VolumeImages[4], directory.PathText("new4.gif"));
}

TEST_F(VolumeObject, PositionsComeFromTheObjectsOwnSection) {
    ApplyVolume("filename=a.gif\nfilename2=b.gif\ny1=5\n[object1]\ny1=6\n", "3");
    EXPECT_EQ(velora.Skins[1].VolumeY[1], 5);
}

TEST_F(VolumeObject, ASecondLayoutShowsStepOneAgain) {
    PutPictures({"rest.gif"});
    PutSteps("knob");
    const Integer slot = ApplyVolume("filename=rest.gif\nfilename2=knob.gif\ny1=5\n");
    form.lCurVol = 6;
    SetPicture(form.picVolume, form.picVolumeArray[6].Picture);
    ApplySkin(velora, slot);
    EXPECT_EQ(form.lCurVol, 1);
    EXPECT_EQ(FileOf(form.picVolume), "rest.gif");
    EXPECT_EQ(velora.Skins[1].VolumeY[1], 5);
}

TEST_F(VolumeObject, ASkinWithoutOneLeavesTheIndicatorAsTheFormHasIt) {
    Apply("[Settings]\nGraphic=none.gif\n");
    EXPECT_EQ(form.picVolume.Left, 248);
    EXPECT_EQ(form.picVolume.Picture, nullptr);
    EXPECT_EQ(form.lCurVol, 0);
    EXPECT_FALSE(form.picVolumeArrayExists[1]);
}
