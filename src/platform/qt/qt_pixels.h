// How the skin's own pixels come onto the screen: pictures and letters alike.
#pragma once

#include <QImage>
#include <QPainter>
#include <cmath>

/// Draws `image` with its corner at a place in skin pixels. At a whole scale each of its pixels
/// becomes a sharp square, at others it is scaled smoothly.
inline void DrawPixels(QPainter& painter, QPoint corner, const QImage& image) {
    const double scale = painter.device()->devicePixelRatioF();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, scale != std::floor(scale));
    painter.drawImage(corner, image);
}
