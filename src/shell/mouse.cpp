// A capture is always settled before a handler runs: a handler that waits can be entered again by
// any event.
#include "shell/mouse.h"

#include <algorithm>
#include <cstdlib>

#include "playback/buttons.h"
#include "playback/seeking.h"
#include "playback/transport.h"
#include "playback/volume.h"
#include "shell/window_behaviour.h"
#include "state/mouse_event.h"
#include "state/stack.h"

namespace {

using Handler = void (*)(Velora&, const MouseEvent&);

struct MouseRow {
    ControlId Control;
    Handler MouseDown;
    Handler MouseUp = nullptr;
    Handler MouseMove = nullptr;
};

// Who hears of what. A control without a row, as the visualisation, takes the mouse and does
// nothing with it.
constexpr MouseRow kHandlers[] = {
    {ControlId::frmMain, Form_MouseDown},
    {ControlId::picBackground, picBackground_MouseDown},
    {ControlId::lblFilescroll, lblFilescroll_MouseDown},
    {ControlId::lblStatusLabel, lblStatusLabel_MouseDown},
    {ControlId::picPlay, picPlay_MouseDown, picPlay_MouseUp, picPlay_MouseMove},
    {ControlId::picPause, PressButton<kPauseButton>, picPause_MouseUp, MoveOnButton<kPauseButton>},
    {ControlId::picBackward, picBackward_MouseDown, picBackward_MouseUp,
     MoveOnButton<kBackwardButton>},
    {ControlId::picForward, picForward_MouseDown, picForward_MouseUp, MoveOnButton<kForwardButton>},
    {ControlId::picPlaylist, PressButton<kPlaylistButton>, picPlaylist_MouseUp,
     MoveOnButton<kPlaylistButton>},
    {ControlId::picEject, PressButton<kEjectButton>, picEject_MouseUp, MoveOnButton<kEjectButton>},
    {ControlId::picVolume, nullptr, nullptr, picVolume_MouseMove},
};

constexpr Integer kAllButtons = kLeftButton | kRightButton | kMiddleButton;

// Longer ways than any screen's are jumped.
constexpr std::int64_t kLongestWalkPx = 32767;

bool IsMouseButton(Integer button) {
    return button == kLeftButton || button == kRightButton || button == kMiddleButton;
}

// Calls the handler of `holder` for an event at a point of the client area.
void Call(Velora& velora, const Control* holder, Handler MouseRow::*kind, Integer button,
          const PointerEvent& event) {
    const Form& form = velora.frmMain;
    const ControlId id = holder ? holder->Id : ControlId::frmMain;
    std::int64_t x = event.XPx;
    std::int64_t y = event.YPx;
    for (const Control* inside = holder; inside;
         inside = inside->Parent == Container::picBackground ? &form.picBackground : nullptr) {
        x -= inside->Left;
        y -= inside->Top;
    }
    const int unit = holder == &form.picVolume ? kTwipsPerPixel : 1;
    for (const MouseRow& row : kHandlers)
        if (row.Control == id && row.*kind)
            (row.*kind)(velora, {button, event.Shift, static_cast<Single>(x * unit),
                                 static_cast<Single>(y * unit)});
}

// The holder sees each pixel on the way to the event's place, with `held` down.
void WalkTo(Velora& velora, Integer held, const PointerEvent& event) {
    const std::int64_t fromX = velora.Capture.XPx, fromY = velora.Capture.YPx;
    const std::int64_t wayX = event.XPx - fromX, wayY = event.YPx - fromY;
    const std::int64_t longest = std::max(std::abs(wayX), std::abs(wayY));
    const std::int64_t steps = longest > kLongestWalkPx ? 1 : longest;
    PointerEvent between = event;
    for (std::int64_t step = 1; step <= steps && velora.Capture.Active; ++step) {
        between.XPx = velora.Capture.XPx = static_cast<int>(fromX + wayX * step / steps);
        between.YPx = velora.Capture.YPx = static_cast<int>(fromY + wayY * step / steps);
        Call(velora, velora.Capture.Holder, &MouseRow::MouseMove, held, between);
    }
}

// The capture ends without its release; a seek gets one all the same, or it would never end, and
// what a step that overtook a seek has left blinking ends as well, or the button might stay hidden.
void Lose(Velora& velora, const PointerEvent& event) {
    const MouseCapture lost = velora.Capture;
    ForgetCapture(velora.Capture);
    const bool seeking = velora.PlayerState == PlayerState::SeekingForward ||
                         velora.PlayerState == PlayerState::SeekingBackward;
    if (seeking) Call(velora, lost.Holder, &MouseRow::MouseUp, lost.Button, event);
    EndBlinking(velora.frmMain.picBackward, velora.frmMain.tmrSeekBackward);
    EndBlinking(velora.frmMain.picForward, velora.frmMain.tmrSeekForward);
}

void Begin(Velora& velora, const PointerEvent& event) {
    const Control* const holder = ControlAt(velora.frmMain, event.XPx, event.YPx);
    velora.Capture = {true, holder, event.Button, event.XPx, event.YPx};
    Call(velora, holder, &MouseRow::MouseDown, event.Button, event);
}

void ReleaseButton(Velora& velora, const PointerEvent& event, bool ends) {
    WalkTo(velora, static_cast<Integer>((event.Held | event.Button) & kAllButtons), event);
    const Control* const holder = velora.Capture.Holder;
    if (ends) ForgetCapture(velora.Capture);
    Call(velora, holder, &MouseRow::MouseUp, event.Button, event);
}

void PressFurther(Velora& velora, const PointerEvent& event) {
    WalkTo(velora, static_cast<Integer>(event.Held & ~event.Button & kAllButtons), event);
    Call(velora, velora.Capture.Holder, &MouseRow::MouseDown, event.Button, event);
}

} // namespace

MouseAction DecideMouse(bool captured, PointerKind kind, Integer Button, Integer Held) {
    using enum MouseAction;
    const bool others = (Held & ~Button & kAllButtons) != 0;
    const bool any = (Held & kAllButtons) != 0;
    const bool counts = IsMouseButton(Button);
    if (!captured) return kind == PointerKind::Press && counts ? Begin : Nothing;
    switch (kind) {
    case PointerKind::Press:
        if (counts) return others ? Press : BeginAnew;
        return any ? Nothing : Lose;
    case PointerKind::Release:
        if (counts) return any ? Release : ReleaseEnd;
        return any ? Nothing : Lose;
    case PointerKind::Move:
        return any ? Move : Lose;
    case PointerKind::Lost:
        return Lose;
    }
    return Nothing;
}

void HandlePointer(Velora& velora, const PointerEvent& event) {
    switch (DecideMouse(velora.Capture.Active, event.Kind, event.Button, event.Held)) {
    case MouseAction::Nothing:
        return;
    case MouseAction::BeginAnew:
        Lose(velora, event);
        return Begin(velora, event);
    case MouseAction::Begin:
        return Begin(velora, event);
    case MouseAction::Press:
        return PressFurther(velora, event);
    case MouseAction::Move:
        return WalkTo(velora, static_cast<Integer>(event.Held & kAllButtons), event);
    case MouseAction::Release:
        return ReleaseButton(velora, event, false);
    case MouseAction::ReleaseEnd:
        return ReleaseButton(velora, event, true);
    case MouseAction::Lose:
        return Lose(velora, event);
    }
}
