// Each procedure here mends something that the toolkit's chooser does and no user would expect.
#include "platform/qt/toolkit_chooser.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QDir>
#include <QFile>
#include <QFileIconProvider>

#include "platform/qt/qt_text.h"

namespace {

// A row in the toolkit's form: the label, then the pattern, which the chooser hides. All files are
// `*` there; `*.*` would leave out names without a point.
QString NameFilter(const FilterRow& row) {
    const QString pattern = row.Pattern == u"*.*" ? QStringLiteral("*") : ToQString(row.Pattern);
    return ToQString(row.Label) + QStringLiteral(" (") + pattern + QStringLiteral(")");
}

// The toolkit would read each file to find an icon for it, on the window's thread. A file that
// can't be read at once would stop the whole program.
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
    // Never destroyed, like the chooser itself.
    setIconProvider(new PlainIcons);
}

QLineEdit* ToolkitChooser::NameField() const {
    return findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
}

QByteArray ToolkitChooser::Ask(QWidget* owner, const FileQuestion& question) {
    // After the answer, but before exec() returns, a press on the owner can ask again.
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
    // The toolkit would leave the last answer in it if the directory is the same.
    if (QLineEdit* name = NameField()) name->clear();
    const bool chosen = Run();
    m_asking = false;
    return chosen ? QFile::encodeName(m_path) : QByteArray();
}

// While the user types, the name field opens a list of proposals, which is a window of its own. It
// can stay open when the dialog closes, or open only then, and would take the next press that is
// meant for our window. So the field has its list only while the dialog runs. The list passes keys
// on to its field; without a field a late key would crash it, so it gets no keys either.
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

// The chooser takes the row that is selected in its list. The selection follows the name field with
// a delay: after quick typing it can still be a directory whose name begins alike, and the toolkit
// would open that one. So the text of the field decides.
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
