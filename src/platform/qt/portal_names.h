// Where the desktop's portal stands on the session bus; its chooser and its settings are both asked
// there.
#pragma once

inline constexpr char kPortalService[] = "org.freedesktop.portal.Desktop";
inline constexpr char kPortalPath[] = "/org/freedesktop/portal/desktop";
