// The capture: which control hears of the mouse, and until when.
#include "shell/mouse.h"

#include "support/velora_fixture.h"

namespace {

using enum MouseAction;

struct Row {
    const char* Name;
    bool Captured;
    PointerKind Kind;
    Integer Button, Held;
    MouseAction Expected;
};

constexpr Integer kSide = 8;

constexpr Row kRows[] = {
    {"free: press", false, PointerKind::Press, 1, 1, Begin},
    {"free: press while another is held from before", false, PointerKind::Press, 2, 3, Begin},
    {"free: press of a side button", false, PointerKind::Press, kSide, kSide, Nothing},
    {"free: move", false, PointerKind::Move, 0, 0, Nothing},
    {"free: move with a button from before a dialog", false, PointerKind::Move, 0, 1, Nothing},
    {"free: release", false, PointerKind::Release, 1, 0, Nothing},
    {"free: release, another held", false, PointerKind::Release, 1, 2, Nothing},
    {"free: lost", false, PointerKind::Lost, 0, 0, Nothing},
    {"held: press of a second button", true, PointerKind::Press, 2, 3, Press},
    {"held: press with nothing held before it", true, PointerKind::Press, 1, 1, BeginAnew},
    {"held: press of a side button", true, PointerKind::Press, kSide, 1 + kSide, Nothing},
    {"held: press of a side button alone", true, PointerKind::Press, kSide, kSide, Lose},
    {"held: move", true, PointerKind::Move, 0, 1, Move},
    {"held: move with two", true, PointerKind::Move, 0, 3, Move},
    {"held: move with nothing held", true, PointerKind::Move, 0, 0, Lose},
    {"held: move with a side button alone", true, PointerKind::Move, 0, kSide, Lose},
    {"held: release of the last", true, PointerKind::Release, 1, 0, ReleaseEnd},
    {"held: release of one of two", true, PointerKind::Release, 1, 2, Release},
    {"held: release of a side button", true, PointerKind::Release, kSide, 1, Nothing},
    {"held: release of a side button, nothing held", true, PointerKind::Release, kSide, 0, Lose},
    {"held: lost", true, PointerKind::Lost, 0, 0, Lose},
    {"held: lost, though still held", true, PointerKind::Lost, 0, 1, Lose},
};

class Mouse : public VeloraTest {};

} // namespace

TEST(MouseDecision, FollowsTheTable) {
    for (const Row& row : kRows)
        EXPECT_EQ(DecideMouse(row.Captured, row.Kind, row.Button, row.Held), row.Expected) << row.Name;
}

// Every pair of events: whatever comes first, the state after the second is one that a user can go on from.
TEST_F(Mouse, AfterAnyTwoEventsAReleaseOfAllFreesIt) {
    std::vector<PointerEvent> events;
    for (const PointerKind kind : {PointerKind::Press, PointerKind::Move, PointerKind::Release})
        for (const Integer button : {1, 2, 4, 8})
            for (Integer held = 0; held < 8; ++held)
                events.push_back({kind, 240, 20, button, held, 0});
    events.push_back({PointerKind::Lost, 0, 0, 0, 0, 0});
    for (const PointerEvent& first : events)
        for (const PointerEvent& second : events) {
            for (const PointerEvent& event : {first, second}) {
                const bool before = velora.Capture.Active;
                handlers.OnPointer(event);
                const bool press = event.Kind == PointerKind::Press;
                EXPECT_FALSE(velora.Capture.Active && !press && (event.Held & 7) == 0);
                EXPECT_FALSE(velora.Capture.Active && !press && !before);
            }
            handlers.OnPointer({PointerKind::Move, 240, 20, 0, 0, 0});
            EXPECT_FALSE(velora.Capture.Active);
        }
}

TEST_F(Mouse, TheControlKeepsTheMouseOutsideAndWhileASecondButtonIsDown) {
    Press(form.picPause, 5, 5);
    EXPECT_EQ(velora.Capture.Holder, &form.picPause);
    Press(form.picEject, 5, 5, kRightButton);
    Release(form.picEject, 5, 5);
    EXPECT_EQ(velora.Capture.Holder, &form.picPause);
    Release(form.picEject, 5, 5, kRightButton);
    EXPECT_FALSE(velora.Capture.Active);
    EXPECT_EQ(journal.Take(), Lines{}) << "no dialog: picEject never saw a release";
}

TEST_F(Mouse, HidingTheControlEndsNothing) {
    Press(form.picPause, 5, 5);
    form.picPause.Visible = false;
    Release(form.picPause, 5, 5);
    EXPECT_EQ(journal.Take(), Lines{"PlaySound \\velora\\click.wav"});
}

TEST_F(Mouse, TheCaptureHasEndedBeforeTheHandlerOfTheLastReleaseRuns) {
    AddEntry(u"", u"a.mp3");
    AddEntry(u"", u"b.mp3");
    bool active = true;
    loop.Post([&] { active = velora.Capture.Active; });
    Click(form.picForward);
    EXPECT_FALSE(active) << "inside the wait of the step";
}

TEST_F(Mouse, AMessageEndsTheCaptureOfAButtonThatIsStillHeld) {
    velora.MediaLimit = 0;
    Press(form.picPlay, 5, 5);
    Press(form.picPlay, 5, 5, kRightButton);
    Release(form.picPlay, 5, 5);
    EXPECT_EQ(journal.Take(), Lines{"MessageBox Media Limit reached"});
    EXPECT_FALSE(velora.Capture.Active);
}

TEST_F(Mouse, ADialogEndsTheCaptureOfAButtonThatIsStillHeld) {
    Press(form.picPlay, 5, 5);
    Press(form.picPlay, 5, 5, kRightButton);
    Release(form.picPlay, 5, 5);
    EXPECT_EQ(journal.Take(), Lines{"ChooseFile Select Media ..."});
    EXPECT_FALSE(velora.Capture.Active);
    Release(form.picPlay, 5, 5, kRightButton);
    EXPECT_EQ(journal.Take(), Lines{}) << "the release that comes after it goes nowhere";
}

TEST_F(Mouse, ALostReleaseRunsNoHandler) {
    Press(form.picPlay, 5, 5);
    LoseMouse();
    EXPECT_EQ(journal.Take(), Lines{});
    EXPECT_EQ(form.picPlay.Picture, form.picPlay2.Picture);
}

TEST_F(Mouse, ALostReleaseWhileSeekingIsDelivered) {
    velora.PlayerState = PlayerState::Playing;
    Press(form.picForward, 5, 5, kLeftButton, 1);
    ASSERT_EQ(velora.PlayerState, PlayerState::SeekingForward);
    LoseMouse();
    EXPECT_EQ(velora.PlayerState, PlayerState::Playing);
    EXPECT_EQ(journal.Take(), (Lines{"PlaySound \\velora\\click.wav", "Player.Seek 0"}));
}

TEST_F(Mouse, ADragCountsEachPixelThatNoReportNamed) {
    velora.CurrentSkin = 1;
    velora.Skins[1].VolumeY = {0, 15 * 70, 15 * 60, 15 * 50, 15 * 40, 15 * 30, 15 * 20, 15 * 10};
    form.lCurVol = 1;
    Press(form.picVolume, 3, 70);
    Move(form.picVolume, 9, 5);
    EXPECT_EQ(form.lCurVol, 7);
    Release(form.picVolume, 9, 45);
    EXPECT_EQ(form.lCurVol, 4) << "the way to the release counts as well";
}

TEST_F(Mouse, PlacesCountFromTheControlAndInTwipsOnTheVolume) {
    velora.CurrentSkin = 1;
    velora.Skins[1].VolumeY[2] = 15 * 30;
    form.lCurVol = 1;
    Press(form.picVolume, 0, 28);
    Move(form.picVolume, 0, 29);
    EXPECT_EQ(form.lCurVol, 1);
    Move(form.picVolume, 0, 30);
    EXPECT_EQ(form.lCurVol, 2);
}

TEST_F(Mouse, AnAbsurdPlaceIsSurvived) {
    Press(form.picPause, 5, 5);
    handlers.OnPointer({PointerKind::Move, INT32_MAX, INT32_MIN, 0, 1, 0});
    EXPECT_EQ(form.picPause.Picture, form.picPause1.Picture);
    handlers.OnPointer({PointerKind::Release, INT32_MIN, INT32_MAX, 1, 0, 0});
    EXPECT_FALSE(velora.Capture.Active);
}
