// Each dialog runs an event loop of the toolkit, so timers and the player go on meanwhile.
#include "platform/qt/qt_dialogs.h"

#include <QDir>
#include <QFile>
#include <QGridLayout>
#include <QInputDialog>
#include <QMessageBox>
#include <QStandardPaths>
#include <algorithm>

#include "platform/paths.h"
#include "platform/qt/portal_chooser.h"
#include "platform/qt/qt_icon.h"
#include "platform/qt/qt_owner.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_window.h"
#include "platform/qt/toolkit_chooser.h"

namespace {

constexpr char kApplicationName[] = "Velora";

// With a short text the box would be too narrow for its caption.
void MakeRoomForCaption(QMessageBox& box) {
    constexpr int kLeastWidthPx = 240;
    if (auto* grid = dynamic_cast<QGridLayout*>(box.layout()))
        grid->addItem(new QSpacerItem(kLeastWidthPx, 0), grid->rowCount(), 0, 1,
                      grid->columnCount());
}

} // namespace

// Prepares the opening of a dialog. Before the window is visible the dialog belongs to none: the
// toolkit would centre it on a window that is nowhere.
QWindow* QtDialogs::Owner() {
    ShowProgramIcon();
    m_owner.PrepareDialog();
    return m_owner.isVisible() ? &m_owner : nullptr;
}

MessageAnswer QtDialogs::MessageBox(const Text& text, MessageButtons buttons, MessageIcon icon) {
    QMessageBox box;
    PutBefore(box, Owner());
    box.setWindowTitle(QString::fromLatin1(kApplicationName));
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQString(text));
    box.setIcon(icon == MessageIcon::Question ? QMessageBox::Question : QMessageBox::NoIcon);
    if (buttons == MessageButtons::Ok) {
        box.setStandardButtons(QMessageBox::Ok);
    } else {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setEscapeButton(QMessageBox::No);
    }
    MakeRoomForCaption(box);
    const int answer = box.exec();
    if (buttons == MessageButtons::Ok) return MessageAnswer::Ok;
    return answer == QMessageBox::Yes ? MessageAnswer::Yes : MessageAnswer::No;
}

Text QtDialogs::InputBox(const Text& prompt, const Text& title) {
    QInputDialog box;
    PutBefore(box, Owner());
    box.setWindowTitle(ToQString(title));
    box.setLabelText(ToQString(prompt));
    return box.exec() == QDialog::Accepted ? ToText(box.textValue()) : Text();
}

QByteArray QtDialogs::FirstDirectory(const Text& directory) const {
    if (const std::optional<std::string> found = FindPath(directory))
        return QByteArray::fromStdString(*found);
    if (!m_lastDirectory.isEmpty()) return m_lastDirectory;
    const QString music = QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
    return QFile::encodeName(QDir(music).exists() ? music : QDir::homePath());
}

Text QtDialogs::ChooseFile(const Text& title, const Text& directory,
                           const std::vector<FilterRow>& rows) {
    QWindow* owner = Owner();
    const FileQuestion question{ToQString(title), FirstDirectory(directory), rows};
    PortalAnswer answer;
    if (!m_noPortal) answer = AskPortal(owner, question);
    m_noPortal = answer.Outcome == PortalOutcome::NoPortal;
    if (m_noPortal) {
        if (!m_chooser) m_chooser = new ToolkitChooser;
        answer.Path = m_chooser->Ask(owner, question);
    }
    if (answer.Path.isEmpty()) return {};
    m_lastDirectory = answer.Path.left(std::max<qsizetype>(answer.Path.lastIndexOf('/'), 1));
    return PathText(
        std::string_view(answer.Path.constData(), static_cast<std::size_t>(answer.Path.size())));
}
