// Each procedure here mends something that the toolkit's chooser does and no user would expect.
#include "platform/qt/toolkit_chooser.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QDir>
#include <QFile>
#include <QFileIconProvider>
#include <QFileSystemModel>

#include "platform/qt/qt_owner.h"
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

// A path that was pasted may bring its line end along, in which a field has other letters.
QString WithoutLineEnd(QString name) {
    while (name.endsWith(u'\n') || name.endsWith(u'\r') || name.endsWith(QChar::LineSeparator))
        name.chop(1);
    return name;
}

} // namespace

ToolkitChooser::ToolkitChooser() {
    setFileMode(QFileDialog::ExistingFile);
    setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::HideNameFilterDetails |
               QFileDialog::ReadOnly);
    // Never destroyed, like the chooser itself.
    setIconProvider(new PlainIcons);
    if (QLineEdit* name = NameField())
        connect(name, &QLineEdit::textEdited, this,
                [this](const QString& text) { m_typed = text; });
}

QLineEdit* ToolkitChooser::NameField() const {
    return findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
}

QByteArray ToolkitChooser::Ask(QWindow* owner, const FileQuestion& question) {
    // After the answer, but before exec() returns, a press on the owner can ask again.
    if (m_asking) return {};
    m_asking = true;
    PutBefore(*this, owner);
    setWindowTitle(question.Title);
    QStringList filters;
    for (const FilterRow& row : question.Rows)
        filters.append(NameFilter(row));
    setNameFilters(filters);
    if (!filters.isEmpty()) selectNameFilter(filters.first());
    Watch(true);
    setDirectory(QFile::decodeName(question.Directory));
    // The toolkit would leave the last answer in it if the directory is the same.
    if (QLineEdit* name = NameField()) name->clear();
    m_typed.clear();
    const bool chosen = Run();
    Watch(false);
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

// The toolkit would look after the directory for good, and wake the program whenever a file in it
// changes.
void ToolkitChooser::Watch(bool on) {
    if (auto* model = findChild<QFileSystemModel*>())
        model->setOption(QFileSystemModel::DontWatchForChanges, !on);
}

// The file that the name field means; nothing if it means none. The proposals can put the beginning
// of a name into the field that was typed in full, while the Return is on its way.
QString ToolkitChooser::TypedFile() const {
    const QLineEdit* name = NameField();
    if (!name) return {};
    const QString shown = directory().absoluteFilePath(WithoutLineEnd(name->text()));
    if (QFileInfo(shown).isFile()) return shown;
    const QString typed = directory().absoluteFilePath(WithoutLineEnd(m_typed));
    return typed.startsWith(shown) && QFileInfo(typed).isFile() ? typed : QString();
}

// The chooser takes the row that is selected in its list. The selection follows the name field with
// a delay: after quick typing it can still be a directory whose name begins alike, and the toolkit
// would open that one. So the text of the field decides.
void ToolkitChooser::accept() {
    const QString typed = TypedFile();
    if (!typed.isEmpty()) {
        // To take a `..` behind a link out of the text could name another file.
        const QString plain = QDir::cleanPath(typed);
        const bool same =
            QFileInfo(plain).canonicalFilePath() == QFileInfo(typed).canonicalFilePath();
        m_path = same ? plain : typed;
        QDialog::accept();
        return;
    }
    QFileDialog::accept();
    const QStringList chosen = selectedFiles();
    if (!chosen.isEmpty()) m_path = chosen.constFirst();
}
