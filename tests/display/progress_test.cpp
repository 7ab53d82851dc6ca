// Lights, captions and the end of a track.
#include "display/progress.h"

#include "support/velora_fixture.h"

namespace {

constexpr Long kYellow = 0x00FFFF, kRed = 0x0000FF;

class ProgressDisplay : public VeloraTest {
protected:
    ProgressDisplay() {
        velora.CurrentTrack = AddEntry(u"C:\\", u"SONG.MP3");
        velora.PlayerState = PlayerState::Playing;
        form.Caption = u"before";
        form.lblStatusLabel.Caption = u"before";
    }
    [[nodiscard]] int Lit() const {
        int lit = 0;
        for (const Shape& shape : form.shpPercent)
            lit += shape.FillColour == kYellow;
        return lit;
    }
};

} // namespace

TEST(ProgressAt, RoundsHalvesToTheEvenNeighbour) {
    struct Row {
        const char* Name;
        Long Position, Length;
        Progress Expected;
    };
    const Row rows[] = {
        {"1/26 is half a light", 1, 26, {0, 4}},
        {"3/26 is one and a half", 3, 26, {2, 12}},
        {"6.5 lights", 13, 26, {6, 50}},
        {"12.5 percent", 1, 8, {2, 12}},
        {"37.5 percent", 3, 8, {5, 38}},
        {"12.5 lights are not yet the end", 25, 26, {12, 96}},
        {"just above", 250001, 260000, {13, 96}},
        {"the end", 26, 26, {13, 100}},
        {"beyond the end", 28, 26, {14, 108}},
        {"before the start", -26, 26, {-13, -100}},
        {"percent beyond an Integer", 400, 1, {5200, 0}},
        {"both beyond an Integer", 2000000000, 1, {0, 0}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(ProgressAt(row.Position, row.Length), row.Expected) << row.Name;
}

TEST(CaptionAt, NeedsBothTitleAndArtistAndIsInLowerCase) {
    EXPECT_EQ(CaptionAt(u"Moon", u"TIDE", u"A.MP3", 7), u"..:: moon - tide 7% ::.. velora ");
    EXPECT_EQ(CaptionAt(u"Moon", u"", u"A.MP3", 7), u"..:: a.mp3 7% ::.. velora ");
    EXPECT_EQ(CaptionAt(u"", u"Tide", u"A.MP3", -3), u"..:: a.mp3 -3% ::.. velora ");
}

TEST_F(ProgressDisplay, NothingChangesAtZeroOrUnlessATrackPlays) {
    UpdateProgress(velora, 0, 100);
    UpdateProgress(velora, 50, 0);
    velora.PlayerState = PlayerState::Paused;
    UpdateProgress(velora, 50, 100);
    EXPECT_EQ(Lit(), 0);
    EXPECT_EQ(form.Caption, u"before");
    EXPECT_EQ(form.lblStatusLabel.Caption, u"before");
}

TEST_F(ProgressDisplay, ShowsThePlaceAndLightsOnlyGrow) {
    UpdateProgress(velora, 50, 100);
    EXPECT_EQ(Lit(), 6);
    EXPECT_EQ(form.Caption, u"..:: song.mp3 50% ::.. velora ");
    EXPECT_EQ(form.lblStatusLabel.Caption, u"Playing 50%");
    UpdateProgress(velora, 10, 100);
    EXPECT_EQ(Lit(), 6);
    EXPECT_EQ(form.lblStatusLabel.Caption, u"Playing 10%");
}

TEST_F(ProgressDisplay, AMissingLightEndsTheRowAndNothingElse) {
    form.shpPercent[3].Exists = false;
    UpdateProgress(velora, 50, 100);
    EXPECT_EQ(Lit(), 2);
    EXPECT_EQ(form.lblStatusLabel.Caption, u"Playing 50%");
    UpdateProgress(velora, 100, 100);
    EXPECT_EQ(velora.PlayerState, PlayerState::Stopped);
}

TEST_F(ProgressDisplay, ExactlyThirteenSegmentsEndTheTrackWithoutStop) {
    UpdateProgress(velora, 28, 26);
    EXPECT_EQ(velora.PlayerState, PlayerState::Playing) << "fourteen are not the end";
    EXPECT_EQ(Lit(), 13);
    UpdateProgress(velora, 26, 26);
    EXPECT_EQ(velora.PlayerState, PlayerState::Stopped);
    EXPECT_EQ(journal.Take(), Lines{}) << "the player plays the rest by itself";
}

TEST_F(ProgressDisplay, ResetPutsOutOneLightAfterTheOtherAndHidesTheScopeLast) {
    FillProgress(velora, 13);
    form.lblFilescroll.Caption = u"running";
    SetPicture(form.picPlay, form.picStop1.Picture);
    std::vector<int> seen;
    for (int at = 0; at < 3; ++at)
        loop.Post([&] {
            seen.push_back(Lit());
            EXPECT_EQ(velora.PlayerState, PlayerState::Stopped);
            EXPECT_TRUE(form.VFmp3scope1.Visible);
        });
    ResetDisplay(velora);
    EXPECT_EQ(seen, (std::vector<int>{12, 12, 12}));
    EXPECT_EQ(loop.NowMs(), 260);
    EXPECT_EQ(form.shpPercent[13].FillColour, kRed);
    EXPECT_EQ(form.Caption, u"..:: velora-pro.team qu><llo ::..");
    EXPECT_EQ(form.lblStatusLabel.Caption, u"Ready");
    EXPECT_EQ(form.lblFilescroll.Caption, u"");
    EXPECT_EQ(form.picPlay.Picture, form.picPlay1.Picture);
    EXPECT_FALSE(form.VFmp3scope1.Visible);
}

TEST_F(ProgressDisplay, AResetWithoutLightsTakesItsTimeAllTheSame) {
    for (Shape& shape : form.shpPercent)
        shape.Exists = false;
    ResetDisplay(velora);
    EXPECT_EQ(loop.NowMs(), 260);
}
