// The modal dialogs: the toolkit's, but for files the desktop's own chooser where there is one.
#pragma once

#include <QByteArray>

#include "platform/dialogs.h"

class QtWindow;
class QWindow;
class ToolkitChooser;

/// The dialogs of a window.
class QtDialogs : public Dialogs {
public:
    /// `owner` is the window in front of which the dialogs open, and which they block, once it is
    /// visible. Each dialog has it show its records first.
    explicit QtDialogs(QtWindow& owner) : m_owner(owner) {}

    MessageAnswer MessageBox(const Text& text, MessageButtons buttons, MessageIcon icon) override;
    [[nodiscard]] Text InputBox(const Text& prompt, const Text& title) override;
    [[nodiscard]] Text ChooseFile(const Text& title, const Text& directory,
                                  const std::vector<FilterRow>& rows) override;

private:
    [[nodiscard]] QWindow* Owner();
    [[nodiscard]] QByteArray FirstDirectory(const Text& directory) const;

    QtWindow& m_owner;
    QByteArray m_lastDirectory;          ///< Of the file chosen last; empty before the first.
    bool m_noPortal = false;             ///< The portal failed once; it isn't asked again.
    ToolkitChooser* m_chooser = nullptr; ///< Made when first needed.
};
