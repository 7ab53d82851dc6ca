// The system's text and the toolkit's: both are UTF-16, so this only copies.
#pragma once

#include <QString>

#include "platform/text.h"

[[nodiscard]] inline QString ToQString(TextView text) {
    return QString(reinterpret_cast<const QChar*>(text.data()),
                   static_cast<qsizetype>(text.size()));
}

[[nodiscard]] inline Text ToText(const QString& text) {
    return text.toStdU16String();
}
