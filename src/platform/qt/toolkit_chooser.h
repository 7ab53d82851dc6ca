// The toolkit's file chooser, for desktops without a portal.
#pragma once

#include <QFileDialog>
#include <QLineEdit>

#include "platform/qt/file_question.h"

/// Made once and never destroyed: its end would write a settings file.
class ToolkitChooser : public QFileDialog {
public:
    ToolkitChooser();

    /// Shows the chooser, in front of `owner` unless that is null, and returns when the user has
    /// answered: the bytes of the chosen file's path, empty if the user cancels. Empty at once
    /// while an earlier question is still open.
    [[nodiscard]] QByteArray Ask(QWindow* owner, const FileQuestion& question);

    /// Called by the toolkit when the user confirms: takes the file whose name is in the name
    /// field; if that is none, does what the toolkit would do.
    void accept() override;

private:
    [[nodiscard]] bool Run();
    void Watch(bool on);
    [[nodiscard]] QString TypedFile() const;
    /// The field for the file's name, found by the name that it has inside the toolkit; null if a
    /// version of the toolkit names it otherwise.
    [[nodiscard]] QLineEdit* NameField() const;

    QString m_path;
    QString m_typed; ///< The name as the user's keys left it last.
    bool m_asking = false;
};
