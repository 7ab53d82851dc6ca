// What a file chooser is asked, whoever shows it.
#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

#include "platform/dialogs.h"

struct FileQuestion {
    QString Title;
    QByteArray Directory; ///< Where to begin; the bytes of a path.
    std::vector<FilterRow> Rows;
};
