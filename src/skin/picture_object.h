// A skin's picture on a control: the buttons and the background.
#pragma once

#include "state/velora.h"

/// A picture object: the control that it takes over, the holders of its two pictures, the paths of
/// the two files, and its place in pixels.
struct PictureObject {
    PictureBox &Control, &NormalHolder, &PressedHolder;
    const Text &FileName, &FileName2;
    Long Left = 0, Top = 0;
};

/// Moves `Control`, loads `FileName` for it and once more for `NormalHolder`, and `FileName2` for
/// `PressedHolder`; then shows `Control`. A picture that can't be loaded leaves the one that was
/// there. Does nothing for a `FileName` of at most one character.
void PlacePictureObject(Pictures& pictures, const PictureObject& object);

/// Sets a box's picture from a file. A picture that can't be loaded leaves the one that was there.
void LoadPictureInto(Pictures& pictures, PictureBox& box, const Text& path);
