// What a screen reader is told about the window.
#include <gtest/gtest.h>

#include "state/spoken.h"
#include "support/form_text.h"
#include "support/null_platform.h"

namespace {

struct SpokenMachine : NullPlatform {
    NullPictures pictures;
    Velora velora{PartsWith(pictures)};
    Form& form = velora.frmMain;

    SpokenMachine() {
        form.picBackground.Visible = form.picPlay.Visible = form.picBackward.Visible = true;
        form.picBackground.Width = 300;
        form.lCurVol = 3;
        for (std::size_t light = 1; light < 6; ++light) {
            form.shpPercent[light].Exists = form.shpPercent[light].Visible = true;
            form.shpPercent[light].FillColour = light < 4 ? 0x00FFFF : 0x0000FF;
        }
        form.shpPercent[2].Left = 100;
        form.shpPercent[3].Top = 80;
        form.shpPercent[4].Top = 30;
    }
    [[nodiscard]] Text Title() const {
        for (const SpokenControl& control : SpokenControls(velora))
            if (control.ControlName == "lblFilescroll") return control.Name;
        return {};
    }
};

} // namespace

TEST(Spoken, EachVisibleControlHasWordsAndTheLightsAreOneBar) {
    SpokenMachine at;
    std::string text;
    for (const SpokenControl& each : SpokenControls(at.velora))
        text += Joined(each.ControlName, " ", int(each.Role), " ", each.Name, " ", each.Help.substr(0, 16),
                       " ", each.Value, " of ", each.Most, " at ", each.Place.Left, ",", each.Place.Top, "-",
                       each.Place.Right, ",", each.Place.Bottom, "; ");
    EXPECT_EQ(
        text,
        "picVolume 1 Volume ..:: wave volume 3 of 7 at 256,16-289,49; picPlay 0 Play  0 of 0 at 16,16-49,49; "
        "picBackward 0 Previous ..:: backward in 0 of 0 at 96,16-129,49; "
        "shpPercent 2 Progress  3 of 13 at 108,38-301,93; lblStatusLabel 3 Ready  0 of 0 at 16,56-49,89; "
        "lblFilescroll 3 Title  0 of 0 at 56,56-89,89; ");
    at.form.picBackground.Visible = false;
    EXPECT_TRUE(SpokenControls(at.velora).empty());
}

TEST(Spoken, ThePlayButtonIsCalledByItsPicture) {
    SpokenMachine at;
    for (PictureBox* holder : {&at.form.picPlay1, &at.form.picStop1, &at.form.picStop2}) {
        SetPicture(*holder, std::make_shared<LoadedPicture>(3, 3));
        SetPicture(at.form.picPlay, holder->Picture);
        const Text expected = holder == &at.form.picPlay1 ? u"Play" : u"Stop";
        EXPECT_EQ(SpokenControls(at.velora)[1].Name, expected) << holder->Name;
    }
}

TEST(Spoken, TheTitleStaysWhileItsTextRunsAndIsNeverLong) {
    SpokenMachine at;
    const Text start(1000, u'a');
    at.velora.MediaList[1].File = start + u"b";
    at.form.lblFilescroll.Caption = u"running";
    EXPECT_EQ(at.Title(), u"Title") << "nothing was started";
    at.velora.CurrentTrack = 1;
    EXPECT_EQ(at.Title(), start) << "a name of megabytes would be asked for again and again";
    at.velora.TrackTitle = u"Song";
    EXPECT_EQ(at.Title(), start);
    at.velora.TrackArtist = u"Singer";
    EXPECT_EQ(at.Title(), u"Song by Singer");
    at.form.lblFilescroll.Caption.clear();
    EXPECT_EQ(at.Title(), u"Title");
}
