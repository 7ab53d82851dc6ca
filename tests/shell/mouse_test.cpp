// The capture: which control hears of the mouse, and until when.
#include "shell/mouse.h"

#include "support/use.h"

namespace {

using enum MouseAction;

constexpr Integer kSide = 8;
constexpr Integer kHeld[] = {0, kLeftButton, kRightButton, kSide, kLeftButton | kSide};

struct Row {
    const char* Name;
    PointerKind Kind;
    Integer Button;
    MouseAction Captured[std::size(kHeld)]; ///< With each of `kHeld` in turn.
    MouseAction Free;                       ///< With any of them.
};

constexpr Row kRows[] = {
    {"press", PointerKind::Press, 1, {BeginAnew, BeginAnew, Press, BeginAnew, BeginAnew}, Begin},
    {"side press", PointerKind::Press, kSide, {Lose, Nothing, Nothing, Lose, Nothing}, Nothing},
    {"move", PointerKind::Move, 0, {Lose, Move, Move, Lose, Move}, Nothing},
    {"release",
     PointerKind::Release,
     1,
     {ReleaseEnd, Release, Release, ReleaseEnd, Release},
     Nothing},
    {"side release", PointerKind::Release, kSide, {Lose, Nothing, Nothing, Lose, Nothing}, Nothing},
    {"lost", PointerKind::Lost, 0, {Lose, Lose, Lose, Lose, Lose}, Nothing},
};

} // namespace

TEST(MouseDecision, FollowsTheTable) {
    for (const auto& [name, kind, button, captured, free] : kRows)
        for (std::size_t at = 0; at < std::size(kHeld); ++at) {
            EXPECT_EQ(DecideMouse(true, kind, button, kHeld[at]), captured[at])
                << name << kHeld[at];
            EXPECT_EQ(DecideMouse(false, kind, button, kHeld[at]), free) << name << kHeld[at];
        }
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
         " | picPause picPause2, held by picPause | picPause picPause1, free, click, over "
         "picPause1"},
        {"off to the side and back to the last pixel is inside, the first beside it isn't",
         "picPause", "+L 60,5 5,5 29,19 -L | 30,5 +L", "click, over picPause1 | BeginMove 1"},
        {"a press whose release nobody saw ends the seek and begins anew",
         "track:1 picForward shift +R", "+R", "Seek 0"},
        {"an absurd place is survived", "picPause +L",
         "2000000000,-2000000000 | =-2000000000,2000000000 -L", "picPause picPause1 | free"},
    });
}
