// The thirteen progress lights, as the shape file of a skin describes them.
#pragma once

#include "state/velora.h"

/// Makes the lights 1 to 13 from the shape file that object `ObjectIndex` of slot `Slot` names.
/// Does nothing if that file isn't there. A light that exists already, a missing `top` or `height`,
/// a text that is no number (a fraction is cut downward) and a form outside 0 to 5 end it. Then the
/// lights before that one are ready, that one exists but is hidden (unless it was there already),
/// and the lights behind it aren't made. So the lights are made once in a run.
void LoadShapeObject(Velora& velora, Integer Slot, Integer ObjectIndex);

/// Gives a shape the colours of those names, in any case. A name that isn't known leaves that
/// colour; an empty one leaves both.
void SetShapeColours(Shape& Shape, const Text& BackColour, const Text& BorderColour);
