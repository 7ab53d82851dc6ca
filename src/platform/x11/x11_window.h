// What an X server and its window manager are asked past the toolkit, which reports a wish as if it
// had come true and keeps to itself which buttons are down.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/numbers.h"

struct xcb_connection_t;

/// A window of ours on an X server. The connection is the toolkit's and stays its own.
struct X11Window {
    xcb_connection_t* Connection = nullptr;
    std::uint32_t Id = 0;
};

/// Which mouse buttons are down by the server's own word, as a sum of `MouseButton`s. Waits for its
/// answer. Nothing if the server is gone.
[[nodiscard]] std::optional<Integer> ButtonsDown(const X11Window& window);

/// A place on the root window, in the server's pixels.
struct RootPlace {
    int XPx = 0;
    int YPx = 0;
};

/// Where the window's own corner, inside any frame, is by the server's word. Waits for its answer.
/// Nothing if the server is gone.
[[nodiscard]] std::optional<RootPlace> CornerOf(const X11Window& window);

/// Asks the window manager to minimise the window, and returns. It may do so late, or never;
/// without a manager nobody hears it. Source: ICCCM, 4.1.4.
void AskToMinimise(const X11Window& window);

/// Ends a move that the window manager was asked for, where it is going on still. Source: EWMH,
/// `_NET_WM_MOVERESIZE`.
void CancelMove(const X11Window& window);
