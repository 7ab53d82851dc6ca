// The system's rectangle and the toolkit's, whose right and bottom are inside.
#pragma once

#include <QRect>

#include "platform/rect.h"

[[nodiscard]] inline QRect ToQRect(const Rect& rect) {
    return QRect(QPoint(rect.Left, rect.Top), QPoint(rect.Right - 1, rect.Bottom - 1));
}

[[nodiscard]] inline Rect FromQRect(const QRect& rect) {
    return {rect.left(), rect.top(), rect.left() + rect.width(), rect.top() + rect.height()};
}
