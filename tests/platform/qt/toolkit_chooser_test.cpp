// What the chooser takes from its name field.
#include "platform/qt/toolkit_chooser.h"

#include <QAbstractFileIconProvider>
#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QFileSystemModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <gtest/gtest.h>

#include "support/temp_directory.h"

namespace {

class ToolkitChooserTest : public testing::Test {
protected:
    // Asks, and runs `answer` once the chooser is up.
    QByteArray Ask(const std::function<void()>& answer) {
        QTimer::singleShot(0, &m_chooser, answer);
        return m_chooser.Ask(nullptr, {QStringLiteral("Select"),
                                       QByteArray::fromStdString(m_home.Path()),
                                       {{u"MP3 Files (*.mp3)", u"*.mp3"}, {u"All", u"*.*"}}});
    }

    QLineEdit& Name() { return *m_chooser.findChild<QLineEdit*>(QStringLiteral("fileNameEdit")); }

    TempDirectory m_home;
    ToolkitChooser& m_chooser = *new ToolkitChooser; // As in the program, it outlives everything.
};

TEST_F(ToolkitChooserTest, TheTypedNameCountsNotALateSelection) {
    m_home.Put("music/a.mp3", "x");
    const QString music = QString::fromStdString(m_home.Path("music"));
    const QByteArray chosen = Ask([&] {
        // While the field has the focus a selection doesn't write its name there.
        QApplication::setActiveWindow(&m_chooser);
        Name().setFocus();
        Name().setText(music + QStringLiteral("/a.mp3"));
        auto& view = *m_chooser.findChild<QAbstractItemView*>(QStringLiteral("listView"));
        auto& model = *qobject_cast<QFileSystemModel*>(view.model());
        view.selectionModel()->select(model.index(music),
                                      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        m_chooser.accept();
        // Where the directory was opened instead, the question still stands.
        if (m_chooser.isVisible()) m_chooser.reject();
    });
    EXPECT_EQ(chosen.toStdString(), m_home.Path("music/a.mp3"));
}

TEST_F(ToolkitChooserTest, ARelativeNameIsOneOfTheDirectoryShown) {
    m_home.Put("b \"c\".mp3", "x");
    EXPECT_EQ(Ask([&] {
                  Name().setText(QStringLiteral("./b \"c\".mp3"));
                  m_chooser.accept();
              }).toStdString(),
              m_home.Path("b \"c\".mp3"));
}

TEST_F(ToolkitChooserTest, NoFileIsReadForItsIcon) {
    m_home.Put("picture", "\x89PNG\r\n\x1a\n");
    const QFileInfo picture(QString::fromStdString(m_home.Path("picture")));
    EXPECT_FALSE(m_chooser.iconProvider()->type(picture).contains(QStringLiteral("PNG")));
}

TEST_F(ToolkitChooserTest, AKeyThatIsLateForTheProposalsGoesNowhere) {
    EXPECT_TRUE(Ask([&] { m_chooser.reject(); }).isEmpty());
    QAbstractItemView* proposals = m_chooser.findChild<QCompleter*>()->popup();
    for (const QEvent::Type type : {QEvent::ShortcutOverride, QEvent::KeyPress}) {
        QKeyEvent key(type, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(proposals, &key);
    }
    EXPECT_FALSE(proposals->isVisible());
}

TEST_F(ToolkitChooserTest, AQuestionThatComesBeforeTheLastOneHasReturnedTakesNothingFromIt) {
    m_home.Put("e.mp3", "x");
    QByteArray further = "none yet";
    EXPECT_EQ(Ask([&] {
                  Name().setText(QStringLiteral("e.mp3"));
                  m_chooser.accept();
                  further = Ask([] {});
              }).toStdString(),
              m_home.Path("e.mp3"));
    EXPECT_TRUE(further.isEmpty());
}

TEST_F(ToolkitChooserTest, EachQuestionBeginsWithAnEmptyName) {
    m_home.Put("f.mp3", "x");
    EXPECT_FALSE(Ask([&] {
                     Name().setText(QStringLiteral("f.mp3"));
                     m_chooser.accept();
                 }).isEmpty());
    QString first;
    EXPECT_TRUE(Ask([&] {
                    first = Name().text();
                    m_chooser.reject();
                }).isEmpty());
    EXPECT_EQ(first, QString());
}

TEST_F(ToolkitChooserTest, CancelledItGivesNothingAndNotWhatWasChosenBefore) {
    m_home.Put("d.mp3", "x");
    EXPECT_FALSE(Ask([&] {
                     Name().setText(QStringLiteral("d.mp3"));
                     m_chooser.accept();
                 }).isEmpty());
    EXPECT_TRUE(Ask([&] { m_chooser.reject(); }).isEmpty());
}

} // namespace
