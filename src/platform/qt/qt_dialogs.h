// The modal dialogs: the toolkit's own and, for files, the desktop's where it has one.
#pragma once

#include <QFileDialog>

#include "platform/dialogs.h"
#include "platform/qt/portal_chooser.h"

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
    [[nodiscard]] QByteArray FirstDirectory(const Text& directory) const;
    [[nodiscard]] QByteArray ChooseByToolkit(QWidget* owner, const PortalQuestion& question);

    QtWindow& m_owner;
    QByteArray m_lastDirectory;       ///< Of the file chosen last; empty before.
    bool m_noPortal = false;          ///< Known since the first question.
    QFileDialog* m_chooser = nullptr; ///< Made once and never destroyed: its end would write a settings file.
};
