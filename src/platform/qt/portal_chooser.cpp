// All calls are asynchronous: a portal that hangs must not stop the window.
#include "platform/qt/portal_chooser.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QUuid>
#include <QWindow>

#include "platform/qt/portal_names.h"
#include "platform/qt/qt_text.h"

namespace {

constexpr char kChooser[] = "org.freedesktop.portal.FileChooser";
constexpr char kRequest[] = "org.freedesktop.portal.Request";

// How long the portal may take to accept the question. The bus may have to start it first.
constexpr int kPatienceMs = 3000;

// A row of file types in the portal's form, which the bus calls a(sa(us)). Kind 0 is a pattern.
struct PortalGlob {
    uint Kind = 0;
    QString Pattern;
};
struct PortalFilter {
    QString Label;
    QList<PortalGlob> Globs;
};

QDBusArgument& operator<<(QDBusArgument& out, const PortalGlob& glob) {
    out.beginStructure();
    out << glob.Kind << glob.Pattern;
    out.endStructure();
    return out;
}

// The toolkit wants both ways, but filters are only sent.
const QDBusArgument& operator>>(const QDBusArgument& in, PortalGlob&) {
    return in;
}

QDBusArgument& operator<<(QDBusArgument& out, const PortalFilter& filter) {
    out.beginStructure();
    out << filter.Label << filter.Globs;
    out.endStructure();
    return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, PortalFilter&) {
    return in;
}

// The window that the chooser belongs to, as portals name it. On Wayland a window has no such name
// unless it is exported, and the toolkit has no public call for that: there it belongs to none.
QString WindowName(const QWindow* owner) {
    if (!owner || QGuiApplication::platformName() != QStringLiteral("xcb")) return {};
    return QStringLiteral("x11:") + QString::number(owner->winId(), 16);
}

QVariantMap Options(const FileQuestion& question, const QString& token) {
    QVariantMap options{{QStringLiteral("handle_token"), token},
                        {QStringLiteral("modal"), true},
                        {QStringLiteral("multiple"), false},
                        // The portal wants a NUL at the end of this path.
                        {QStringLiteral("current_folder"), question.Directory + '\0'}};
    QList<PortalFilter> filters;
    for (const FilterRow& row : question.Rows)
        filters.append({ToQString(row.Label), {{0, PortalPattern(row.Pattern)}}});
    if (!filters.isEmpty()) {
        options.insert(QStringLiteral("filters"), QVariant::fromValue(filters));
        options.insert(QStringLiteral("current_filter"), QVariant::fromValue(filters.first()));
    }
    return options;
}

} // namespace

QString PortalPattern(const Text& pattern) {
    if (pattern == u"*.*") return QStringLiteral("*");
    QString portal;
    for (const QChar letter : ToQString(pattern)) {
        if (letter.toLower() == letter.toUpper())
            portal += letter;
        else
            portal += QStringLiteral("[%1%2]").arg(letter.toLower()).arg(letter.toUpper());
    }
    return portal;
}

QByteArray PathOfUri(const QString& uri) {
    // QUrl would lose the bytes of a path that isn't UTF-8.
    const QByteArray bytes = uri.toUtf8();
    if (!bytes.toLower().startsWith("file://")) return {};
    const qsizetype path = bytes.indexOf('/', 7);
    return path < 0 ? QByteArray() : QByteArray::fromPercentEncoding(bytes.mid(path));
}

PortalAnswer AskPortal(QWindow* owner, const FileQuestion& question) {
    if (!QDBusConnection::sessionBus().isConnected()) return {};
    PortalRequest request(owner);
    return request.Ask(question);
}

PortalRequest::PortalRequest(QWindow* owner) : m_owner(owner) {
    setAttribute(Qt::WA_DontShowOnScreen);
}

PortalAnswer PortalRequest::Ask(const FileQuestion& question) {
    qDBusRegisterMetaType<PortalGlob>();
    qDBusRegisterMetaType<QList<PortalGlob>>();
    qDBusRegisterMetaType<PortalFilter>();
    qDBusRegisterMetaType<QList<PortalFilter>>();

    QDBusConnection bus = QDBusConnection::sessionBus();
    QDBusServiceWatcher life(QString::fromLatin1(kPortalService), bus,
                             QDBusServiceWatcher::WatchForOwnerChange);
    // Of a portal that another one has replaced no answer will come. One may be started for us.
    connect(&life, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString& before) {
                if (!before.isEmpty()) Finish(PortalOutcome::NoPortal);
            });
    bus.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                SLOT(OnDisconnected()));

    const QString token = QStringLiteral("velora") + QUuid::createUuid().toString(QUuid::Id128);
    const QString sender = bus.baseService().mid(1).replace(QLatin1Char('.'), QLatin1Char('_'));
    // Before the question is sent, so that a quick answer isn't missed.
    Listen(QString::fromLatin1(kPortalPath) + QStringLiteral("/request/") + sender +
           QLatin1Char('/') + token);
    Send(question, token);
    exec();
    return m_answer;
}

void PortalRequest::Listen(const QString& requestPath) {
    m_requestPath = requestPath;
    QDBusConnection::sessionBus().connect(QString::fromLatin1(kPortalService), requestPath,
                                          QString::fromLatin1(kRequest), QStringLiteral("Response"),
                                          this, SLOT(OnResponse(uint, QVariantMap)));
}

void PortalRequest::Send(const FileQuestion& question, const QString& token) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        QString::fromLatin1(kPortalService), QString::fromLatin1(kPortalPath),
        QString::fromLatin1(kChooser), QStringLiteral("OpenFile"));
    call << WindowName(m_owner) << question.Title << Options(question, token);
    auto* accepted = new QDBusPendingCallWatcher(
        QDBusConnection::sessionBus().asyncCall(call, kPatienceMs), this);
    connect(accepted, &QDBusPendingCallWatcher::finished, this, [this, accepted] {
        const QDBusPendingReply<QDBusObjectPath> reply = *accepted;
        if (reply.isError()) {
            // It may only be slow: its chooser must not open beside the toolkit's.
            CloseRequest();
            Finish(PortalOutcome::NoPortal);
        } else if (reply.value().path() != m_requestPath) {
            // Old portals answer at a path of their own choice.
            Listen(reply.value().path());
        }
    });
}

void PortalRequest::CloseRequest() {
    QDBusConnection::sessionBus().send(
        QDBusMessage::createMethodCall(QString::fromLatin1(kPortalService), m_requestPath,
                                       QString::fromLatin1(kRequest), QStringLiteral("Close")));
}

void PortalRequest::OnResponse(uint response, const QVariantMap& results) {
    const QStringList uris = results.value(QStringLiteral("uris")).toStringList();
    if (response == 0 && !uris.isEmpty()) m_answer.Path = PathOfUri(uris.constFirst());
    Finish(m_answer.Path.isEmpty() ? PortalOutcome::Cancelled : PortalOutcome::Chosen);
}

void PortalRequest::OnDisconnected() {
    Finish(PortalOutcome::NoPortal);
}

void PortalRequest::Finish(PortalOutcome outcome) {
    m_answer.Outcome = outcome;
    done(QDialog::Accepted);
}
