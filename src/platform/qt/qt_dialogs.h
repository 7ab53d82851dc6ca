// The modal dialogs: the toolkit's own and, for files, the desktop's where it has one.
#pragma once

#include <QByteArray>

#include "platform/dialogs.h"

class QtWindow;
class QWidget;
class ToolkitChooser;

class QtDialogs : public Dialogs {
public:
    /// `owner` is the window that the dialogs block once it shows. It is presented before each
    /// dialog.
    explicit QtDialogs(QtWindow& owner) : m_owner(owner) {}

    MessageAnswer MessageBox(const Text& text, MessageButtons buttons, MessageIcon icon) override;
    [[nodiscard]] Text InputBox(const Text& prompt, const Text& title) override;
    [[nodiscard]] Text ChooseFile(const Text& title, const Text& directory,
                                  const std::vector<FilterRow>& rows) override;

private:
    [[nodiscard]] QWidget* Owner();
    [[nodiscard]] QByteArray FirstDirectory(const Text& directory) const;

    QtWindow& m_owner;
    QByteArray m_lastDirectory;          ///< Of the file chosen last; empty before.
    bool m_noPortal = false;             ///< Known since the first question.
    ToolkitChooser* m_chooser = nullptr; ///< Made when first needed.
};
