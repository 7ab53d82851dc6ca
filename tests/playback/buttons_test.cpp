// How the buttons look while the mouse works on them.
#include "playback/buttons.h"

#include "support/velora_fixture.h"

namespace {

class Buttons : public VeloraTest {
protected:
    struct Row {
        PictureBox* Control;
        PictureBox* Normal;
        PictureBox* Pressed;
    };
    std::vector<Row> Ordinary() {
        return {{&form.picPause, &form.picPause1, &form.picPause2},
                {&form.picBackward, &form.picBackward1, &form.picBackward2},
                {&form.picForward, &form.picForeward1, &form.picForeward2},
                {&form.picPlaylist, &form.picPlaylist1, &form.picPlaylist2},
                {&form.picEject, &form.picEject1, &form.picEject2}};
    }
};

const std::string kClick = "PlaySound \\velora\\click.wav";

} // namespace

TEST(ButtonMoveDecision, LimitsAreMinusOneAndTheSizeAndBothAreStrict) {
    struct Place {
        const char* Name;
        Single X, Y;
        ButtonChange IfPressed, IfNormal;
    };
    using enum ButtonChange;
    const Place places[] = {
        {"inside", 5, 5, Keep, ShowPressed},
        {"at 0", 0, 0, Keep, ShowPressed},
        {"x on -1", -1, 5, Keep, Keep},
        {"x past -1", -2, 5, ShowNormal, Keep},
        {"x on the width", 30, 5, Keep, Keep},
        {"x past the width", 31, 5, ShowNormal, Keep},
        {"y on -1", 5, -1, Keep, Keep},
        {"y past -1", 5, -2, ShowNormal, Keep},
        {"y on the height", 5, 20, Keep, Keep},
        {"y past the height", 5, 21, ShowNormal, Keep},
        {"x on, y past", 30, 21, ShowNormal, Keep},
        {"last inside", 29, 19, Keep, ShowPressed},
    };
    for (const Place& place : places)
        for (Integer held = 0; held < 8; ++held) {
            const bool left = held == kLeftButton;
            EXPECT_EQ(DecideButtonMove({true, false, held, place.X, place.Y, 30, 20}),
                      left ? place.IfPressed : Keep)
                << place.Name << ", held " << held;
            EXPECT_EQ(DecideButtonMove({false, true, held, place.X, place.Y, 30, 20}),
                      left ? place.IfNormal : Keep)
                << place.Name << ", held " << held;
            EXPECT_EQ(DecideButtonMove({false, false, held, place.X, place.Y, 30, 20}), Keep) << place.Name;
        }
}

TEST_F(Buttons, PressedThenAtRestOnTheScreenThenTheClick) {
    for (const Row& row : Ordinary()) {
        PicturePtr shown;
        machine.WhileSound = [&] {
            for (const Figure& figure : window.Shown.Figures)
                if (figure.Source == row.Control) shown = figure.Picture;
        };
        Press(*row.Control, 5, 5);
        EXPECT_EQ(row.Control->Picture, row.Pressed->Picture) << row.Control->Name;
        Release(*row.Control, 5, 5);
        EXPECT_EQ(shown, row.Normal->Picture) << row.Control->Name << ": shown before the click blocks";
        EXPECT_EQ(journal.Take().at(0), kClick) << row.Control->Name;
    }
}

TEST_F(Buttons, DraggedOffAndBackIsPressedAgainAndClicks) {
    for (const Row& row : Ordinary()) {
        Press(*row.Control, 5, 5);
        Move(*row.Control, 5, 60);
        EXPECT_EQ(row.Control->Picture, row.Normal->Picture) << row.Control->Name;
        Move(*row.Control, 5, 5);
        EXPECT_EQ(row.Control->Picture, row.Pressed->Picture) << row.Control->Name;
        Release(*row.Control, 5, 5);
        EXPECT_EQ(journal.Take().at(0), kClick) << row.Control->Name;
    }
}

TEST_F(Buttons, ADragOffIsFinalOnPicPlayAlone) {
    const std::pair<PictureBox*, PictureBox*> pairs[] = {{&form.picPlay1, &form.picPlay2},
                                                         {&form.picStop1, &form.picStop2}};
    for (const auto& [normal, pressed] : pairs) {
        SetPicture(form.picPlay, normal->Picture);
        Press(form.picPlay, 5, 5);
        EXPECT_EQ(form.picPlay.Picture, pressed->Picture);
        Move(form.picPlay, 5, 60);
        Move(form.picPlay, 5, 5);
        EXPECT_EQ(form.picPlay.Picture, normal->Picture);
        Release(form.picPlay, 5, 5);
    }
    EXPECT_EQ(journal.Take(), Lines{}) << "no click, no dialog, no stop";
}

TEST_F(Buttons, OtherButtonsShowAndSoundNothing) {
    for (const Integer button : {kRightButton, kMiddleButton})
        for (const Row& row : Ordinary()) {
            Press(*row.Control, 5, 5, button);
            EXPECT_EQ(row.Control->Picture, row.Normal->Picture) << row.Control->Name;
            Release(*row.Control, 5, 5, button);
            EXPECT_EQ(row.Control->Picture, row.Normal->Picture) << row.Control->Name;
            for (const std::string& line : journal.Take())
                EXPECT_NE(line, kClick) << row.Control->Name;
        }
}

TEST_F(Buttons, AFreshButtonTakesAPressButPicPlayDoesNot) {
    for (const Row& row : Ordinary()) {
        SetPicture(*row.Control, NewPicture());
        Press(*row.Control, 5, 5);
        EXPECT_EQ(row.Control->Picture, row.Pressed->Picture) << row.Control->Name;
        Release(*row.Control, 5, 60);
    }
    const PicturePtr fresh = NewPicture();
    SetPicture(form.picPlay, fresh);
    Press(form.picPlay, 5, 5);
    EXPECT_EQ(form.picPlay.Picture, fresh);
}
