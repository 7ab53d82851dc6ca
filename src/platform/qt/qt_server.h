// The X server behind a window of the toolkit's.
#pragma once

#include "platform/x11/x11_window.h"

class QWindow;

/// `handle` as the X server knows it. Without a connection where another platform shows it.
[[nodiscard]] X11Window ServerWindow(const QWindow& handle);
