// Lights, captions and the end of a track.
#include "display/progress.h"

#include <gtest/gtest.h>

#include "support/form_text.h"
#include "support/null_platform.h"

namespace {

// A track that plays on a form with all lights, and a tick of a timer wherever the display waits.
struct ProgressMachine : NullPlatform, FormEvents {
    NullPictures pictures;
    Velora velora{PartsWith(pictures)};
    Form& form = velora.frmMain;
    std::string Ticks;

    ProgressMachine() {
        loop.Attach(form, *this);
        velora.CurrentTrack = 2;
        velora.MediaList[2].File = u"SONG.MP3";
        velora.PlayerState = PlayerState::Playing;
        form.Caption = form.lblStatusLabel.Caption = form.lblFilescroll.Caption = u"before";
        for (Shape& light : form.shpPercent)
            light.Exists = true;
        SetPicture(form.picPlay1, std::make_shared<NamedPicture>(3, 3, "play"));
    }
    [[nodiscard]] std::string Outcome() const {
        std::string lights;
        for (const Shape& light : form.shpPercent)
            lights += light.FillColour == 0x00FFFF ? 'y' : light.FillColour == 0x0000FF ? 'r' : '-';
        return Joined(lights, "|", int(velora.PlayerState), "|", form.lblStatusLabel.Caption, "|",
                      form.Caption);
    }
    void OnPointer(const PointerEvent&) override {}
    void OnClose() override {}
    void OnTimer(const Timer&) override {
        const auto lit = std::ranges::count(form.shpPercent, 0x00FFFF, &Shape::FillColour);
        Ticks += Joined(loop.NowMs(), ":", lit, form.VFmp3scope1.Visible ? " " : " hidden ");
        velora.PlayerState = PlayerState::Paused;
    }
};

} // namespace

TEST(ProgressAt, RoundsHalvesToTheEvenNeighbour) {
    struct Row {
        Long Position, Length;
        Progress Expected;
    };
    for (const Row& row : {Row{1, 26, {0, 4}}, Row{3, 26, {2, 12}}, Row{3, 8, {5, 38}}, Row{25, 26, {12, 96}},
                           Row{250001, 260000, {13, 96}}, Row{28, 26, {14, 108}}, Row{-26, 26, {-13, -100}},
                           // Percent, and then both, beyond an Integer.
                           Row{400, 1, {5200, 0}}, Row{2000000000, 1, {0, 0}}})
        EXPECT_EQ(ProgressAt(row.Position, row.Length), row.Expected) << row.Position << "/" << row.Length;
}

TEST(UpdateProgress, ShowsThePlaceWhileATrackPlaysAndLightsOnlyGrow) {
    ProgressMachine at;
    const auto outcomeAt = [&](Long position, Long length) {
        UpdateProgress(at.velora, position, length);
        return at.Outcome();
    };
    const std::string before = at.Outcome();
    EXPECT_EQ(outcomeAt(0, 100), before);
    EXPECT_EQ(outcomeAt(50, 0), before);
    at.velora.PlayerState = PlayerState::Paused;
    EXPECT_EQ(outcomeAt(50, 100), "--------------|2|before|before");
    at.velora.PlayerState = PlayerState::Playing;
    EXPECT_EQ(outcomeAt(1, 100), "--------------|1|Playing 1%|..:: song.mp3 1% ::.. velora ");
    EXPECT_EQ(outcomeAt(50, 100), "-yyyyyy-------|1|Playing 50%|..:: song.mp3 50% ::.. velora ");
    EXPECT_EQ(outcomeAt(10, 100), "-yyyyyy-------|1|Playing 10%|..:: song.mp3 10% ::.. velora ");
    at.velora.TrackTitle = u"Moon";
    at.form.shpPercent[9].Exists = false;
    EXPECT_EQ(outcomeAt(95, 100), "-yyyyyyyy-----|1|Playing 95%|..:: song.mp3 95% ::.. velora ")
        << "a missing light ends the row and nothing else, and a title alone is none";
    at.velora.TrackArtist = u"TIDE";
    at.form.shpPercent[9].Exists = true;
    EXPECT_EQ(outcomeAt(28, 1), "-yyyyyyyyyyyyy|1|Playing 2800%|..:: moon - tide 2800% ::.. velora ")
        << "more than thirteen segments are not the end";
    at.velora.TrackTitle.clear();
    EXPECT_EQ(outcomeAt(-1, 2), "-yyyyyyyyyyyyy|1|Playing -50%|..:: song.mp3 -50% ::.. velora ");
}

TEST(UpdateProgress, ExactlyThirteenSegmentsPutOutTheDisplayAndLeaveThePlayer) {
    ProgressMachine at;
    at.form.shpPercent[9].Exists = false;
    FillProgress(at.velora, 8);
    at.form.tmrSeekForward = {"tick", 20, true};
    UpdateProgress(at.velora, 250001, 260000);
    EXPECT_EQ(at.Ticks, "20:7 40:6 60:5 80:4 100:3 120:2 140:1 160:0 180:0 200:0 220:0 240:0 260:0 ");
    EXPECT_EQ(at.Outcome(), "-rrrrrrrr-rrrr|2|Ready|..:: velora-pro.team qu><llo ::..");
    EXPECT_EQ(NameOf(at.form.picPlay.Picture), "play");
    EXPECT_EQ(at.form.lblFilescroll.Caption, u"");
    EXPECT_FALSE(at.form.VFmp3scope1.Visible);
    EXPECT_EQ(at.journal.Take(), Lines{}) << "the player plays the rest by itself";
    at.form.tmrSeekForward.Enabled = false;
    ResetDisplay(at.velora);
    EXPECT_EQ(at.velora.PlayerState, PlayerState::Stopped);
}
