// Where the desktop's portal is on the session bus, for both who ask it: the file chooser and the
// desktop's look.
#pragma once

/// The bus name and the object path of every portal.
inline constexpr char kPortalService[] = "org.freedesktop.portal.Desktop";
inline constexpr char kPortalPath[] = "/org/freedesktop/portal/desktop";
