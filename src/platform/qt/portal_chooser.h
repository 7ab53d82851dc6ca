// The desktop's own file chooser, a service on the session bus: the portal
// org.freedesktop.portal.FileChooser (https://flatpak.github.io/xdg-desktop-portal/docs/).
#pragma once

#include <QByteArray>
#include <QDialog>
#include <QString>
#include <QVariantMap>

#include "platform/qt/file_question.h"

/// How a question to the portal ended.
enum class PortalOutcome {
    Chosen,
    Cancelled,
    NoPortal ///< None is there, it can't choose files, it is silent, or it ended meanwhile.
};

/// What a question to the portal gave.
struct PortalAnswer {
    PortalOutcome Outcome = PortalOutcome::NoPortal;
    QByteArray Path; ///< Of the chosen file, byte for byte; empty if none was chosen.
};

/// Asks the portal and returns when the user has answered. Meanwhile events go on, and `owner` is
/// blocked as by a dialog of the toolkit. `owner` may be null; the desktop then places the chooser.
[[nodiscard]] PortalAnswer AskPortal(QWindow* owner, const FileQuestion& question);

/// A `FilterRow`'s pattern in the portal's form. There letters match in their own case only, so
/// `*.mp3` becomes `*.[mM][pP]3`; and `*.*` would want a point, so it becomes `*`.
[[nodiscard]] QString PortalPattern(const Text& pattern);

/// The bytes of the path that a `file:` URI names; empty for any other URI.
[[nodiscard]] QByteArray PathOfUri(const QString& uri);

/// One question to the portal. It is a dialog of the toolkit that is never visible: it blocks the
/// owner and waits for the answer, as a visible one would.
class PortalRequest : public QDialog {
    Q_OBJECT
public:
    explicit PortalRequest(QWindow* owner);

    /// As `AskPortal`, once. Needs a session bus.
    [[nodiscard]] PortalAnswer Ask(const FileQuestion& question);

public slots:
    /// The portal's answer. `response`: 0 chosen, 1 cancelled, 2 closed in some other way.
    void OnResponse(uint response, const QVariantMap& results);
    /// The bus is gone, and the answer with it.
    void OnDisconnected();

private:
    void Listen(const QString& requestPath);
    void Send(const FileQuestion& question, const QString& token);
    void CloseRequest();
    void Finish(PortalOutcome outcome);

    QWindow* m_owner;
    PortalAnswer m_answer;
    QString m_requestPath;
};
