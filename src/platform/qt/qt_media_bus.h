// The player on the session bus, as MPRIS 2 wants it.
#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <functional>

#include "platform/media_bus.h"
#include "platform/qt/qt_loop.h"

/// One object with both interfaces. Messages are read by hand, since what the toolkit makes of
/// properties neither tells of changes nor names the errors that are wanted.
class QtMediaBus : public QDBusVirtualObject, public MediaBus {
public:
    /// Nothing touches the bus before `Appear`.
    explicit QtMediaBus(QtLoop& loop) : m_loop(loop) {}

    void Appear(MediaRequests& requests) override;
    void Disappear() override;
    void TellChanged(std::span<const MediaProperty> changed) override;
    void TellSeeked(std::int64_t placeUs) override;

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    [[nodiscard]] QString introspect(const QString& path) const override;

private:
    void Send(const QDBusMessage& message) const;

    QtLoop& m_loop;
    MediaRequests* m_requests = nullptr;
    bool m_isThere = false;
};
