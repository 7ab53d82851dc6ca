// Dialogs, the menu and tool tips look like the desktop's: light or dark, and in its font. The
// toolkit would settle that at the start, with libraries that double its time; here it is found out
// when something opens.
#pragma once

#include <QFont>
#include <QPalette>
#include <QString>
#include <QVariant>
#include <functional>
#include <optional>

/// What a desktop says about its look; what it doesn't say is left to the toolkit.
struct DesktopLook {
    std::optional<bool> Dark;
    std::optional<QFont> Font;
};

/// A font as the desktop's settings name it, as in "Noto Sans Bold 11": family, style, size in
/// points. Nothing if it has no family or no size.
[[nodiscard]] std::optional<QFont> FontOfName(const QString& name);

/// The look that the settings portal's answer tells. `value` gives a setting by name space and key,
/// invalid where there is none (org.freedesktop.appearance, org.gnome.desktop.interface).
[[nodiscard]] DesktopLook
LookOfSettings(const std::function<QVariant(const QString& space, const QString& key)>& value);

/// The look that the files of a desktop tell: `kdeglobals` if it is the one that keeps that file,
/// else `gtk-3.0/settings.ini`, below `directory`.
[[nodiscard]] DesktopLook LookOfFiles(const QString& directory, bool keepsKdeglobals);

class QtLook {
public:
    /// Gives the program the look that the desktop has now. Called before each dialog, menu and
    /// tool tip. The portal of the settings is only asked while it runs, and for a fifth of a
    /// second at most.
    void Follow();

private:
    [[nodiscard]] DesktopLook AskPortal();
    void ShowDark(bool dark);

    bool m_portalAnswers = true;
    bool m_isDark = false;
    QPalette m_lightTips;
};
