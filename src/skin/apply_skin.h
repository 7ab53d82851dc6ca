// A loaded skin becomes the look of the window: size, objects, shape, background. A step that fails
// is passed over, and the user is told nothing.
#pragma once

#include "state/velora.h"

/// Applies slot `Slot`, which may be one that was applied before. A skin whose type isn't 1 changes
/// nothing, nor does a number that is no filled slot's, 0 among them. An outer width or height
/// below 1 or above 16,383 pixels leaves that side as it was.
void ApplySkin(Velora& velora, Integer Slot);

/// Whether a region of that type can be built.
[[nodiscard]] bool IsRegionType(Long Type);

/// Builds the regions of slot `Slot`, combines them in their order and sets region 1 as the
/// window's; without a region 1 the window has none and shows its frame. Regions that an earlier
/// call built for the slot are released; the one that the window shows lives on with the window.
void BuildWindowRegion(Velora& velora, Integer Slot);

/// Works out `RegionOffsetX` and `RegionOffsetY` from the window's outer size and its client area,
/// in pixels: 4 and 25 for any window that is larger than its frame.
void MeasureWindowFrame(Velora& velora);
