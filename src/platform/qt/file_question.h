// What the desktop's file chooser and the toolkit's are both asked.
#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

#include "platform/dialogs.h"

/// A question for one file.
struct FileQuestion {
    QString Title;               ///< Of the chooser's window.
    QByteArray Directory;        ///< Shown first; the bytes of a path.
    std::vector<FilterRow> Rows; ///< The kinds of files to choose from, the first one chosen.
};
