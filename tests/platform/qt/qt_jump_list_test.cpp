// The list of entries: what is typed, what is found, which row that is.
#include "platform/qt/qt_jump_list.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <gtest/gtest.h>

#include "platform/text.h"

namespace {

TEST(QtJumpList, FindsWhatIsTypedInALongListAndMarksWhatPlays) {
    std::vector<Text> rows;
    for (int number = 1; number <= 2500; ++number)
        rows.push_back(u"Track " + Decimal(number) + u".mp3");
    JumpList list(rows, 1800);
    list.show();
    auto& view = *list.findChild<QListView*>();
    auto& field = *list.findChild<QLineEdit*>();
    const auto look = [&] {
        return std::to_string(view.model()->rowCount()) + " rows, at " +
               view.currentIndex().data().toString().toStdString() + ", row " +
               std::to_string(list.Row());
    };
    EXPECT_EQ(look(), "2500 rows, at \u25B6 Track 1800.mp3, row 1800");
    field.setText("tRACK 24");
    EXPECT_EQ(look(), "111 rows, at Track 24.mp3, row 24");
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, {});
    QCoreApplication::sendEvent(&field, &down);
    EXPECT_EQ(look(), "111 rows, at Track 240.mp3, row 240") << "the field's arrows move the list";
    field.setText("no such");
    EXPECT_EQ(look(), "0 rows, at , row 0");
    field.setText("99.mp3");
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, {});
    QCoreApplication::sendEvent(&field, &enter);
    EXPECT_EQ(list.result(), QDialog::Accepted);
    EXPECT_EQ(list.Row(), 99u);
}

} // namespace
