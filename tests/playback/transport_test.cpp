// The six buttons' commands by picture, state, mouse button and modifier keys.
#include "playback/transport.h"

#include "playback/navigation.h"
#include "support/velora_fixture.h"

namespace {

using enum PlayerState;

class Transport : public VeloraTest {
protected:
    void StartOf(int count) {
        for (int entry = 1; entry <= count; ++entry)
            AddEntry(u"", Decimal(entry) + u".mp3");
        StartTrack(velora, 1);
        (void)journal.Take();
    }
};

const std::string kClick = "PlaySound \\velora\\click.wav";
const std::string kAsk = "ChooseFile Select Media ...";

} // namespace

// What no gesture reaches: during a seek the mouse belongs to the button that seeks.
TEST(Decisions, DuringASeekPlayAndPauseDoNothingAndTheOtherDirectionSteps) {
    for (const PlayerState state : {SeekingForward, SeekingBackward}) {
        EXPECT_EQ(DecidePlay(true, false, state), PlayCommand::None);
        EXPECT_EQ(DecidePlay(false, true, state), PlayCommand::None);
        EXPECT_EQ(DecidePause(true, state), PauseCommand::None);
    }
    EXPECT_EQ(DecideBackward(SeekingForward), StepCommand::Step);
    EXPECT_EQ(DecideForward(true, SeekingBackward), StepCommand::Step);
    EXPECT_EQ(DecideForward(false, SeekingForward), StepCommand::EndSeek);
}

TEST_F(Transport, APauseInStoppedAndAPlayThatIsCancelledLeaveAllAsItWas) {
    Click(form.picPause);
    Click(form.picPlay);
    EXPECT_EQ(journal.Take(), (Lines{kClick, kAsk})) << "picPause does nothing, and picPlay doesn't click";
    EXPECT_EQ(velora.PlayerState, Stopped);
    EXPECT_EQ(form.picPlay.Picture, form.picPlay1.Picture);
    EXPECT_EQ(velora.Count, 0);
}

TEST_F(Transport, PlayAsksForAFileAlsoWithAListAndStartsIt) {
    AddEntry(u"", u"old.mp3");
    dialogs.Files = {u"\\music\\new.mp3"};
    Click(form.picPlay);
    EXPECT_EQ(TakePlayerLines(), (Lines{"Player.Stop", "Player.TrackFile \\music\\new.mp3", "Player.Play"}));
    EXPECT_EQ(velora.CurrentTrack, 2);
}

TEST_F(Transport, AfterAStartByTheCommandLineTheFirstClickOnlyShowsStop) {
    StartOf(1);
    SetPicture(form.picPlay, form.picPlay1.Picture);
    Click(form.picPause);
    EXPECT_EQ(velora.PlayerState, Playing) << "picPause does nothing until the stop picture is up";
    Click(form.picPlay);
    EXPECT_EQ(TakePlayerLines(), Lines{});
    EXPECT_EQ(form.picPlay.Picture, form.picStop1.Picture);
    Click(form.picPlay);
    EXPECT_EQ(TakePlayerLines(), Lines{"Player.Stop"});
    EXPECT_EQ(velora.PlayerState, Stopped);
}

TEST_F(Transport, PauseHoldsAndGoesOnAndStopWorksInPaused) {
    StartOf(1);
    Click(form.picPause);
    EXPECT_EQ(journal.Take(), (Lines{kClick, "Player.TogglePause"}));
    EXPECT_EQ(form.lblStatusLabel.Caption, u"Paused");
    EXPECT_FALSE(form.VFmp3scope1.Visible);
    Click(form.picPause, kRightButton);
    EXPECT_EQ(journal.Take(), Lines{"Player.TogglePause"}) << "a right click commands without a click";
    EXPECT_EQ(form.lblStatusLabel.Caption, u"Playing");
    EXPECT_TRUE(form.VFmp3scope1.Visible);
    Click(form.picPause);
    (void)journal.Take();
    Click(form.picPlay);
    EXPECT_EQ(TakePlayerLines(), Lines{"Player.Stop"});
    EXPECT_EQ(velora.PlayerState, Stopped);
    EXPECT_EQ(form.lblStatusLabel.Caption, u"Ready");
}

// What each mouse gesture on each button comes to: click C, command X, both CX, or nothing. The command is
// seen by what the journal holds afterwards.
TEST_F(Transport, GesturesByButton) {
    struct Row {
        const char* Name;
        PictureBox* Button;
        std::string Left, DraggedOff, Right, RightOnFresh;
    };
    const Row rows[] = {
        {"picPlay", &form.picPlay, "X", "", "", ""},
        {"picPause", &form.picPause, "CX", "X", "X", "X"},
        {"picBackward steps also after a drag-off", &form.picBackward, "CX", "X", "X", "X"},
        {"picForward", &form.picForward, "CX", "X", "X", ""},
        {"picEject, fresh: a right click opens the dialog", &form.picEject, "CX", "", "", "X"},
    };
    StartOf(3);
    const auto atRest = [&](PictureBox& button) {
        velora.PlayerState = Playing;
        const std::pair<PictureBox*, PictureBox*> normal[] = {{&form.picPlay, &form.picStop1},
                                                              {&form.picPause, &form.picPause1},
                                                              {&form.picForward, &form.picForeward1},
                                                              {&form.picBackward, &form.picBackward1},
                                                              {&form.picEject, &form.picEject1}};
        for (const auto& [control, holder] : normal)
            if (control == &button || control == &form.picPlay) SetPicture(*control, holder->Picture);
        (void)journal.Take();
    };
    const auto result = [&] {
        std::string seen;
        for (const std::string& line : journal.Take())
            if (line == kClick)
                seen += "C";
            else if ((line == kAsk || line.starts_with("Player.")) && !seen.ends_with("X"))
                seen += "X";
        return seen;
    };
    for (const Row& row : rows) {
        PictureBox& button = *row.Button;
        atRest(button);
        Click(button);
        EXPECT_EQ(result(), row.Left) << row.Name << ", left";
        atRest(button);
        Press(button, 5, 5);
        Move(button, 5, 60);
        Release(button, 5, 60);
        EXPECT_EQ(result(), row.DraggedOff) << row.Name << ", dragged off";
        atRest(button);
        Click(button, kRightButton);
        EXPECT_EQ(result(), row.Right) << row.Name << ", right";
        atRest(button);
        SetPicture(button, NewPicture());
        Click(button, kRightButton);
        EXPECT_EQ(result(), row.RightOnFresh) << row.Name << ", right on fresh";
    }
}

TEST_F(Transport, TheCommandComesAfterTheClickHasEnded) {
    StartOf(2);
    PlayerState during = Stopped;
    machine.WhileSound = [&] { during = velora.PlayerState; };
    Click(form.picPause);
    EXPECT_EQ(during, Playing);
    EXPECT_EQ(velora.PlayerState, Paused);
}

TEST_F(Transport, StepsWorkFromPausedAndShiftInPausedIsAPlainStep) {
    StartOf(3);
    Click(form.picPause);
    Click(form.picForward, kLeftButton, 1);
    EXPECT_EQ(velora.CurrentTrack, 2);
    EXPECT_EQ(velora.PlayerState, Playing);
    Click(form.picPause);
    Click(form.picBackward);
    EXPECT_EQ(velora.CurrentTrack, 1);
    EXPECT_EQ(velora.PlayerState, Playing);
}

TEST_F(Transport, EjectKeepsTheTrackUntilAFileIsChosen) {
    StartOf(1);
    dialogs.WhileOpen = [&] { EXPECT_EQ(velora.PlayerState, Playing); };
    Click(form.picEject);
    EXPECT_EQ(journal.Take(), (Lines{kClick, kAsk}));
    EXPECT_EQ(velora.PlayerState, Playing);
    dialogs.Files = {u"\\music\\new.mp3"};
    Click(form.picEject);
    EXPECT_EQ(velora.CurrentTrack, 2);
}

TEST_F(Transport, ATrackCanEndWhileADialogIsOpen) {
    StartOf(1);
    playerEvents.OnTrackLength(100);
    dialogs.WhileOpen = [&] { playerEvents.OnPosition(100); };
    Click(form.picEject);
    EXPECT_EQ(velora.PlayerState, Stopped);
}

TEST_F(Transport, TwentyClicksASecondOnEveryButtonAreSurvived) {
    StartOf(3);
    PictureBox* const buttons[] = {&form.picForward, &form.picBackward, &form.picPause,
                                   &form.picPlay,    &form.picEject,    &form.picForward};
    int clicks = 0;
    std::function<void()> clickOn = [&] {
        if (clicks == 60) return;
        PictureBox& button = *buttons[clicks++ % 6];
        loop.Post(clickOn);
        Click(button, clicks % 5 == 0 ? kRightButton : kLeftButton);
    };
    clickOn();
    loop.Wait(30);
    EXPECT_EQ(clicks, 60);
    EXPECT_FALSE(velora.Capture.Active);
}
