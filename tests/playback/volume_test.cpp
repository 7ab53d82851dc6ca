// The steps of the volume: which place means which, and what each sends.
#include "playback/volume.h"

#include "support/velora_fixture.h"

namespace {

class Volume : public VeloraTest {
protected:
    Volume() {
        velora.CurrentSkin = 2;
        for (std::size_t step = 1; step <= 7; ++step) {
            velora.Skins[2].VolumeY[step] = static_cast<Integer>(15 * (90 - 10 * step));
            velora.Skins[2].VolumeX[step] = 12345;
            SetPicture(form.picVolumeArray[step], std::make_shared<LoadedPicture>(20, 100));
        }
        form.lCurVol = 1;
    }
    void At(int step) { PickVolumeStep(velora, 30, static_cast<Single>(15 * (90 - 10 * step))); }
};

} // namespace

TEST_F(Volume, EachStepSendsItsPercentageAndShowsItsPicture) {
    const int percent[] = {0, 0, 30, 40, 60, 70, 90, 100};
    for (int step = 2; step <= 7; ++step) {
        At(step);
        EXPECT_EQ(form.lCurVol, step);
        EXPECT_EQ(form.picVolume.Picture, form.picVolumeArray[static_cast<std::size_t>(step)].Picture);
        EXPECT_EQ(journal.Take(), Lines{"Player.SetVolume " + std::to_string(percent[step])});
    }
    At(7);
    EXPECT_EQ(journal.Take(), Lines{});
    for (int step = 6; step >= 1; --step) {
        At(step);
        EXPECT_EQ(journal.Take(), Lines{"Player.SetVolume " + std::to_string(percent[step])});
    }
}

TEST_F(Volume, OnlyTheExactPlaceOfANeighbourCounts) {
    At(3);
    PickVolumeStep(velora, 0, 15 * 70 + 1);
    PickVolumeStep(velora, 12345, 15 * 71);
    EXPECT_EQ(form.lCurVol, 1);
    EXPECT_EQ(journal.Take(), Lines{});
}

TEST_F(Volume, TheLowerOfTwoStepsAtOnePlaceWins) {
    velora.Skins[2].VolumeY[3] = velora.Skins[2].VolumeY[2];
    At(2);
    At(2);
    EXPECT_EQ(form.lCurVol, 2);
}

TEST_F(Volume, OnlyAMoveWithTheLeftButtonAloneCounts) {
    for (const Integer button : {kRightButton, kMiddleButton}) {
        Press(form.picVolume, 5, 80, button);
        Move(form.picVolume, 5, 20);
        Release(form.picVolume, 5, 20, button);
    }
    Press(form.picVolume, 5, 80);
    Press(form.picVolume, 5, 80, kRightButton);
    Move(form.picVolume, 5, 20);
    EXPECT_EQ(form.lCurVol, 1);
    Release(form.picVolume, 5, 20, kRightButton);
    Release(form.picVolume, 5, 20);
    Press(form.picVolume, 5, 70);
    Release(form.picVolume, 5, 70);
    EXPECT_EQ(form.lCurVol, 1) << "a click without movement does nothing";
}

TEST_F(Volume, AMissingPictureLeavesTheIndicatorEmptyAndTheVolumeGoesOn) {
    form.picVolumeArray[2].Picture = nullptr;
    At(2);
    EXPECT_EQ(form.picVolume.Picture, nullptr);
    EXPECT_EQ(journal.Take(), Lines{"Player.SetVolume 30"});
}

TEST_F(Volume, TheNewPictureIsOnTheScreenBeforeTheEventEnds) {
    PickVolumeStep(velora, 0, 15 * 70);
    EXPECT_FALSE(window.Damage.empty());
}

TEST_F(Volume, AValueThatDoesNotFitIsSentAsItWas) {
    Integer value = 3277;
    SendVolume(velora, value);
    EXPECT_EQ(value, 3277);
    EXPECT_EQ(journal.Take(), Lines{"Player.SetVolume 3277"});
}
