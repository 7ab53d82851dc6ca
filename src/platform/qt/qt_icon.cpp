// Reading the icon takes time, so it is set once the window is visible, or before a first dialog.
#include "platform/qt/qt_icon.h"

#include <QApplication>
#include <QFile>
#include <QIcon>

#include "platform/qt/qt_pictures.h"

void ShowProgramIcon() {
    if (!QApplication::windowIcon().isNull()) return;
    QIcon icon;
    for (const int sizePx : {32, 64}) {
        QFile file(QStringLiteral(":/icons/%1x%1/apps/velora.png").arg(sizePx));
        if (!file.open(QIODevice::ReadOnly)) continue;
        const QByteArray bytes = file.readAll();
        const std::string_view view(bytes.constData(), static_cast<std::size_t>(bytes.size()));
        icon.addPixmap(QPixmap::fromImage(DecodePicture(view)));
    }
    QApplication::setWindowIcon(icon);
}
