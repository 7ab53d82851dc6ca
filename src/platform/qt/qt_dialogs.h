// The modal dialogs, on the toolkit's own.
#pragma once

#include <QFileDialog>

#include "platform/dialogs.h"

class QtWindow;

class QtDialogs : public Dialogs {
public:
    /// `owner` is the window that the dialogs block once it shows. It is presented before each dialog.
    explicit QtDialogs(QtWindow& owner) : m_owner(owner) {}

    MessageAnswer MessageBox(const Text& text, MessageButtons buttons, MessageIcon icon) override;
    [[nodiscard]] Text InputBox(const Text& prompt, const Text& title) override;
    [[nodiscard]] Text ChooseFile(const Text& title, const Text& directory,
                                  const std::vector<FilterRow>& rows) override;

private:
    [[nodiscard]] QWidget* Owner();
    [[nodiscard]] QString FirstDirectory(const Text& directory) const;

    QtWindow& m_owner;
    QString m_lastDirectory;          ///< Of the file chosen last; empty before.
    QFileDialog* m_chooser = nullptr; ///< Made once and never destroyed: its end would write a settings file.
};
