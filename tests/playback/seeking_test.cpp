// The gesture of a seek: press with shift, blink, release.
#include "playback/seeking.h"

#include "support/velora_fixture.h"

namespace {

class Seeking : public VeloraTest {
protected:
    Seeking() {
        AddEntry(u"", u"a.mp3");
        AddEntry(u"", u"b.mp3");
        velora.CurrentTrack = 1;
        velora.PlayerState = PlayerState::Playing;
    }
};

const std::string kClick = "PlaySound \\velora\\click.wav";

} // namespace

TEST(StartsSeek, ShiftAloneWhilePlaying) {
    for (Integer shift = 0; shift < 8; ++shift)
        for (Long state = 0; state < 5; ++state)
            EXPECT_EQ(StartsSeek(shift, static_cast<PlayerState>(state)), shift == 1 && state == 1)
                << "shift " << shift << ", state " << state;
}

TEST_F(Seeking, TheButtonBlinksAndEverySecondTickAddsAStep) {
    Press(form.picForward, 5, 5, kLeftButton, 1);
    EXPECT_EQ(velora.PlayerState, PlayerState::SeekingForward);
    loop.Wait(0.2);
    EXPECT_FALSE(form.picForward.Visible);
    EXPECT_EQ(velora.SeekOffset, 0) << "the first tick only hides";
    loop.Wait(0.2);
    EXPECT_TRUE(form.picForward.Visible);
    EXPECT_EQ(velora.SeekOffset, 10);
    loop.Wait(1.0);
    EXPECT_FALSE(form.picForward.Visible);
    Release(form.picForward, 5, 5);
    EXPECT_TRUE(form.picForward.Visible);
    EXPECT_EQ(velora.PlayerState, PlayerState::Playing);
    EXPECT_EQ(journal.Take(), (Lines{kClick, "Player.Seek 30"}));
    loop.Wait(2);
    EXPECT_EQ(velora.SeekOffset, 30) << "no tick after the release";
}

TEST_F(Seeking, BackwardCountsDownAndEachGestureBeginsAtZero) {
    for (int gesture = 0; gesture < 2; ++gesture) {
        Press(form.picBackward, 5, 5, kRightButton, 1);
        EXPECT_EQ(velora.PlayerState, PlayerState::SeekingBackward) << "any mouse button seeks";
        loop.Wait(0.8);
        Release(form.picBackward, 5, 5, kRightButton);
        EXPECT_EQ(journal.Take(), Lines{"Player.Seek -20"});
    }
}

TEST_F(Seeking, AGestureThatIsTooShortSeeksByNothing) {
    Press(form.picForward, 5, 5, kLeftButton, 1);
    Release(form.picForward, 5, 60, kLeftButton, 0);
    EXPECT_EQ(journal.Take(), Lines{"Player.Seek 0"}) << "dragged off: no click, but the seek";
}

TEST_F(Seeking, AStepThatLeavesTheRangeOfAnIntegerIsSkipped) {
    Press(form.picForward, 5, 5, kLeftButton, 1);
    velora.SeekOffset = 32760;
    form.picForward.Visible = false;
    tmrSeekForward_Timer(velora);
    EXPECT_TRUE(form.picForward.Visible);
    EXPECT_EQ(velora.SeekOffset, 32760);
}

TEST_F(Seeking, ATickInAnotherStateDoesNothing) {
    tmrSeekForward_Timer(velora);
    tmrSeekBackward_Timer(velora);
    EXPECT_TRUE(form.picForward.Visible && form.picBackward.Visible);
    EXPECT_EQ(velora.SeekOffset, 0);
}

TEST_F(Seeking, AStepThatOvertakesAGestureLeavesNoHiddenButton) {
    loop.Post([&] {
        Click(form.picForward);
        loop.Post([&] { Press(form.picForward, 5, 5, kLeftButton, 1); });
    });
    Click(form.picForward);
    EXPECT_EQ(velora.PlayerState, PlayerState::Playing) << "the outer step has started its track";
    form.picForward.Visible = false;
    Release(form.picForward, 5, 5);
    EXPECT_TRUE(form.picForward.Visible);
    EXPECT_FALSE(form.tmrSeekForward.Enabled);
}
