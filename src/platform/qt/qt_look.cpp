// Most desktops tell their look by the portal; files tell what the portal doesn't.
#include "platform/qt/qt_look.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QStyle>
#include <QToolTip>

#include "platform/qt/portal_names.h"

namespace {

constexpr int kPatienceMs = 200;

const QString kAppearance = QStringLiteral("org.freedesktop.appearance");
const QString kInterface = QStringLiteral("org.gnome.desktop.interface");

using SettingsMap = QMap<QString, QVariantMap>;

// Only the name of a theme tells that it is dark.
std::optional<bool> DarkOfTheme(const QString& theme) {
    if (theme.isEmpty()) return std::nullopt;
    return theme.endsWith(QStringLiteral("dark"), Qt::CaseInsensitive);
}

DesktopLook LookOfKdeglobals(const QString& path) {
    const QSettings file(path, QSettings::IniFormat);
    DesktopLook look;
    const QStringList colour =
        file.value(QStringLiteral("Colors:Window/BackgroundNormal")).toStringList();
    if (colour.size() >= 3)
        look.Dark =
            QColor(colour[0].toInt() & 255, colour[1].toInt() & 255, colour[2].toInt() & 255)
                .lightness() < 128;
    // A font is written with commas, so QSettings reads a list, which is joined again here. Its
    // section is [General], whose keys QSettings gives without the section's name.
    const QString name = file.value(QStringLiteral("font")).toStringList().join(QLatin1Char(','));
    QFont font;
    if (!name.isEmpty() && font.fromString(name) && font.pointSizeF() > 0) look.Font = font;
    return look;
}

DesktopLook LookOfGtk(const QString& path) {
    const QSettings file(path, QSettings::IniFormat);
    const auto value = [&](const char* key) {
        return file.value(QStringLiteral("Settings/") + QLatin1String(key));
    };
    DesktopLook look;
    look.Dark = DarkOfTheme(value("gtk-theme-name").toString());
    if (value("gtk-application-prefer-dark-theme").toBool()) look.Dark = true;
    look.Font = FontOfName(value("gtk-font-name").toStringList().join(QLatin1Char(' ')));
    return look;
}

QPalette DarkPalette() {
    const QColor text(0xee, 0xee, 0xee), faint(0x80, 0x80, 0x80), base(0x20, 0x20, 0x20);
    // From these two the toolkit makes the colours of edges and shadows.
    QPalette palette(QColor(0x3a, 0x3a, 0x3a), QColor(0x2d, 0x2d, 0x2d));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, faint);
    }
    palette.setColor(QPalette::PlaceholderText, faint);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, QColor(0x28, 0x28, 0x28));
    palette.setColor(QPalette::ToolTipBase, base);
    palette.setColor(QPalette::Highlight, QColor(0x30, 0x70, 0xb0));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0x50, 0x50, 0x50));
    palette.setColor(QPalette::Link, QColor(0x6a, 0xb0, 0xf0));
    return palette;
}

} // namespace

std::optional<QFont> FontOfName(const QString& name) {
    QStringList words = name.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words.size() < 2) return std::nullopt;
    bool isNumber = false;
    const double points = words.takeLast().toDouble(&isNumber);
    if (!isNumber || !(points >= 1 && points <= 200)) return std::nullopt;
    QFont font;
    font.setPointSizeF(points);
    while (words.size() > 1) {
        const QString style = words.last().toLower();
        if (style == QStringLiteral("bold"))
            font.setBold(true);
        else if (style == QStringLiteral("medium"))
            font.setWeight(QFont::Medium);
        else if (style == QStringLiteral("italic") || style == QStringLiteral("oblique"))
            font.setItalic(true);
        else if (style != QStringLiteral("regular"))
            break;
        words.removeLast();
    }
    QString family = words.join(QLatin1Char(' '));
    if (family.endsWith(QLatin1Char(','))) family.chop(1);
    font.setFamilies({family});
    return font;
}

DesktopLook
LookOfSettings(const std::function<QVariant(const QString& space, const QString& key)>& value) {
    DesktopLook look;
    const uint scheme = value(kAppearance, QStringLiteral("color-scheme")).toUInt();
    if (scheme == 1 || scheme == 2)
        look.Dark = scheme == 1;
    else
        look.Dark = DarkOfTheme(value(kInterface, QStringLiteral("gtk-theme")).toString());
    look.Font = FontOfName(value(kInterface, QStringLiteral("font-name")).toString());
    return look;
}

DesktopLook LookOfFiles(const QString& directory, bool keepsKdeglobals) {
    const QString path = directory + (keepsKdeglobals ? QStringLiteral("/kdeglobals")
                                                      : QStringLiteral("/gtk-3.0/settings.ini"));
    // Reading anything but a plain file could take for ever.
    if (!QFileInfo(path).isFile()) return {};
    return keepsKdeglobals ? LookOfKdeglobals(path) : LookOfGtk(path);
}

DesktopLook QtLook::AskPortal() {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!m_portalAnswers || !bus.isConnected()) return {};
    QDBusMessage call = QDBusMessage::createMethodCall(
        QLatin1String(kPortalService), QLatin1String(kPortalPath),
        QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("ReadAll"));
    call << QStringList{kAppearance, kInterface};
    call.setAutoStartService(false);
    const QDBusMessage reply = bus.call(call, QDBus::Block, kPatienceMs);
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) {
        // A portal that isn't there may come later. A silent one would delay every dialog.
        m_portalAnswers = reply.errorName() != QStringLiteral("org.freedesktop.DBus.Error.NoReply");
        return {};
    }
    const auto settings = qdbus_cast<SettingsMap>(reply.arguments().constFirst());
    return LookOfSettings(
        [&](const QString& space, const QString& key) { return settings.value(space).value(key); });
}

void QtLook::Follow() {
    DesktopLook look = AskPortal();
    if (!look.Dark || !look.Font) {
        const bool keepsKdeglobals = qgetenv("XDG_CURRENT_DESKTOP").split(':').contains("KDE");
        const DesktopLook rest =
            LookOfFiles(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
                        keepsKdeglobals);
        if (!look.Dark) look.Dark = rest.Dark;
        if (!look.Font) look.Font = rest.Font;
    }
    ShowDark(look.Dark.value_or(false));
    if (look.Font && *look.Font != QApplication::font()) QApplication::setFont(*look.Font);
}

void QtLook::ShowDark(bool dark) {
    if (dark == m_isDark) return;
    m_isDark = dark;
    if (dark) m_lightTips = QToolTip::palette();
    const QPalette palette = dark ? DarkPalette() : QApplication::style()->standardPalette();
    QApplication::setPalette(palette);
    QToolTip::setPalette(dark ? palette : m_lightTips);
}
