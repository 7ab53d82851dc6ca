// How each figure of a scene looks.
#pragma once

#include <QPainter>

#include "platform/qt/qt_fonts.h"
#include "state/scene.h"

/// Draws the figures of `scene` that touch `damage`, from back to front, in skin pixels. The
/// painter's clip is the caller's: the damage and the window's shape.
void PaintScene(QPainter& painter, QtFonts& fonts, const Scene& scene, const Rect& damage);

/// The form's own ground, seen where nothing covers it.
[[nodiscard]] QColor FormColour();
