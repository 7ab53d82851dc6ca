// Which control has the mouse. It stands in the shared state because whatever opens a dialog ends
// it.
#pragma once

#include "platform/numbers.h"

struct Control;

/// A press gives the mouse to the control under it until the last button is up again. The pointer's
/// place is in pixels of the client area.
struct MouseCapture {
    bool Active = false;
    const Control* Holder = nullptr; ///< While active, the null pointer stands for the form itself.
    Integer Button = 0;              ///< The button whose press began it.
    int XPx = 0, YPx = 0;            ///< The place of the pointer that was reported last.
};

/// Ends a capture without a word to its holder. Called by all that takes the mouse away: the move
/// of the window, the pop-up, each dialog.
inline void ForgetCapture(MouseCapture& capture) {
    capture = {};
}
