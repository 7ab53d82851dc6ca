// What the toolkit's chooser does otherwise than a user would expect is mended here.
#include "platform/qt/toolkit_chooser.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QDir>
#include <QFile>
#include <QFileIconProvider>

#include "platform/qt/qt_text.h"

namespace {

// A row as the toolkit wants it: the label, and behind it the pattern, which is then hidden. All
// files are
// `*` there; `*.*` would leave out those without a point.
QString NameFilter(const FilterRow& row) {
    const QString pattern = row.Pattern == u"*.*" ? QStringLiteral("*") : ToQString(row.Pattern);
    return ToQString(row.Label) + QStringLiteral(" (") + pattern + QStringLiteral(")");
}

// The toolkit would look into files for an icon that fits, on the window's thread: one whose
// reading waits would hold up everything.
class PlainIcons : public QFileIconProvider {
public:
    using QFileIconProvider::icon;
    QIcon icon(const QFileInfo& file) const override { return icon(file.isDir() ? Folder : File); }
    QString type(const QFileInfo& file) const override {
        return file.isDir() ? QFileDialog::tr("Folder") : file.suffix().toUpper();
    }
};

} // namespace

ToolkitChooser::ToolkitChooser() {
    setFileMode(QFileDialog::ExistingFile);
    setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::HideNameFilterDetails |
               QFileDialog::ReadOnly);
    // Never destroyed, as the chooser isn't.
    setIconProvider(new PlainIcons);
}

QLineEdit* ToolkitChooser::NameField() const {
    return findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
}

QByteArray ToolkitChooser::Ask(QWidget* owner, const FileQuestion& question) {
    // A press on the owner can come between an answer and the return of its question.
    if (m_asking) return {};
    m_asking = true;
    setParent(owner, windowFlags());
    setWindowTitle(question.Title);
    QStringList filters;
    for (const FilterRow& row : question.Rows)
        filters.append(NameFilter(row));
    setNameFilters(filters);
    if (!filters.isEmpty()) selectNameFilter(filters.first());
    setDirectory(QFile::decodeName(question.Directory));
    // The toolkit keeps the last answer there as long as the directory is the same.
    if (QLineEdit* name = NameField()) name->clear();
    const bool chosen = Run();
    m_asking = false;
    return chosen ? QFile::encodeName(m_path) : QByteArray();
}

// The list of proposals for the name field is a window of its own, which can outlast the dialog or
// come up behind it, and would swallow the next press on the window; so it is let go with the
// dialog. A key that is on its way to that list by then would be handed on to a field that is none.
bool ToolkitChooser::Run() {
    QLineEdit* name = NameField();
    auto* proposals = findChild<QCompleter*>();
    if (!name || !proposals) return exec() == QDialog::Accepted;
    name->setCompleter(proposals);
    proposals->popup()->installEventFilter(proposals);
    const bool chosen = exec() == QDialog::Accepted;
    name->setCompleter(nullptr);
    proposals->popup()->hide();
    proposals->popup()->removeEventFilter(proposals);
    return chosen;
}

// The selection follows the name field from afar: after quick typing it can still be the directory
// that the name began with, and the toolkit would open that one. What stands in the field is what
// the user means.
void ToolkitChooser::accept() {
    const QLineEdit* name = NameField();
    const QString typed = name ? directory().absoluteFilePath(name->text()) : QString();
    if (QFileInfo(typed).isFile()) {
        m_path = QDir::cleanPath(typed);
        QDialog::accept();
        return;
    }
    QFileDialog::accept();
    const QStringList chosen = selectedFiles();
    if (!chosen.isEmpty()) m_path = chosen.constFirst();
}
