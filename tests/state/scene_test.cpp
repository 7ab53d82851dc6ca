// The form as it comes up, its controls over one another, and what has to be drawn after a change.
#include <gtest/gtest.h>
#include <limits>

#include "state/scene.h"

namespace {

PicturePtr MakePicture(int widthPx, int heightPx) {
    return std::make_shared<LoadedPicture>(widthPx, heightPx);
}

// A form whose surface shows.
void ShowSurface(Form& form) {
    SetPicture(form.picBackground, MakePicture(300, 150));
    form.picBackground.Visible = true;
    form.picBackground.Left = form.picBackground.Top = 0;
}

} // namespace

TEST(Form, ComesUpAsItWasDrawn) {
    const Form form;
    EXPECT_EQ(form.Caption, u"..:: velora.team-qu><llo::..");
    EXPECT_EQ(ClientArea(form), (Rect{0, 0, 383, 254}));
    EXPECT_EQ(form.shpPercent[0].Left, 288);
    EXPECT_EQ(form.shpPercent[0].Top, 64);
    EXPECT_TRUE(form.picVolume.Visible);
    EXPECT_FALSE(form.picPlay.Visible);
    EXPECT_FALSE(form.picBackground.Visible);
    EXPECT_EQ(form.lblStatusLabel.Caption, u"Ready");
    EXPECT_FALSE(form.tmrSeekBackward.Enabled || form.tmrSeekForward.Enabled ||
                 form.tmrScrollFiletitle.Enabled);
    EXPECT_EQ(form.Menu[MenuIndex(form, "mnuExitVelora")].Caption, u"::EXIT QU><LLO.VELORA::");
}

TEST(Form, OnlyBoxesOfTheSurfaceTakeTheSizeOfTheirPicture) {
    Form form;
    const PicturePtr picture = MakePicture(70, 20);
    SetPicture(form.picPlay, picture);
    SetPicture(form.picPlay1, picture);
    EXPECT_EQ(form.picPlay.Width, 70);
    EXPECT_EQ(form.picPlay1.Width, 33);
    SetPicture(form.picPlay, nullptr);
    EXPECT_EQ(form.picPlay.Width, 70) << "no picture leaves the size";
}

TEST(ControlStack, HidesEverythingWithTheSurface) {
    Form form;
    EXPECT_TRUE(ControlStack(form).empty());
    EXPECT_EQ(ControlAt(form, 10, 10), nullptr);
    ShowSurface(form);
    EXPECT_EQ(ControlAt(form, 10, 10), &form.picBackground);
    EXPECT_EQ(ControlAt(form, 300, 10), nullptr) << "beside the surface is the form";
}

TEST(ControlStack, EarlierControlsAndPicturesAreInFront) {
    Form form;
    ShowSurface(form);
    form.picPlay.Visible = form.picPause.Visible = true;
    form.picPlay.Left = form.picPause.Left = form.lblStatusLabel.Left = form.VFmp3scope1.Left = 20;
    form.picPlay.Top = form.picPause.Top = form.lblStatusLabel.Top = form.VFmp3scope1.Top = 20;
    form.lblStatusLabel.Width = form.lblStatusLabel.Height = 60;
    form.VFmp3scope1.Width = form.VFmp3scope1.Height = 50;
    EXPECT_EQ(ControlAt(form, 30, 30), &form.picPlay);
    form.picPlay.Visible = false;
    EXPECT_EQ(ControlAt(form, 30, 30), &form.picPause);
    EXPECT_EQ(ControlAt(form, 65, 65), &form.VFmp3scope1);
    EXPECT_EQ(ControlAt(form, 75, 75), &form.lblStatusLabel);
    // A light takes no mouse events of its own.
    EXPECT_EQ(ControlAt(form, 289, 65), &form.picBackground);
}

TEST(ControlStack, TakesAbsurdPlacesWithoutHarm) {
    Form form;
    ShowSurface(form);
    constexpr Long kMost = std::numeric_limits<Long>::max();
    form.picBackground.Left = kMost;
    form.lblStatusLabel.Left = form.lblStatusLabel.Width = kMost;
    form.lblFilescroll.Top = -kMost;
    form.VFmp3scope1.Height = -5;
    form.Width = kMost;
    form.Height = -kMost;
    EXPECT_FALSE(ControlStack(form).empty());
    EXPECT_TRUE(SceneOf(form).Figures.empty());
}

TEST(Damage, IsTheOldAndTheNewPlaceOfWhatChanged) {
    Form form;
    ShowSurface(form);
    SetPicture(form.picPlay, MakePicture(10, 10));
    form.picPlay.Left = form.picPlay.Top = 5;
    Scene shown = SceneOf(form);
    EXPECT_TRUE(DamageBetween(shown, SceneOf(form)).empty());

    form.picPlay.Visible = true;
    Scene now = SceneOf(form);
    EXPECT_EQ(DamageBetween(shown, now), (std::vector<Rect>{{5, 5, 15, 15}}));
    shown = now;

    form.picPlay.Left = 50;
    now = SceneOf(form);
    EXPECT_EQ(DamageBetween(shown, now), (std::vector<Rect>{{5, 5, 15, 15}, {50, 5, 60, 15}}));
    shown = now;

    SetPicture(form.picPlay, MakePicture(10, 10));
    EXPECT_EQ(DamageBetween(shown, SceneOf(form)).size(), 1u)
        << "another picture of the same look is another";
    form.picPlay.Visible = false;
    EXPECT_EQ(DamageBetween(shown, SceneOf(form)), (std::vector<Rect>{{50, 5, 60, 15}}));
}

TEST(Damage, OfATickIsTheTitleAlone) {
    Form form;
    ShowSurface(form);
    form.lblFilescroll.Caption = u"abc";
    const Scene shown = SceneOf(form);
    form.lblFilescroll.Caption = u"bca";
    EXPECT_EQ(DamageBetween(shown, SceneOf(form)), (std::vector<Rect>{{48, 48, 81, 81}}));
    form.lblFilescroll.Caption.clear();
    EXPECT_EQ(DamageBetween(shown, SceneOf(form)), (std::vector<Rect>{{48, 48, 81, 81}}));
}

TEST(Damage, OfTheVisualisationIsItsBars) {
    Form form;
    ShowSurface(form);
    const Scene shown = SceneOf(form);
    form.VFmp3scope1.Bars.Level[3] = 0.5F;
    EXPECT_EQ(DamageBetween(shown, SceneOf(form)), (std::vector<Rect>{{288, 8, 300, 41}}))
        << "clipped to the surface";
    form.VFmp3scope1.Visible = false;
    EXPECT_EQ(SceneOf(form).Bars, ScopeBars()) << "hidden bars are nobody's business";
}
