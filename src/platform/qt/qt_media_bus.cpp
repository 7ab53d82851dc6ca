// The object answers from the loop's thread; the toolkit's own thread only carries messages.
#include "platform/qt/qt_media_bus.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QVariantMap>

#include "platform/qt/mpris_answer.h"
#include "platform/qt/mpris_names.h"

namespace {

QDBusConnection Bus() {
    return QDBusConnection::sessionBus();
}

} // namespace

void QtMediaBus::Appear(MediaRequests& requests) {
    QDBusConnection bus = Bus();
    if (m_isThere || !bus.isConnected()) return;
    m_requests = &requests;
    m_isThere = bus.registerVirtualObject(QString::fromLatin1(kMprisPath), this);
    // A further player has a name of its own behind the point.
    const QString name = QString::fromLatin1(kMprisService);
    if (!bus.registerService(name))
        bus.registerService(
            QStringLiteral("%1.instance%2").arg(name).arg(QCoreApplication::applicationPid()));
}

void QtMediaBus::Disappear() {
    if (!m_isThere) return;
    QDBusConnection bus = Bus();
    const QString name = QString::fromLatin1(kMprisService);
    if (!bus.unregisterService(name))
        bus.unregisterService(
            QStringLiteral("%1.instance%2").arg(name).arg(QCoreApplication::applicationPid()));
    bus.unregisterObject(QString::fromLatin1(kMprisPath));
    m_isThere = false;
}

void QtMediaBus::Send(const QDBusMessage& message) const {
    if (m_isThere) Bus().send(message);
}

void QtMediaBus::TellChanged(std::span<const MediaProperty> changed) {
    if (!m_isThere) return;
    QVariantMap values;
    for (const MediaProperty property : changed) {
        const QString name = NameOfProperty(property);
        values[name] = PlayerProperty(name, *m_requests);
    }
    QDBusMessage message = QDBusMessage::createSignal(QString::fromLatin1(kMprisPath),
                                                      QString::fromLatin1(kProperties),
                                                      QStringLiteral("PropertiesChanged"));
    message << QString::fromLatin1(kMprisPlayer) << values << QStringList();
    Send(message);
}

void QtMediaBus::TellSeeked(std::int64_t placeUs) {
    QDBusMessage message =
        QDBusMessage::createSignal(QString::fromLatin1(kMprisPath),
                                   QString::fromLatin1(kMprisPlayer), QStringLiteral("Seeked"));
    message << static_cast<qlonglong>(placeUs);
    Send(message);
}

bool QtMediaBus::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    QDBusMessage answer;
    m_loop.Handle([&] { answer = AnswerTo(message, *m_requests); });
    if (answer.type() == QDBusMessage::InvalidMessage) return false;
    if (message.isReplyRequired()) connection.send(answer);
    return true;
}

QString QtMediaBus::introspect(const QString&) const {
    return MprisDescription();
}
