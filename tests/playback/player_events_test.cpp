// What the player reports, and when it counts.
#include "playback/player_events.h"

#include "display/progress.h"
#include "playback/navigation.h"
#include "support/velora_fixture.h"

namespace {

class PlayerReports : public VeloraTest {
protected:
    PlayerReports() {
        velora.CurrentTrack = AddEntry(u"", u"a.mp3");
        velora.PlayerState = PlayerState::Playing;
    }
};

} // namespace

TEST_F(PlayerReports, TagsShowOnlyWithTheNextStreamInfo) {
    form.lblFilescroll.Caption = u"a ... ";
    playerEvents.OnTagInfo(u"Moon", u"Tide", u"x", u"x", u"x", u"x");
    EXPECT_EQ(form.lblFilescroll.Caption, u"a ... ");
    playerEvents.OnStreamInfo(320, 48000, 2);
    EXPECT_NE(form.lblFilescroll.Caption.find(u"Moon by Tide"), Text::npos);
    EXPECT_NE(form.lblFilescroll.Caption.find(u"bitrate: 320 ::.. "), Text::npos);
    EXPECT_NE(form.lblFilescroll.Caption.find(u"sample: 48000 ::.. "), Text::npos);
}

TEST_F(PlayerReports, PositionsCountOnlyWhilePlayingSoAnEndDuringASeekGoesUnnoticed) {
    playerEvents.OnTrackLength(1000);
    for (const PlayerState other : {PlayerState::Stopped, PlayerState::Paused, PlayerState::SeekingForward,
                                    PlayerState::SeekingBackward}) {
        velora.PlayerState = other;
        playerEvents.OnPosition(1000);
        EXPECT_EQ(velora.PlayerState, other);
    }
    velora.PlayerState = PlayerState::Playing;
    playerEvents.OnPosition(1000);
    EXPECT_EQ(velora.PlayerState, PlayerState::Stopped);
}

TEST_F(PlayerReports, ASecondEndDuringTheResetChangesNothing) {
    playerEvents.OnTrackLength(1000);
    loop.Post([&] { playerEvents.OnPosition(1000); });
    playerEvents.OnPosition(1000);
    EXPECT_EQ(loop.NowMs(), 260);
}

TEST_F(PlayerReports, TheScopeHearsInEveryState) {
    for (const PlayerState any : {PlayerState::Stopped, PlayerState::Playing, PlayerState::Paused,
                                  PlayerState::SeekingForward, PlayerState::SeekingBackward}) {
        velora.PlayerState = any;
        playerEvents.OnVisData(7);
    }
    EXPECT_EQ(journal.Take(), Lines(5, "Scope.ShowVisData 7"));
}

TEST_F(PlayerReports, NothingIsClearedBetweenTracks) {
    playerEvents.OnTagInfo(u"Moon", u"Tide", u"", u"", u"", u"");
    playerEvents.OnTrackLength(1000);
    ResetDisplay(velora);
    StartTrack(velora, 1);
    EXPECT_EQ(velora.TrackTitle, u"Moon");
    EXPECT_EQ(velora.TrackLength, 1000);
}
