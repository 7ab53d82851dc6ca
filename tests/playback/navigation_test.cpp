// The start of a track, and where a step through the list leads.
#include "playback/navigation.h"

#include "playlist/media_list.h"
#include "support/velora_fixture.h"

namespace {

class Navigation : public VeloraTest {
protected:
    void AddThree() {
        AddEntry(u"C:\\m\\", u"a.mp3");
        AddEntry(u"C:\\m\\", u"b.wav", kWavMedia);
        AddEntry(u"", u"c.mp1", kMp1Media);
    }
};

} // namespace

TEST(DisplayName, LosesFourCharactersWhateverTheyAre) {
    EXPECT_EQ(DisplayName(u"song.mp3"), u"song ... ");
    EXPECT_EQ(DisplayName(u".mp3"), u" ... ");
    EXPECT_EQ(DisplayName(u"mp3"), u"mp3") << "too short to be cut: nothing is joined to it either";
    EXPECT_EQ(DisplayName(u"a\U0001F319mp3"), u"a ... ");
}

TEST(Steps, LeadWhereTheTableSays) {
    struct Row {
        Integer Current, Count;
        std::optional<Integer> After, Before;
    };
    const std::optional<Integer> none;
    const Row rows[] = {
        {0, 0, none, none}, {0, 1, none, 1}, {1, 1, none, 0}, {0, 2, 1, 2}, {1, 2, 2, 2},
        {2, 2, 1, 1},       {0, 5, 1, 5},    {1, 5, 2, 5},    {3, 5, 4, 2}, {5, 5, 1, 4},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(IndexAfter(row.Current, row.Count), row.After) << row.Current << " of " << row.Count;
        EXPECT_EQ(IndexBefore(row.Current, row.Count), row.Before) << row.Current << " of " << row.Count;
    }
}

TEST_F(Navigation, StartTrackSetsAllThatATrackNeeds) {
    AddThree();
    form.VFmp3scope1.Visible = false;
    StartTrack(velora, 1);
    EXPECT_EQ(journal.Take(), (Lines{"Player.Stop", "Player.TrackFile C:\\m\\a.mp3", "Player.Play"}));
    EXPECT_EQ(velora.PlayerState, PlayerState::Playing);
    EXPECT_EQ(velora.CurrentTrack, 1);
    EXPECT_EQ(form.picPlay.Picture, form.picStop1.Picture);
    EXPECT_EQ(form.lblStatusLabel.Caption, u"Playing");
    EXPECT_EQ(form.lblFilescroll.Caption, u"a ... ");
    EXPECT_TRUE(form.VFmp3scope1.Visible && form.tmrScrollFiletitle.Enabled);
}

TEST_F(Navigation, StartTrackRefusesInSilence) {
    AddThree();
    AddEntry(u"", u"", kMp3Media);
    AddEntry(u"", u"off.mp3");
    velora.MediaList[5].Enabled = false;
    velora.MediaList[0] = {true, u"C:\\", u"never.mp3", kMp3Media, 0};
    for (const Integer index : {0, 2, 4, 5, 6, -1, 2500, 2501, 32767})
        StartTrack(velora, index);
    EXPECT_EQ(journal.Take(), Lines{});
    EXPECT_EQ(velora.PlayerState, PlayerState::Stopped);
    EXPECT_EQ(velora.CurrentTrack, 0);
}

TEST_F(Navigation, RelativeTracksAreLookedForInTheCurrentDirectoryThenInThoseOfTheEnabledPlaylists) {
    AddThree();
    velora.PlaylistCount = 32000;
    velora.Playlists[1] = {true, u"One", u"1.m3u", u"\\lists\\"};
    velora.Playlists[2] = {false, u"", u"", u""};
    velora.Playlists[3] = {true, u"Three", u"3.m3u", u"\\more\\"};
    velora.Playlists[4] = {true, u"Four", u"4.m3u", u"\\lists\\"};
    StartTrack(velora, 3);
    EXPECT_EQ(player.Directories, (std::vector<Text>{u"\\home\\", u"\\lists\\", u"\\more\\"}));
    EXPECT_EQ(journal.Take()[1], "Player.TrackFile c.mp1") << "the path itself stays relative";
}

TEST_F(Navigation, NextWithOneEntryLeavesItPlayingWhilePreviousStopsIt) {
    AddEntry(u"", u"only.mp3");
    StartTrack(velora, 1);
    (void)journal.Take();
    NextTrack(velora);
    EXPECT_EQ(journal.Take(), Lines{});
    EXPECT_EQ(velora.PlayerState, PlayerState::Playing);
    PreviousTrack(velora);
    EXPECT_EQ(journal.Take(), Lines{"Player.Stop"});
    EXPECT_EQ(velora.PlayerState, PlayerState::Stopped);
}

TEST_F(Navigation, AStepOntoAnEntryThatIsNotPlayedStopsThereAndStaysThere) {
    AddThree();
    StartTrack(velora, 1);
    for (int step = 0; step < 2; ++step) {
        NextTrack(velora);
        EXPECT_EQ(velora.PlayerState, PlayerState::Stopped);
        EXPECT_EQ(velora.CurrentTrack, 1);
    }
}

TEST_F(Navigation, AStepWaitsWithEventsGoingOnAndASecondOneInItLeadsToTheSameTrack) {
    AddThree();
    velora.MediaList[2].Type = kMp3Media;
    StartTrack(velora, 1);
    (void)journal.Take();
    loop.Post([&] { NextTrack(velora); });
    NextTrack(velora);
    EXPECT_EQ(loop.NowMs(), 900) << "the inner one whole, then 12 lights and the wait of the outer one";
    EXPECT_EQ(velora.CurrentTrack, 2);
    const Lines start = {"Player.Stop", "Player.TrackFile C:\\m\\b.wav", "Player.Play"};
    Lines expected = {"Player.Stop", "Player.Stop"};
    expected.insert(expected.end(), start.begin(), start.end());
    expected.insert(expected.end(), start.begin(), start.end());
    EXPECT_EQ(TakePlayerLines(), expected);
}
