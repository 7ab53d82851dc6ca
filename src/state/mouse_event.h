// A mouse event as the handler of a control gets it.
#pragma once

#include "platform/numbers.h"

struct MouseEvent {
    Integer Button =
        0;             ///< The one that went down or up; in a move the set of those held, added up.
    Integer Shift = 0; ///< 1 shift, 2 control, 4 alt, added up.
    Single X = 0; ///< From the control's left edge, also outside it: pixels, on `picVolume` twips.
    Single Y = 0; ///< From its top edge.
};
