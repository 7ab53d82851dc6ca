// Between the two kinds of rectangles: our right and bottom edges are outside, the toolkit's
// inside.
#pragma once

#include <QRect>

#include "platform/rect.h"

/// The same pixels as a rectangle of the toolkit.
[[nodiscard]] inline QRect ToQRect(const Rect& rect) {
    return QRect(QPoint(rect.Left, rect.Top), QPoint(rect.Right - 1, rect.Bottom - 1));
}

/// The same pixels as a rectangle of ours.
[[nodiscard]] inline Rect FromQRect(const QRect& rect) {
    return {rect.left(), rect.top(), rect.left() + rect.width(), rect.top() + rect.height()};
}
