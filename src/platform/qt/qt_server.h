// The X server behind a window of the toolkit's.
#pragma once

#include <QPoint>
#include <optional>

#include "platform/x11/x11_window.h"

class QWindow;

/// Whether an X server shows the program's windows. It cuts a window to its mask by itself.
[[nodiscard]] bool HasServer();

/// `handle` as the X server knows it. Without a connection where another platform shows it.
[[nodiscard]] X11Window ServerWindow(const QWindow& handle);

/// The corner of the client area of `handle` on the desktop, in the toolkit's coordinates, by the
/// server's own word. The toolkit can be told a wrong one when a manager takes up a new window.
/// Nothing where another platform shows it, or if the server is gone.
[[nodiscard]] std::optional<QPoint> PlaceOnServer(const QWindow& handle);
