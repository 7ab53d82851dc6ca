// A window is left alone as long as no screen changes: where the user puts it is the user's affair.
#include "platform/qt/qt_screens.h"

#include <QGuiApplication>
#include <QRegion>
#include <QScreen>
#include <QTimer>
#include <QWindow>
#include <cstdlib>
#include <utility>
#include <vector>

#include "platform/qt/qt_move.h"
#include "platform/qt/qt_rect.h"
#include "platform/qt/qt_server.h"

namespace {

constexpr int kSettledMs = 1000;

Rect MovedInto(const Rect& window, const Rect& screen) {
    const std::int32_t width = window.Right - window.Left;
    const std::int32_t height = window.Bottom - window.Top;
    const std::int32_t left = std::max(screen.Left, std::min(window.Left, screen.Right - width));
    const std::int32_t top = std::max(screen.Top, std::min(window.Top, screen.Bottom - height));
    return {left, top, left + width, top + height};
}

std::int32_t Way(const Rect& from, const Rect& to) {
    return std::abs(to.Left - from.Left) + std::abs(to.Top - from.Top);
}

void BringBack(QWindow& window) {
    const std::optional<QPoint> corner = PlaceOnServer(window);
    if (!corner) return;
    std::vector<Rect> screens;
    for (const QScreen* screen : QGuiApplication::screens())
        screens.push_back(FromQRect(screen->geometry()));
    const QMargins frame = window.frameMargins();
    const Rect outer = FromQRect(QRect(*corner, window.size()).marginsAdded(frame));
    const std::optional<Rect> place = PlaceOnScreens(outer, screens);
    if (place) MoveTo(window, ToQRect(*place).marginsRemoved(frame).topLeft());
}

} // namespace

std::optional<Rect> PlaceOnScreens(const Rect& window, std::span<const Rect> screens) {
    QRegion unseen = ToQRect(window);
    std::optional<Rect> nearest;
    for (const Rect& screen : screens) {
        unseen -= ToQRect(screen);
        const Rect place = MovedInto(window, screen);
        if (!nearest || Way(window, place) < Way(window, *nearest)) nearest = place;
    }
    return unseen.isEmpty() ? std::nullopt : nearest;
}

QtScreens::QtScreens(std::function<void()> changed) : m_changed(std::move(changed)) {
    for (const QScreen* screen : QGuiApplication::screens())
        Watch(*screen);
    connect(qGuiApp, &QGuiApplication::screenAdded, this,
            [this](const QScreen* screen) { Watch(*screen); });
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &QtScreens::FollowSoon);
}

void QtScreens::Watch(const QScreen& screen) {
    connect(&screen, &QScreen::geometryChanged, this, &QtScreens::FollowSoon);
    connect(&screen, &QScreen::logicalDotsPerInchChanged, this, &QtScreens::FollowSoon);
}

void QtScreens::FollowSoon() {
    QTimer::singleShot(0, this, &QtScreens::Follow);
    // Meanwhile a manager may have moved a window, and another scale has given it another size.
    QTimer::singleShot(kSettledMs, this, &QtScreens::Follow);
}

void QtScreens::Follow() const {
    m_changed();
    for (QWindow* window : QGuiApplication::topLevelWindows())
        if (window->isVisible() && window->type() != Qt::Popup && window->type() != Qt::ToolTip)
            BringBack(*window);
}
