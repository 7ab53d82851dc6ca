// Which control lies over which: the one order by which the form is painted and the mouse is given
// out.
#pragma once

#include <vector>

#include "platform/rect.h"
#include "state/form.h"

/// A visible control with its place on the client area. Points outside `Clip` belong to it neither
/// for the eye nor for the mouse.
struct StackedControl {
    const ControlRow* Row;
    const Control* Source;
    Rect Place;
    Rect Clip;
};

/// The client area in pixels: the outer size without the frame, each side at least 1.
[[nodiscard]] Rect ClientArea(const Form& form);

/// The visible controls from back to front: of one container, the one that stands earlier in the
/// form is in front, and pictures and the visualisation are in front of labels and shapes.
[[nodiscard]] std::vector<StackedControl> ControlStack(const Form& form);

/// The control that takes a mouse event at that point of the client area; the null pointer where it
/// is the form itself. Shapes take none.
[[nodiscard]] const Control* ControlAt(const Form& form, int xPx, int yPx);
