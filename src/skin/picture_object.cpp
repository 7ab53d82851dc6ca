// Control and holder get pictures of their own from one file: two loads are two pictures, by which
// a fresh button is told from one at rest.
#include "skin/picture_object.h"

void PlacePictureObject(Pictures& pictures, const PictureObject& object) {
    // A skin that was named without a directory has a backslash for one. An object of it without a
    // file has the path of the root, which counts as there if the root holds a plain file.
    if (object.FileName.size() <= 1) return;
    object.Control.Left = object.Left;
    object.Control.Top = object.Top;
    LoadPictureInto(pictures, object.Control, object.FileName);
    LoadPictureInto(pictures, object.NormalHolder, object.FileName);
    LoadPictureInto(pictures, object.PressedHolder, object.FileName2);
    object.Control.Visible = true;
}

void LoadPictureInto(Pictures& pictures, PictureBox& box, const Text& path) {
    if (const PicturePtr picture = pictures.LoadPicture(path)) SetPicture(box, picture);
}
