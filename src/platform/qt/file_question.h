// The question for a file, as both choosers take it: the desktop's and the toolkit's.
#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

#include "platform/dialogs.h"

struct FileQuestion {
    QString Title;
    QByteArray Directory;        ///< Shown first; the bytes of a path.
    std::vector<FilterRow> Rows; ///< The kinds of files to choose from, the first one chosen.
};
