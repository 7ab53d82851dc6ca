// The toolkit's dialogs as the program asks for them, and what its file chooser takes from its name field.
#include "platform/qt/qt_dialogs.h"

#include <QAbstractFileIconProvider>
#include <QAbstractItemView>
#include <QCompleter>
#include <QFileSystemModel>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QWindow>

#include "platform/paths.h"
#include "platform/qt/portal_chooser.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/toolkit_chooser.h"
#include "qt_fixture.h"
#include "support/temp_directory.h"

namespace {

class QtDialogsTest : public QtWindowTest {
protected:
    QtDialogs m_dialogs{m_window};
};

class ToolkitChooserTest : public QtWindowTest {
protected:
    ToolkitChooserTest() {
        for (const char* name : {"music/a.mp3", "b \"c\".mp3", "d.mp3"})
            m_home.Put(name, "x");
    }

    // Asks, and runs `answer` once the chooser is up.
    std::string Ask(const std::function<void()>& answer) {
        QTimer::singleShot(0, &m_chooser, answer);
        const QByteArray directory = QByteArray::fromStdString(m_home.Path());
        return m_chooser.Ask(&m_window, {"Select", directory, {{u"MP3 Files", u"*.mp3"}, {u"All", u"*.*"}}})
            .toStdString();
    }

    // Where a directory was opened instead, the question still stands.
    void AcceptOrReject() {
        m_chooser.accept();
        if (m_chooser.isVisible()) m_chooser.reject();
    }

    QLineEdit& Name() { return *m_chooser.findChild<QLineEdit*>("fileNameEdit"); }

    TempDirectory m_home;
    ToolkitChooser& m_chooser = *new ToolkitChooser; // As in the program, it outlives everything.
};

} // namespace

TEST_F(QtDialogsTest, AMessageHasTheAnswerThatWasGivenAndKeepsTheWindowFromClosing) {
    using enum MessageAnswer;
    const auto ask = [&](MessageButtons buttons, MessageIcon icon, int button, MessageAnswer expected) {
        QString shown;
        WhenUp<QMessageBox>([&](QMessageBox& box) {
            shown = box.windowTitle() + "|" + box.text() +
                    (box.textFormat() == Qt::PlainText ? "|" : "|rich") + QString::number(box.icon()) +
                    (box.parentWidget() ? "|owned" : "") + (box.width() < 240 ? "|narrow" : "");
            for (const QAbstractButton* each : box.buttons())
                shown += "|" + each->text();
            EXPECT_FALSE(m_window.close());
            button < 0 ? box.reject() : box.buttons().at(button)->click();
        });
        EXPECT_EQ(m_dialogs.MessageBox(u"<b>Hi", buttons, icon), expected);
        return shown.toStdString();
    };
    EXPECT_EQ(ask(MessageButtons::Ok, MessageIcon::None, -1, Ok), "Velora|<b>Hi|0|OK");
    m_window.ShowFirst();
    EXPECT_EQ(ask(MessageButtons::Ok, MessageIcon::None, 0, Ok), "Velora|<b>Hi|0|owned|OK");
    for (const auto& [button, answer] : {std::pair(0, Yes), {1, No}, {-1, No}})
        EXPECT_EQ(ask(MessageButtons::YesNo, MessageIcon::Question, button, answer),
                  "Velora|<b>Hi|4|owned|&Yes|&No");
    EXPECT_FALSE(m_window.close());
    EXPECT_TRUE(m_window.isVisible());
    EXPECT_EQ(Taken(), "seen without scope;") << "not from inside the toolkit's call";
    m_loop.Turn();
    EXPECT_EQ(Taken(), "close;") << "and not while a dialog is up";
}

TEST_F(QtDialogsTest, ShowsTheFormBeforeItAsksForALine) {
    m_window.ShowFirst();
    for (const bool accepted : {true, false}) {
        m_form.Caption += u"!";
        WhenUp<QInputDialog>([&](QInputDialog& box) {
            EXPECT_EQ(box.windowTitle() + "|" + box.labelText(), "List|Name?");
            EXPECT_EQ(m_window.windowHandle()->title(), ToQString(m_form.Caption));
            box.setTextValue("typed");
            accepted ? box.accept() : box.reject();
        });
        EXPECT_EQ(m_dialogs.InputBox(u"Name?", u"List"), accepted ? u"typed" : u"");
    }
}

TEST_F(QtDialogsTest, AFileIsLookedForWhereTheLastOneWas) {
    const TempDirectory home;
    const QByteArray before = qgetenv("HOME");
    qputenv("HOME", QByteArray::fromStdString(home.Path()));
    home.Put("Some/a.mp3", "x");
    const auto begin = [&](const Text& directory, const std::string& name) {
        std::string begins;
        WhenUp<QFileDialog>([&](QFileDialog& chooser) {
            begins = chooser.directory().path().toStdString();
            chooser.findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(name));
            name.empty() ? chooser.reject() : static_cast<QDialog&>(chooser).accept();
        });
        const Text chosen = m_dialogs.ChooseFile(u"Title", directory, {{u"All", u"*.*"}});
        EXPECT_EQ(chosen, name.empty() ? Text() : PathText(name));
        return begins;
    };
    EXPECT_EQ(begin(u"", ""), home.Path());
    home.Put("Music/b.mp3", "x");
    EXPECT_EQ(begin(u"\\none", home.Path("Some/a.mp3")), home.Path("Music"));
    EXPECT_EQ(begin(u"", ""), home.Path("Some"));
    EXPECT_EQ(begin(home.PathText("mUSIC"), ""), home.Path("Music"));
    qputenv("HOME", before);
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

TEST_F(ToolkitChooserTest, EachQuestionBeginsAnew) {
    m_window.ShowFirst();
    for (const char* name : {"d.mp3", "music", "./b \"c\".mp3"}) {
        QString shown;
        const std::string chosen = Ask([&] {
            shown = m_chooser.windowTitle() + "|" + m_chooser.nameFilters().join(";") + "|" +
                    m_chooser.selectedNameFilter() + "|" + Name().text() +
                    (Name().completer() ? "|proposals" : "") +
                    (m_chooser.parentWidget() == &m_window && m_chooser.isWindow() ? "|owned" : "");
            m_chooser.selectNameFilter("All (*)");
            Name().setText(name);
            AcceptOrReject();
        });
        EXPECT_EQ(chosen,
                  std::string_view(name) == "music" ? "" : m_home.Path(QDir::cleanPath(name).toStdString()));
        EXPECT_EQ(shown.toStdString(), "Select|MP3 Files (*.mp3);All (*)|MP3 Files||proposals|owned");
        EXPECT_FALSE(Name().completer()) << "the proposals are let go with the dialog";
    }
    EXPECT_EQ(Ask([&] { m_chooser.reject(); }), "") << "not what was chosen before";
    EXPECT_EQ(m_chooser.fileMode(), QFileDialog::ExistingFile);
    for (const auto option :
         {QFileDialog::DontUseNativeDialog, QFileDialog::ReadOnly, QFileDialog::HideNameFilterDetails})
        EXPECT_TRUE(m_chooser.testOption(option)) << option;
}

TEST_F(ToolkitChooserTest, TheTypedNameCountsNotALateSelection) {
    const QString music = QString::fromStdString(m_home.Path("music"));
    EXPECT_EQ(Ask([&] {
                  // While the field has the focus a selection doesn't write its name there.
                  QApplication::setActiveWindow(&m_chooser);
                  Name().setFocus();
                  Name().setText(music + "/a.mp3");
                  auto& view = *m_chooser.findChild<QAbstractItemView*>("listView");
                  auto& model = *qobject_cast<QFileSystemModel*>(view.model());
                  view.selectionModel()->select(model.index(music), QItemSelectionModel::ClearAndSelect |
                                                                        QItemSelectionModel::Rows);
                  AcceptOrReject();
              }),
              m_home.Path("music/a.mp3"));
}

TEST_F(ToolkitChooserTest, NoFileIsReadForItsIcon) {
    m_home.Put("picture", "\x89PNG\r\n\x1a\n");
    const QFileInfo picture(QString::fromStdString(m_home.Path("picture")));
    EXPECT_FALSE(m_chooser.iconProvider()->type(picture).contains("PNG"));
}

TEST_F(ToolkitChooserTest, AKeyThatIsLateForTheProposalsGoesNowhere) {
    QAbstractItemView* proposals = m_chooser.findChild<QCompleter*>()->popup();
    EXPECT_EQ(Ask([&] {
                  proposals->show();
                  m_chooser.reject();
              }),
              "");
    EXPECT_FALSE(proposals->isVisible());
    for (const QEvent::Type type : {QEvent::ShortcutOverride, QEvent::KeyPress}) {
        QKeyEvent key(type, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(proposals, &key);
    }
    EXPECT_FALSE(proposals->isVisible());
}

TEST_F(ToolkitChooserTest, AQuestionThatComesBeforeTheLastOneHasReturnedTakesNothingFromIt) {
    std::string further = "none yet";
    EXPECT_EQ(Ask([&] {
                  Name().setText("d.mp3");
                  m_chooser.accept();
                  further = Ask([] {});
              }),
              m_home.Path("d.mp3"));
    EXPECT_EQ(further, "");
}
