// Which screens there are: one can go or shrink, and leave a window where nobody can see or reach
// it.
#pragma once

#include <QObject>
#include <functional>
#include <optional>
#include <span>

#include "platform/rect.h"

class QScreen;

/// Where a window has to go that `screens` don't show as a whole: to the nearest place on one of
/// them, to its left top corner as far as it is too large for it. Nothing if all of it is on
/// screens, or if there are none.
[[nodiscard]] std::optional<Rect> PlaceOnScreens(const Rect& window, std::span<const Rect> screens);

/// Brings the program's windows back onto a screen whenever one has gone or is another size, on
/// platforms that let a window choose its place. Not every manager does it, and without a manager
/// nobody else would.
class QtScreens : public QObject {
public:
    /// `changed` is called whenever a screen has gone or has another size or scale, before any
    /// window is brought back.
    explicit QtScreens(std::function<void()> changed);

private:
    void Watch(const QScreen& screen);
    /// Once the toolkit itself knows of all that has changed, and once more when others have
    /// answered it.
    void FollowSoon();
    void Follow() const;

    std::function<void()> m_changed;
};
