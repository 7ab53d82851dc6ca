// Paints the figures of a scene.
#pragma once

#include <QPainter>

#include "platform/qt/qt_labels.h"
#include "state/scene.h"

/// Draws what `damage` covers of the form's own colour and the figures of `scene`, from back to
/// front, in skin pixels. A clip to the window's shape is the caller's.
void PaintScene(QPainter& painter, QtLabels& labels, const Scene& scene, const Rect& damage);

/// The form's own colour, visible where no control covers it.
[[nodiscard]] QColor FormColour();
