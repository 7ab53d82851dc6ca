// A skin's objects take over the form's controls: place, pictures, visibility. Nothing is hidden or
// cleared, so what a skin doesn't place stays as the skin before it left it. A step that fails is
// passed over.
#pragma once

#include "state/velora.h"

/// Lays out the objects of the filled slot `Slot`, in their order. The slot has to be `CurrentSkin`
/// already, whose record the volume object is written to.
void LayoutSkinObjects(Velora& velora, Integer Slot);

/// Moves `Control`, loads `FileName` for it and once more for `NormalHolder`, and `FileName2` for
/// `PressedHolder`; then shows `Control`. A picture that can't be loaded leaves the one that was
/// there. Does nothing for a `FileName` of at most one character. Places in pixels.
void PlacePictureObject(Velora& velora, PictureBox& Control, PictureBox& NormalHolder,
                        PictureBox& PressedHolder, const Text& FileName, const Text& FileName2,
                        Long Left, Long Top);

/// Gives a label its place and size in pixels and shows it.
void PlaceLabelObject(Label& Label, Long Left, Long Top, Long Width, Long Height);

/// Sets a box's picture from a file. A picture that can't be loaded leaves the one that was there.
void LoadPictureInto(Velora& velora, PictureBox& box, const Text& path);
