// The toolkit's dialogs as the program asks for them, and what its file chooser takes from its name
// field.
#include "platform/qt/qt_dialogs.h"

#include "platform/paths.h"
#include "platform/qt/portal_chooser.h"
#include "platform/qt/toolkit_chooser.h"
#include "qt_fixture.h"
#include "support/temp_directory.h"

namespace {

class QtDialogsTest : public QtWindowTest {
protected:
    QtDialogsTest() {
        qputenv("HOME", QByteArray::fromStdString(m_home.Path()));
        for (const char* name : {"some/a.mp3", "some/b \"c\".mp3"})
            m_home.Put(name, "\x89PNG\r\n\x1a\n");
    }

    // Asks for a file, and runs `answer` once the chooser is up.
    Text Choose(const std::function<void()>& answer, const Text& directory = {}) {
        WhenUp<ToolkitChooser>([&](ToolkitChooser& chooser) {
            m_chooser = &chooser;
            answer();
        });
        return m_dialogs.ChooseFile(u"Select", directory,
                                    {{u"MP3 Files", u"*.mp3"}, {u"All", u"*.*"}});
    }

    QLineEdit& Name() { return *m_chooser->findChild<QLineEdit*>("fileNameEdit"); }

    void Enter(const char* name) {
        Name().setText(name);
        m_chooser->accept();
        // Where a directory was opened instead, the question still stands.
        if (m_chooser->isVisible()) m_chooser->reject();
    }

    TempDirectory m_home;
    QtDialogs m_dialogs{m_window};
    ToolkitChooser* m_chooser = nullptr;
};

} // namespace

TEST_F(QtDialogsTest, AMessageHasTheAnswerThatWasGivenAndKeepsTheWindowFromClosing) {
    using enum MessageAnswer;
    const auto ask = [&](MessageButtons buttons, MessageIcon icon, int button, auto answer) {
        QString shown;
        m_form.Caption = buttons == MessageButtons::Ok ? u"one" : u"two";
        WhenUp<QMessageBox>([&](QMessageBox& box) {
            shown =
                box.windowTitle() + "|" + box.text() + "|" +
                (box.textFormat() == Qt::PlainText ? "" : "rich") + QString::number(box.icon()) +
                (box.windowHandle()->transientParent() == &m_window ? "|before " + m_window.title()
                                                                    : "") +
                (box.width() < 240 ? "|narrow" : "");
            for (const QAbstractButton* each : box.buttons())
                shown += "|" + each->text();
            EXPECT_FALSE(m_window.close());
            button < 0 ? box.reject() : box.buttons().at(button)->click();
        });
        EXPECT_EQ(m_dialogs.MessageBox(u"<b>Hi", buttons, icon), answer);
        return shown.toStdString();
    };
    m_window.ShowFirst();
    EXPECT_EQ(ask(MessageButtons::Ok, MessageIcon::None, 0, Ok), "Velora|<b>Hi|0|before one|OK");
    for (const auto& [button, answer] : {std::pair(0, Yes), {1, No}, {-1, No}})
        EXPECT_EQ(ask(MessageButtons::YesNo, MessageIcon::Question, button, answer),
                  "Velora|<b>Hi|4|before two|&Yes|&No");
    EXPECT_FALSE(m_window.close());
    EXPECT_EQ(Taken(), "window visible;") << "not from inside the toolkit's call";
    m_loop.Turn();
    EXPECT_EQ(Taken(), "close;") << "and not while a dialog is up";
}

TEST_F(QtDialogsTest, EachQuestionBeginsAnewWhereTheLastFileWasAndNoFileIsReadForItsIcon) {
    m_window.ShowFirst();
    const auto ask = [&](const Text& directory, const char* typed, const Text& chosen) {
        QString shown;
        const Text answer = Choose(
            [&] {
                shown =
                    m_chooser->windowTitle() + "|" + m_chooser->nameFilters().join(";") + "|" +
                    m_chooser->selectedNameFilter().section(" (", 0, 0) + "|" + Name().text() +
                    (Name().completer() ? "|proposals" : "") +
                    (m_chooser->windowHandle()->transientParent() == &m_window ? "|owned|" : "|") +
                    QString::number(m_chooser->fileMode() + m_chooser->options().toInt()) + "|" +
                    QDir::home().relativeFilePath(m_chooser->directory().path());
                m_chooser->selectNameFilter("All (*)");
                Enter(typed);
            },
            directory);
        EXPECT_EQ(answer, chosen);
        EXPECT_EQ(m_chooser->iconProvider()->type(QFileInfo(QDir::home(), "some/a.mp3")), "MP3")
            << "it isn't read for its icon";
        EXPECT_FALSE(Name().completer()) << "the proposals are let go with the dialog";
        EXPECT_TRUE(m_chooser->findChild<QFileSystemModel*>()->testOption(
            QFileSystemModel::DontWatchForChanges))
            << "no file that changes wakes the program later";
        return shown.toStdString();
    };
    const std::string anew = "Select|MP3 Files (*.mp3);All (*)|MP3 Files||proposals|owned|57|";
    EXPECT_EQ(ask(u"", "", u""), anew + ".");
    m_home.Put("Music/e.mp3", "x");
    EXPECT_EQ(ask(u"\\none", ".././some/b \"c\".mp3", m_home.PathText("some/b \"c\".mp3")),
              anew + "Music");
    EXPECT_EQ(ask(u"", "", u""), anew + "some");
    std::filesystem::create_directory_symlink(m_home.Path("Music"), m_home.Path("some/link"));
    EXPECT_EQ(ask(u"", "link/../some/a.mp3\r\n", m_home.PathText("some/link/../some/a.mp3")),
              anew + "some")
        << "the file that was tested is the file that is given";
    EXPECT_EQ(ask(u"", "", u""), anew + "some");
    EXPECT_EQ(ask(m_home.PathText("mUSIC"), "../some", u""), anew + "Music");
}

TEST(Portal, MindsTheCaseOfPatternsAndTheBytesOfPaths) {
    EXPECT_EQ(PortalPattern(u"*.mp3"), "*.[mM][pP]3");
    EXPECT_EQ(PortalPattern(u"*.*"), "*");
    for (const auto& [uri, path] : {std::pair("file:///a/b%20%FF%25", "/a/b \xFF%"),
                                    {"FILE://host/x", "/x"},
                                    {"file://host", ""},
                                    {"http://host/x", ""}})
        EXPECT_EQ(PathOfUri(uri).toStdString(), path);
}

TEST_F(QtDialogsTest, ALateSelectionALateKeyAndAQuestionWithinAQuestionDoNoHarm) {
    QAbstractItemView* proposals = nullptr;
    Text further = u"none yet";
    const Text chosen = Choose([&] {
        proposals = Name().completer()->popup();
        // While the field has the focus a selection doesn't write its name there.
        m_chooser->activateWindow();
        m_loop.Turn();
        Name().setFocus();
        Name().setText("some/a.mp3");
        auto& view = *m_chooser->findChild<QAbstractItemView*>("listView");
        auto& model = *qobject_cast<QFileSystemModel*>(view.model());
        using enum QItemSelectionModel::SelectionFlag;
        view.selectionModel()->select(model.index(QDir::home().filePath("some")),
                                      ClearAndSelect | Rows);
        proposals->show();
        Enter("some/a.mp3");
        further = Choose([&] { m_chooser->reject(); });
    });
    EXPECT_EQ(chosen, m_home.PathText("some/a.mp3"));
    EXPECT_EQ(further, u"");
    EXPECT_FALSE(proposals->isVisible());
    for (const QEvent::Type type : {QEvent::ShortcutOverride, QEvent::KeyPress}) {
        QKeyEvent key(type, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(proposals, &key);
    }
}
