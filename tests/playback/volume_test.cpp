// The steps of the volume: which place means which, and what each sends. They stand at 80, 70, ...
// 20.
#include "playback/volume.h"

#include "support/use.h"

TEST(Volume, Drags) {
    const std::string toStep4 = "SetVolume 30, SetVolume 40, SetVolume 60, volume 4";
    ExpectUses({
        {"each step sends its volume and shows its picture", "", "picVolume 5,85 +L | 5,15 | 5,85",
         "held by picVolume | picVolume step 7, SetVolume 30, SetVolume 40, SetVolume 60, "
         "SetVolume 70, SetVolume 90, SetVolume 100, volume 7 | picVolume step 1, SetVolume 90, "
         "SetVolume 70, SetVolume 60, SetVolume 40, SetVolume 30, SetVolume 0, volume 1"},
        {"a pixel beside a step doesn't count", "picVolume 5,75 +L", "5,71", ""},
        {"a step that is no neighbour doesn't count", "picVolume 5,65 +L", "5,15", ""},
        {"only the left button alone counts", "",
         "picVolume 5,80 +R 5,20 -R +M 5,80 -M 5,80 +L +R 5,20 -R", "held by picVolume"},
        {"a click without a movement does nothing", "", "picVolume 5,70 +L -L", ""},
        {"what no report named counts on the way to a release", "picVolume 5,75 +L", "=9,45 -L",
         "picVolume step 4, free, " + toStep4},
        {"what no report named counts on the way to a further press", "picVolume 5,75 +L",
         "=9,45 +R", "picVolume step 4, " + toStep4},
        {"the longest way that is walked", "picVolume 5,79 +L", "32772,61",
         "picVolume step 2, SetVolume 30, volume 2"},
        {"a longer one is jumped", "picVolume 5,79 +L", "32773,61", ""},
    });
}

TEST(Volume, OfOddSkinsAndNumbers) {
    Use use;
    use.velora.Skins[2].VolumeY[3] = use.velora.Skins[2].VolumeY[2];
    use.Do("picVolume 5,75 +L 5,70 5,71 5,70");
    EXPECT_EQ(use.form.lCurVol, 2) << "the lower of two steps at one place wins";
    use.form.picVolumeArray[1].Picture = nullptr;
    PickVolumeStep(use.velora, 0, kTwipsPerPixel * 80);
    EXPECT_EQ(use.form.picVolume.Picture, nullptr) << "a missing picture leaves it empty";
    EXPECT_FALSE(use.window.Damage.empty()) << "and that is on the screen before the event ends";
    Integer value = 3277;
    SendVolume(use.player, value);
    EXPECT_EQ(use.journal.Take().back(), "Player.SetVolume 3277")
        << "what doesn't fit is sent as it was";
}
