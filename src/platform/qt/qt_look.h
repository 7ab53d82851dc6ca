// Dialogs, the menu and tool tips look like the desktop's: light or dark, and in its font. The
// toolkit could do that at the start, but its libraries for it would double the time of the start;
// here the desktop is asked when something opens.
#pragma once

#include <QFont>
#include <QPalette>
#include <QString>
#include <QVariant>
#include <functional>
#include <optional>

/// What a desktop tells of its look. Without `Dark` it is light, without `Font` the font stays.
struct DesktopLook {
    std::optional<bool> Dark;  ///< Light letters on dark ground.
    std::optional<QFont> Font; ///< Of texts in dialogs and menus.
};

/// The font of a name such as "Noto Sans Bold 11": family, style, size in points from 1 to 200.
/// Nothing if family or size is missing.
[[nodiscard]] std::optional<QFont> FontOfName(const QString& name);

/// The look by the desktop's settings. `value` gives the setting of a name space
/// (org.freedesktop.appearance, org.gnome.desktop.interface) and a key, or an invalid value.
[[nodiscard]] DesktopLook
LookOfSettings(const std::function<QVariant(const QString& space, const QString& key)>& value);

/// The look by the desktop's file below `directory`: `kdeglobals` if the desktop keeps one, else
/// `gtk-3.0/settings.ini`. Nothing is told by a file that isn't there.
[[nodiscard]] DesktopLook LookOfFiles(const QString& directory, bool keepsKdeglobals);

/// Keeps the program's look like the desktop's.
class QtLook {
public:
    /// Gives the program the look that the desktop has now. Called before each dialog, menu and
    /// tool tip. Asks the portal, which isn't started for it and has a fifth of a second to answer;
    /// one that was silent once isn't asked again. What it doesn't tell is read from files.
    void Follow();

private:
    [[nodiscard]] DesktopLook AskPortal();
    void ShowDark(bool dark);

    bool m_portalAnswers = true;
    bool m_isDark = false;
    QPalette m_lightTips;
};
