// The connection is lent by the toolkit, which knows on which platform it runs.
#include "platform/qt/qt_server.h"

#include <QGuiApplication>
#include <QWindow>

X11Window ServerWindow(const QWindow& handle) {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11) return {};
    return {x11->connection(), static_cast<std::uint32_t>(handle.winId())};
}
