// The window need not wait for its icon, so it isn't set before one shows.
#include "platform/qt/qt_icon.h"

#include <QApplication>
#include <QIcon>

void ShowProgramIcon() {
    if (!QApplication::windowIcon().isNull()) return;
    QIcon icon;
    for (const int sizePx : {32, 64})
        icon.addFile(QStringLiteral(":/icons/%1x%1/apps/velora.png").arg(sizePx));
    QApplication::setWindowIcon(icon);
}
