// The mouse on the form: a window layer reports the pointer on one surface, here it becomes the
// mouse events of the controls, with the capture that the original platform kept by itself.
#pragma once

#include "state/form_events.h"
#include "state/velora.h"

/// What one event of the pointer comes to.
enum class MouseAction {
    Nothing,
    Begin,      ///< The control under the pointer takes the mouse and gets a press.
    BeginAnew,  ///< The same, once the present capture has ended as with `Lose`.
    Press,      ///< The holder gets a press of a further button.
    Move,       ///< The holder gets a move.
    Release,    ///< The holder gets a release and keeps the mouse.
    ReleaseEnd, ///< The capture ends, then the holder gets the release.
    Lose,       ///< The capture ends without its release.
};

/// `captured` tells whether a control has the mouse; `Button` and `Held` are those of the event.
/// Without a capture only a press counts, so what follows a dialog or the menu goes nowhere. Wheel
/// and side buttons do nothing. A capture ends when the event's own set of held buttons is empty,
/// whatever got lost before.
[[nodiscard]] MouseAction DecideMouse(bool captured, PointerKind kind, Integer Button,
                                      Integer Held);

/// Gives an event of the pointer to the control that it is meant for. Between two reports of a drag
/// the holder gets a move for each pixel on the way, so that no report that a platform leaves out
/// is missed.
void HandlePointer(Velora& velora, const PointerEvent& event);
