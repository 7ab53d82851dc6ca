// The desktop's own file chooser, asked for over the session bus: the portal
// org.freedesktop.portal.FileChooser (https://flatpak.github.io/xdg-desktop-portal/docs/). The bus
// isn't spoken to before a file is asked for.
#pragma once

#include <QByteArray>
#include <QDialog>
#include <QString>
#include <QVariantMap>

#include "platform/qt/file_question.h"

enum class PortalOutcome {
    Chosen,
    Cancelled,
    NoPortal ///< None is there, it can't choose files, it doesn't answer, or it went away
             ///< meanwhile.
};

struct PortalAnswer {
    PortalOutcome Outcome = PortalOutcome::NoPortal;
    QByteArray Path; ///< Of the chosen file, byte for byte.
};

/// Asks the portal and returns when the user has answered; everything else goes on, and `owner` is
/// blocked as by a dialog of the toolkit. Without an owner the chooser is centred by the desktop.
[[nodiscard]] PortalAnswer AskPortal(QWidget* owner, const FileQuestion& question);

/// A row's pattern for the portal, which minds the case of letters: `*.mp3` is `*.[mM][pP]3`; `*.*`
/// is `*`.
[[nodiscard]] QString PortalPattern(const Text& pattern);

/// The bytes of the path that a `file:` URI names; empty for any other URI.
[[nodiscard]] QByteArray PathOfUri(const QString& uri);

/// The toolkit's part in the question: an unseen dialog that blocks the window and waits for the
/// answer.
class PortalRequest : public QDialog {
    Q_OBJECT
public:
    explicit PortalRequest(QWidget* owner);

    [[nodiscard]] PortalAnswer Ask(const FileQuestion& question);

public slots:
    /// The request's one signal. `response`: 0 chosen, 1 cancelled, 2 closed some other way.
    void OnResponse(uint response, const QVariantMap& results);

private:
    void Listen(const QString& requestPath);
    void Send(const FileQuestion& question, const QString& token);
    void CloseRequest();
    void Finish(PortalOutcome outcome);

    PortalAnswer m_answer;
    QString m_requestPath;
};
