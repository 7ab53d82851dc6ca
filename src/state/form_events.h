// What a window layer reports: the pointer on its one surface, the timers' ticks, the wish to
// close.
#pragma once

#include "state/form.h"

enum class PointerKind { Press, Move, Release, Lost };

/// One event of the pointer. `Lost` tells that the platform took the pointer away and no release
/// will come.
struct PointerEvent {
    PointerKind Kind = PointerKind::Move;
    int XPx =
        0; ///< Whole skin pixels from the client area's corner, floored; below 0 is left of it.
    int YPx = 0;
    Integer Button = kNoButton; ///< The button that went down or up; none in a move.
    Integer Held = 0;           ///< The set of buttons held once this event has happened.
    Integer Shift = 0;          ///< 1 shift, 2 control, 4 alt, added up.
};

/// The form's handlers as a window layer calls them, on the loop's thread.
class FormEvents {
public:
    virtual ~FormEvents() = default;
    virtual void OnPointer(const PointerEvent& event) = 0;
    virtual void OnTimer(const Timer& timer) = 0;
    /// The platform closes the window, or asks the program to end.
    virtual void OnClose() = 0;
};
