// Each dialog runs a loop of the toolkit's own, in which everything else goes on.
#include "platform/qt/qt_dialogs.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QDir>
#include <QFile>
#include <QGridLayout>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QStandardPaths>
#include <algorithm>

#include "platform/paths.h"
#include "platform/qt/qt_icon.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_window.h"

namespace {

constexpr char kApplicationName[] = "Velora";

// A row as the toolkit wants it: the label, and behind it the pattern, which is then hidden. All files are
// `*` there; `*.*` would leave out those without a point.
QString NameFilter(const FilterRow& row) {
    const QString pattern = row.Pattern == u"*.*" ? QStringLiteral("*") : ToQString(row.Pattern);
    return ToQString(row.Label) + QStringLiteral(" (") + pattern + QStringLiteral(")");
}

// Runs the chooser. The list of proposals for its name field is a window of its own, which can outlast it or
// come up behind it, and would swallow the next press on the window; so it is let go with the dialog.
bool RunChooser(QFileDialog& chooser) {
    auto* name = chooser.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    auto* proposals = chooser.findChild<QCompleter*>();
    if (name && proposals) name->setCompleter(proposals);
    const bool chosen = chooser.exec() == QDialog::Accepted;
    if (name && proposals) {
        name->setCompleter(nullptr);
        proposals->popup()->hide();
    }
    return chosen;
}

// A short text alone would make a box so narrow that its caption is cut.
void MakeRoomForCaption(QMessageBox& box) {
    constexpr int kLeastWidthPx = 240;
    if (auto* grid = dynamic_cast<QGridLayout*>(box.layout()))
        grid->addItem(new QSpacerItem(kLeastWidthPx, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

} // namespace

// A dialog that belongs to a window which never came up would not be centred on anything.
QWidget* QtDialogs::Owner() {
    m_owner.Present();
    ShowProgramIcon();
    m_owner.FollowDesktop();
    return m_owner.isVisible() ? &m_owner : nullptr;
}

MessageAnswer QtDialogs::MessageBox(const Text& text, MessageButtons buttons, MessageIcon icon) {
    QMessageBox box(Owner());
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
    QInputDialog box(Owner());
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

QByteArray QtDialogs::ChooseByToolkit(QWidget* owner, const PortalQuestion& question) {
    if (!m_chooser) {
        m_chooser = new QFileDialog;
        m_chooser->setFileMode(QFileDialog::ExistingFile);
        m_chooser->setAcceptMode(QFileDialog::AcceptOpen);
        m_chooser->setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::HideNameFilterDetails |
                              QFileDialog::ReadOnly);
    }
    m_chooser->setParent(owner, m_chooser->windowFlags());
    m_chooser->setWindowTitle(question.Title);
    QStringList filters;
    for (const FilterRow& row : question.Rows)
        filters.append(NameFilter(row));
    m_chooser->setNameFilters(filters);
    if (!filters.isEmpty()) m_chooser->selectNameFilter(filters.first());
    m_chooser->setDirectory(QFile::decodeName(question.Directory));
    m_chooser->selectFile(QString());
    if (!RunChooser(*m_chooser) || m_chooser->selectedFiles().isEmpty()) return {};
    return QFile::encodeName(m_chooser->selectedFiles().constFirst());
}

Text QtDialogs::ChooseFile(const Text& title, const Text& directory, const std::vector<FilterRow>& rows) {
    QWidget* owner = Owner();
    const PortalQuestion question{ToQString(title), FirstDirectory(directory), rows};
    PortalAnswer answer;
    if (!m_noPortal) answer = AskPortal(owner, question);
    m_noPortal = answer.Outcome == PortalOutcome::NoPortal;
    if (m_noPortal) answer.Path = ChooseByToolkit(owner, question);
    if (answer.Path.isEmpty()) return {};
    m_lastDirectory = answer.Path.left(std::max<qsizetype>(answer.Path.lastIndexOf('/'), 1));
    return PathText(std::string_view(answer.Path.constData(), static_cast<std::size_t>(answer.Path.size())));
}
