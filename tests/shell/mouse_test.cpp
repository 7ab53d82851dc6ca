// The capture: which control hears of the mouse, and until when.
#include "shell/mouse.h"

#include "support/use.h"

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

} // namespace

TEST(MouseDecision, FollowsTheTable) {
    for (const Row& row : kRows)
        EXPECT_EQ(DecideMouse(row.Captured, row.Kind, row.Button, row.Held), row.Expected) << row.Name;
}

TEST(Mouse, Captures) {
    ExpectUses({
        {"a control keeps the mouse outside and while a second button is down", "",
         "picPause +L | picEject +R | -L | -R",
         "picPause picPause2, held by picPause | picPause picPause1 |  | free"},
        {"a further button is the holder's, wherever it goes down", "picPause +R", "picEject +L",
         "picPause picPause2"},
        {"a lost release runs no handler", "picPlay +L", "lost", "free"},
        {"a dialog takes the mouse from a button that is still held, and what follows goes nowhere",
         "picPlay +L +R", "-L | -R off", "picPlay picPlay1, free, ChooseFile Select Media ... | "},
        {"a message does as well", "full picPlay +L +R", "-L",
         "picPlay picPlay1, free, MessageBox Media Limit reached"},
        {"a side button does nothing", "picPause", "+S -S | +L +S -S | -L",
         " | picPause picPause2, held by picPause | picPause picPause1, free, click, over picPause1"},
        {"off to the side and back to the last pixel is inside, the first beside it isn't", "picPause",
         "+L 60,5 5,5 29,19 -L | 30,5 +L", "click, over picPause1 | BeginMove 1"},
        {"a press whose release nobody saw ends the seek and begins anew", "track:1 picForward shift +R",
         "+R", "Seek 0"},
        {"an absurd place is survived", "picPause +L", "2000000000,-2000000000 | =-2000000000,2000000000 -L",
         "picPause picPause1 | free"},
    });
}
