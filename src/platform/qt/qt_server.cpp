// The connection is lent by the toolkit, which knows on which platform it runs.
#include "platform/qt/qt_server.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

bool HasServer() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // The toolkit's offscreen platform has the interface, but nothing behind it.
    return x11 && x11->connection();
}

X11Window ServerWindow(const QWindow& handle) {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11) return {};
    return {x11->connection(), static_cast<std::uint32_t>(handle.winId())};
}

std::optional<QPoint> PlaceOnServer(const QWindow& handle) {
    if (!handle.handle()) return std::nullopt;
    const X11Window server = ServerWindow(handle);
    if (!server.Connection) return std::nullopt;
    const std::optional<RootPlace> corner = CornerOf(server);
    if (!corner) return std::nullopt;
    // The corner of a screen is in the server's pixels in both, what is on it is scaled.
    const QPoint screen = handle.screen()->geometry().topLeft();
    const QPointF onScreen = QPointF(QPoint(corner->XPx, corner->YPx) - screen);
    return screen + (onScreen / handle.devicePixelRatio()).toPoint();
}
