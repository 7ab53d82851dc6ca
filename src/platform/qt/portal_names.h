// Where the desktop's portal is on the session bus, for both who ask it: the file chooser and the
// desktop's look.
#pragma once

inline constexpr char kPortalService[] = "org.freedesktop.portal.Desktop"; ///< Its name on the bus.
inline constexpr char kPortalPath[] = "/org/freedesktop/portal/desktop";   ///< Its one object.
