// The package installs the face outside the folders that the font system looks in, hence by its
// file.
#include "platform/qt/qt_fonts.h"

#include <QFontDatabase>
#include <QStringList>

namespace {

constexpr char kTahomaFile[] = "/usr/share/wine/fonts/tahoma.ttf";

} // namespace

const QFont& QtFonts::FontOf(int sizePx) {
    if (!m_ready) {
        const int id = QFontDatabase::addApplicationFont(QString::fromLatin1(kTahomaFile));
        const QStringList families = QFontDatabase::applicationFontFamilies(id);
        m_family = families.isEmpty() ? QStringLiteral("Liberation Sans") : families.first();
        m_large = MakeFont(11);
        m_small = MakeFont(9);
        m_ready = true;
    }
    return sizePx <= 9 ? m_small : m_large;
}

QFont QtFonts::MakeFont(int sizePx) {
    QFont font(m_family);
    font.setPixelSize(sizePx);
    // Grey edges: coloured ones would be wrong on a transparent window.
    font.setStyleStrategy(
        static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    // Full hinting rounds each letter's width, and the face falls apart at these sizes.
    font.setHintingPreference(QFont::PreferVerticalHinting);
    return font;
}
