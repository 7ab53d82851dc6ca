// The window's own surface: what moves it, what pops up the menu, and the three ways to end.
#include "shell/window_behaviour.h"

#include "support/velora_fixture.h"

namespace {

class WindowBehaviour : public VeloraTest {
protected:
    void PressForm(Integer button) { handlers.OnPointer({PointerKind::Press, 410, 215, button, button, 0}); }
};

} // namespace

TEST_F(WindowBehaviour, PressesMoveOrPopUpBySurfaceAndButton) {
    struct Row {
        const char* Name;
        const Control* Surface;
        Integer Button;
        Lines Expected;
    };
    const Row rows[] = {
        {"background left", &form.picBackground, kLeftButton, {"BeginMove 1"}},
        {"background right", &form.picBackground, kRightButton, {"PopupMenu"}},
        {"background middle", &form.picBackground, kMiddleButton, {"PopupMenu"}},
        {"status left", &form.lblStatusLabel, kLeftButton, {"BeginMove 1"}},
        {"status right moves, too", &form.lblStatusLabel, kRightButton, {"BeginMove 2"}},
        {"title middle moves, too", &form.lblFilescroll, kMiddleButton, {"BeginMove 4"}},
        {"visualisation left", &form.VFmp3scope1, kLeftButton, {}},
        {"visualisation right", &form.VFmp3scope1, kRightButton, {}},
        {"volume right", &form.picVolume, kRightButton, {}},
    };
    for (const Row& row : rows) {
        Press(*row.Surface, 2, 2, row.Button);
        EXPECT_EQ(journal.Take(), row.Expected) << row.Name;
        Release(*row.Surface, 2, 2, row.Button);
        EXPECT_EQ(journal.Take(), Lines{}) << row.Name;
        EXPECT_FALSE(velora.Capture.Active) << row.Name;
    }
}

TEST_F(WindowBehaviour, TheFormBesideTheBackgroundDoesTheSame) {
    PressForm(kLeftButton);
    PressForm(kMiddleButton);
    EXPECT_EQ(journal.Take(), (Lines{"BeginMove 1", "PopupMenu"}));
}

TEST_F(WindowBehaviour, ALightCountsAsTheBackground) {
    Press(form.shpPercent[0], 1, 1, kRightButton);
    EXPECT_EQ(journal.Take(), Lines{"PopupMenu"});
}

TEST_F(WindowBehaviour, TheMouseIsNobodysDuringAMoveAndTheMenu) {
    bool captured = true;
    window.WhileOpen = [&] { captured = velora.Capture.Active; };
    Press(form.picBackground, 2, 2);
    EXPECT_FALSE(captured);
    captured = true;
    PressForm(kRightButton);
    EXPECT_FALSE(captured);
}

TEST_F(WindowBehaviour, TheMenuHasFourRowsAndItsTitleDoesNothing) {
    window.MenuChoice = "mnuVelora";
    PressForm(kRightButton);
    EXPECT_EQ(window.MenuRows,
              (std::vector<Text>{u"::QU><LLO.VELORA::", u"-", u"::MINIMIZE::", u"::EXIT QU><LLO.VELORA::"}));
    EXPECT_EQ(journal.Take(), Lines{"PopupMenu"});
    EXPECT_EQ(form.State, WindowState::Normal);
}

TEST_F(WindowBehaviour, MinimiseCanBeChosenAgainAfterARestore) {
    window.MenuChoice = "mnuMinimize";
    PressForm(kRightButton);
    EXPECT_EQ(form.State, WindowState::Minimised);
    form.State = WindowState::Normal;
    PressForm(kRightButton);
    EXPECT_EQ(form.State, WindowState::Minimised);
}

TEST_F(WindowBehaviour, ExitEndsWithoutStopAndClosingStopsOnce) {
    window.MenuChoice = "mnuExitVelora";
    EXPECT_THROW(PressForm(kRightButton), ProcessEnded);
    EXPECT_EQ(journal.Take(), (Lines{"PopupMenu", "EndProcess"}));
    EXPECT_THROW(handlers.OnClose(), ProcessEnded);
    EXPECT_EQ(journal.Take(), (Lines{"Player.Stop", "EndProcess"}));
}

TEST_F(WindowBehaviour, ClosingInsideAMoveOrAWaitEndsAtOnce) {
    window.WhileOpen = [&] { handlers.OnClose(); };
    EXPECT_THROW(Press(form.picBackground, 2, 2), ProcessEnded);
    loop.Post([&] { handlers.OnClose(); });
    EXPECT_THROW(Delay(loop, 1), ProcessEnded);
}

TEST_F(WindowBehaviour, AMissingEncoderIsTold) {
    mnuRunPressdeck_Click(velora);
    EXPECT_EQ(journal.Take(), Lines{"MessageBox Pressdeck could not be found"});
}

TEST_F(WindowBehaviour, ResetBlanksWhatSkinsFillAndKeepsTheRest) {
    form.lblFilescroll.Caption = u"old";
    const PicturePtr background = NewPicture();
    SetPicture(form.picBackground, background);
    ResetObjects(velora);
    for (const PictureBox* box : {&form.picBackward, &form.picForward, &form.picEject, &form.picPause,
                                  &form.picPlay, &form.picPlaylist, &form.picStop}) {
        EXPECT_FALSE(box->Visible) << box->Name;
        EXPECT_EQ(box->Picture, nullptr) << box->Name;
    }
    EXPECT_FALSE(form.lblFilescroll.Visible || form.lblStatusLabel.Visible || form.VFmp3scope1.Visible);
    EXPECT_EQ(form.lblFilescroll.Caption, u"");
    EXPECT_EQ(form.lblStatusLabel.Caption, u"Ready");
    EXPECT_EQ(form.picBackground.Picture, background);
    EXPECT_TRUE(form.picVolume.Visible);
}
