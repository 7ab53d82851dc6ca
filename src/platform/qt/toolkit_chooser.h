// The toolkit's file chooser, for desktops without one of their own.
#pragma once

#include <QFileDialog>
#include <QLineEdit>

#include "platform/qt/file_question.h"

/// Made once and never destroyed: its end would write a settings file.
class ToolkitChooser : public QFileDialog {
public:
    ToolkitChooser();

    /// Asks, in front of `owner` if there is one; the bytes of the chosen file's path, empty if the
    /// user cancels.
    [[nodiscard]] QByteArray Ask(QWidget* owner, const FileQuestion& question);

    void accept() override;

private:
    [[nodiscard]] bool Run();
    /// Null if the toolkit has none of the name that it goes by.
    [[nodiscard]] QLineEdit* NameField() const;

    QString m_path;
    bool m_asking = false;
};
