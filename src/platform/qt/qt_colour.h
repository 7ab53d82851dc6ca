// Colours of the records as the toolkit has them.
#pragma once

#include <QColor>

#include "platform/numbers.h"

/// A number in blue-green-red order: red is its lowest byte.
[[nodiscard]] inline QColor ToColour(Long colour) {
    return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}
