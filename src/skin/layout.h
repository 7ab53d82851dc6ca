// A skin's objects take over the form's controls: place, pictures, visibility. Nothing is hidden or
// cleared, so what a skin doesn't place stays as the skin before it left it. A step that fails is
// passed over.
#pragma once

#include "state/velora.h"

/// Lays out the objects of the filled slot `Slot`, in their order. The slot has to be `CurrentSkin`
/// already, whose record the volume object is written to.
void LayoutSkinObjects(Velora& velora, Integer Slot);

/// Gives a label its place and size in pixels and shows it.
void PlaceLabelObject(Label& Label, Long Left, Long Top, Long Width, Long Height);
