// Between our text and the toolkit's: both are UTF-16, so this only copies.
#pragma once

#include <QString>

#include "platform/text.h"

/// The same text as the toolkit has it.
[[nodiscard]] inline QString ToQString(TextView text) {
    return QString(reinterpret_cast<const QChar*>(text.data()),
                   static_cast<qsizetype>(text.size()));
}

/// The same text as we have it.
[[nodiscard]] inline Text ToText(const QString& text) {
    return text.toStdU16String();
}
