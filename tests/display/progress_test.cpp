// Lights, captions and the end of a track.
#include "display/progress.h"

#include "support/form_text.h"
#include "support/velora_fixture.h"

namespace {

// A track that plays.
struct ProgressMachine : Stage {
    ProgressMachine() {
        velora.CurrentTrack = 2;
        velora.MediaList[2].File = u"SONG.MP3";
        velora.PlayerState = PlayerState::Playing;
        form.Caption = form.lblStatusLabel.Caption = form.lblFilescroll.Caption = u"before";
    }
    std::string Told(Long position, Long length) {
        UpdateProgress(velora, position, length);
        std::string lights;
        for (const Shape& light : form.shpPercent)
            lights += light.FillColour == 0x00FFFF ? 'y' : light.FillColour == 0x0000FF ? 'r' : '-';
        return Joined(lights, "|", int(velora.PlayerState), "|", form.lblStatusLabel.Caption, "|",
                      form.Caption);
    }
};

} // namespace

TEST(ProgressAt, RoundsHalvesToTheEvenNeighbour) {
    using Row = std::array<int, 4>;
    for (const auto& [position, length, segments, percent] :
         {Row{1, 26, 0, 4}, Row{3, 26, 2, 12}, Row{3, 8, 5, 38}, Row{25, 26, 12, 96},
          Row{250001, 260000, 13, 96}, Row{28, 26, 14, 108}, Row{-26, 26, -13, -100},
          // Percent, and then both, beyond an Integer.
          Row{400, 1, 5200, 0}, Row{2000000000, 1, 0, 0}})
        EXPECT_EQ(ProgressAt(position, length), (Progress{Integer(segments), Integer(percent)}))
            << position << "/" << length;
}

TEST(UpdateProgress, ShowsThePlaceWhileATrackPlaysAndLightsOnlyGrow) {
    ProgressMachine at;
    EXPECT_EQ(at.Told(0, 100), "--------------|1|before|before");
    EXPECT_EQ(at.Told(50, 0), "--------------|1|before|before");
    at.velora.PlayerState = PlayerState::Paused;
    EXPECT_EQ(at.Told(50, 100), "--------------|2|before|before");
    at.velora.PlayerState = PlayerState::Playing;
    EXPECT_EQ(at.Told(1, 100), "--------------|1|Playing 1%|..:: song.mp3 1% ::.. velora ");
    EXPECT_EQ(at.Told(50, 100), "-yyyyyy-------|1|Playing 50%|..:: song.mp3 50% ::.. velora ");
    at.velora.TrackTitle = u"Moon";
    EXPECT_EQ(at.Told(10, 100), "-yyyyyy-------|1|Playing 10%|..:: song.mp3 10% ::.. velora ");
    at.velora.TrackArtist = u"TIDE";
    at.form.shpPercent[9].Exists = false;
    EXPECT_EQ(at.Told(95, 100), "-yyyyyyyy-----|1|Playing 95%|..:: moon - tide 95% ::.. velora ")
        << "a missing light ends the row and nothing else";
    at.velora.TrackTitle.clear();
    at.form.shpPercent[9].Exists = true;
    EXPECT_EQ(at.Told(28, 1), "-yyyyyyyyyyyyy|1|Playing 2800%|..:: song.mp3 2800% ::.. velora ")
        << "more than thirteen segments are not the end";
}

TEST(UpdateProgress, ExactlyThirteenSegmentsPutOutTheDisplayAndLeaveThePlayer) {
    ProgressMachine at;
    at.form.shpPercent[9].Exists = false;
    at.form.picPlay.Picture = nullptr;
    std::string ticks;
    at.form.tmrSeekForward = {"tick", 20, true};
    at.loop.AfterEvent = [&] {
        const auto lit = std::ranges::count(at.form.shpPercent, 0x00FFFF, &Shape::FillColour);
        ticks += Joined(at.loop.NowMs(), ":", lit, at.form.VFmp3scope1.Visible ? " " : " hidden ");
    };
    EXPECT_EQ(at.Told(250001, 260000), "-rrrrrrrr-rrrr|0|Ready|..:: velora-pro.team qu><llo ::..");
    EXPECT_EQ(ticks, "20:7 40:6 60:5 80:4 100:3 120:2 140:1 160:0 180:0 200:0 220:0 240:0 260:0 ");
    EXPECT_TRUE(at.form.picPlay.Picture == at.form.picPlay1.Picture &&
                !at.form.VFmp3scope1.Visible);
    EXPECT_EQ(at.form.lblFilescroll.Caption, u"");
    EXPECT_EQ(at.journal.Take(), Lines{}) << "the player plays the rest by itself";
}
