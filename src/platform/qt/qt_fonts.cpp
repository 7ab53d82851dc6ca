// The package puts the file outside the folders where the font system looks for fonts, so it is
// loaded by its path.
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
    // Edges in grey: coloured ones need to know the ground, and this window has transparent parts.
    font.setStyleStrategy(
        static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    // Full hinting rounds the width of each letter, which looks bad at these sizes.
    font.setHintingPreference(QFont::PreferVerticalHinting);
    return font;
}
