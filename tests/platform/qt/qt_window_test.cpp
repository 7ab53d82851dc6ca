// The window as the toolkit has it: what it reports of the mouse, how it stands and what is painted
// after each change of the records, and what comes up in front of it.
#include "platform/regions.h"
#include "qt_fixture.h"

namespace {

using enum QEvent::Type;

std::shared_ptr<const Region> Bands(const std::vector<Rect>& bands) {
    auto region = std::make_shared<Region>();
    for (const Rect& band : bands)
        region->Append(band.Top, band.Bottom, std::array{RowSpan{band.Left, band.Right}});
    return region;
}

class QtWindowShown : public QtWindowTest {
protected:
    QtWindowShown() {
        m_window.AfterPaint = [this](const QRegion& painted) { m_painted += painted; };
    }

    // Shows the form; how the window stands then, its mask, what was painted, and what was told.
    std::string Shown() {
        m_loop.Turn();
        m_window.ShowChanges();
        m_loop.Turn();
        const bool isBare = m_window.flags() & Qt::FramelessWindowHint;
        const bool isMinimised = m_window.windowStates() & Qt::WindowMinimized;
        return QString::asprintf("%dx%d %s%s '%s'", m_window.width(), m_window.height(),
                                 isMinimised ? "minimised " : "", isBare ? "bare" : "framed",
                                 qPrintable(m_window.title()))
                   .toStdString() +
               RectsOf(m_window.mask()) + Painted() + " " + Taken();
    }
    std::string Painted() { return " painted" + RectsOf(std::exchange(m_painted, {})); }

    QRegion m_painted;
};

} // namespace

TEST_F(QtWindowTest, ReportsTheMouseInWholePixelsWithButtonsAndKeys) {
    constexpr auto left = Qt::LeftButton, right = Qt::RightButton, middle = Qt::MiddleButton;
    Mouse(MouseButtonPress, {3.9, 4.2}, left, left);
    Mouse(MouseButtonRelease, {-.5, 7}, right, left | middle,
          Qt::ShiftModifier | Qt::ControlModifier);
    // The second press of a double click is told twice: as a press, and as what it is.
    for (const auto kind : {MouseButtonPress, MouseButtonDblClick})
        Mouse(kind, {8, -8.1}, middle, right | middle, Qt::AltModifier);
    Mouse(MouseButtonPress, {5, 6}, Qt::BackButton, Qt::BackButton);
    Mouse(MouseButtonRelease, {5, 6}, Qt::BackButton);
    Mouse(MouseMove, {5, 7});
    EXPECT_EQ(Taken(), "press 3,4 button 1 held 1 keys 0;release -1,7 button 2 held 5 keys 3;"
                       "press 8,-9 button 4 held 6 keys 4;move 5,7 button 0 held 0 keys 0;");

    // At a scale the toolkit has rounded the event's own place.
    QMouseEvent scaled(QEvent::MouseMove, {3, 7}, {2.75, 6.5}, {}, Qt::NoButton, left, {});
    QCoreApplication::sendEvent(&m_window, &scaled);
    EXPECT_EQ(Taken(), "move 2,6 button 0 held 1 keys 0;");
    for (int time = 0; time < 2; ++time) {
        QEvent dialog(QEvent::WindowBlocked);
        QCoreApplication::sendEvent(&m_window, &dialog);
    }
    EXPECT_EQ(Taken(), "lost 0,0 button 0 held 0 keys 0;") << "once, and only what was held";
    m_window.ShowFirst();
    Mouse(MouseButtonPress, {3, 4}, right, right);
    (void)Taken();
    m_window.showMinimized();
    m_loop.Turn();
    EXPECT_EQ(Taken(), "invisible;lost 0,0 button 0 held 0 keys 0;");
}

TEST_F(QtWindowShown, FollowsTheRecords) {
    m_form.Caption = u"one";
    m_form.Width += kTwipsPerPixel;
    m_form.Region = Bands({{3, 22, 13, 32}});
    m_form.picBackground.Visible = m_form.picPlay.Visible = m_form.picEject.Visible = true;
    m_window.Present();
    m_window.ShowChanges();
    EXPECT_FALSE(m_window.handle()) << "nothing is there before the start-up is done";
    m_window.ShowFirst();
    EXPECT_EQ(m_window.position(), QPoint(208, 282))
        << "in the middle with the frame that isn't there";
    EXPECT_EQ(Shown(), "384x254 bare 'one' [0,0 10x10] painted [0,0 384x254] scope visible;");
    m_form.Region = nullptr;
    EXPECT_EQ(Shown(), "384x254 framed 'one' painted [0,0 384x254] ");
    m_form.picPlay.Picture = m_form.picEject.Picture = Dots({Qt::red});
    EXPECT_EQ(Shown(), "384x254 framed 'one' painted [16,16 33x33] [216,16 33x33] ");
    m_form.VFmp3scope1.Visible = false;
    EXPECT_EQ(Shown(), "384x254 framed 'one' painted [296,16 33x33] window visible;");
    m_form.Caption = u"<" + Text(2000, u'x');
    EXPECT_EQ(Shown(), "384x254 framed '<" + std::string(999, 'x') + "' painted ");
    m_form.Caption = u"%1[*]";
    m_form.Region = Bands({{0, 0, 50, 30}, {20, 30, 500, 500}});
    EXPECT_EQ(Shown(), "384x254 bare '%1[*]' [0,0 47x8] [17,8 367x246] painted [0,0 384x254] ");
    m_form.Region = Bands({{0, 0, 9, 9}});
    EXPECT_EQ(Shown(), "384x254 bare '%1[*]' [-1,-1 1x1] painted [0,0 384x254] ")
        << "no pixel is visible";
    m_form.Region = nullptr;
    m_form.Width += 16 * kTwipsPerPixel;
    EXPECT_EQ(Shown(), "400x254 framed '%1[*]' painted [0,0 400x254] ");
    m_form.VFmp3scope1.Visible = true;
    m_window.Present();
    EXPECT_EQ(Painted(), " painted [296,16 33x33]") << "before it returns";
    EXPECT_EQ(Shown(), "400x254 framed '%1[*]' painted scope visible;");
    for (const std::string title : {"two", "three"}) {
        m_form.State = WindowState::Minimised;
        EXPECT_EQ(Shown().substr(0, 17), "400x254 minimised") << "also the second time";
        m_form.Caption = QString::fromStdString(title).toStdU16String();
        m_form.picPlay.Visible = !m_form.picPlay.Visible;
        EXPECT_EQ(Shown(), "400x254 minimised framed '" + title + "' painted ");
        m_window.showNormal();
        EXPECT_EQ(Shown(), "400x254 framed '" + title + "' painted [16,16 33x33] scope visible;");
    }
}

TEST_F(QtWindowTest, ADragIsTheWindowsOwnFromThePressToTheRelease) {
    constexpr auto button = Qt::MiddleButton;
    m_window.ShowFirst();
    EXPECT_EQ(m_window.framePosition(), QPoint(205, 260)) << "in the middle with its frame";
    m_window.setPosition(100, 50);
    Mouse(MouseButtonPress, {20, 30}, button, button);
    Mouse(MouseMove, {25, 31}, Qt::NoButton, button);
    (void)Taken();
    m_window.BeginMove(kMiddleButton);
    Mouse(MouseMove, {24, 37}, Qt::NoButton, button);
    EXPECT_EQ(m_window.position(), QPoint(104, 57)) << "by the way since the press";
    Mouse(MouseMove, {-1, 30}, Qt::NoButton, button | Qt::BackButton);
    Mouse(MouseButtonRelease, {60, 60}, button);
    EXPECT_EQ(m_window.position(), QPoint(83, 57));
    EXPECT_EQ(Taken(), "") << "the form hears nothing of it";
    Mouse(MouseMove, {9, 9});
    EXPECT_EQ(Taken(), "move 9,9 button 0 held 0 keys 0;");
}

TEST_F(QtWindowTest, TheMenuHasTheVisibleChildrenOfItsRoot) {
    const MenuEntry menu[] = {
        {"", 0, u"other", true, true},   {"", 0, u"root", false, true},
        {"", 1, u"one", true, true},     {"", 2, u"deep", true, true},
        {"", 1, u"unseen", false, true}, {"", 1, u"-", true, true},
        {"", 1, u"grey", true, false},   {"", 1, u"last", true, true},
        {"", 0, u"another", true, true}, {"", 1, u"not its child", true, true}};
    const auto choose = [&](std::size_t count, int chosen) {
        std::string shown;
        WhenUp<QMenu>([&](QMenu& popup) {
            for (const QAction* action : popup.actions())
                shown += (action->isSeparator() ? "-" : action->text().toStdString()) +
                         (action->isEnabled() ? " " : "* ");
            popup.setActiveAction(popup.actions().value(chosen));
            QKeyEvent key(QEvent::KeyPress, chosen < 0 ? Qt::Key_Escape : Qt::Key_Return, {});
            QCoreApplication::sendEvent(&popup, &key);
        });
        const std::size_t index = m_window.PopupMenu({menu, count}, 1);
        return shown + std::to_string(index);
    };
    EXPECT_EQ(choose(10, 0), "one - grey* last 2");
    EXPECT_EQ(choose(10, 3), "one - grey* last 7");
    EXPECT_EQ(choose(10, -1), "one - grey* last 1");
    EXPECT_EQ(choose(7, 0), "one - grey* 2") << "the entry behind the tree isn't one of it";
}

TEST_F(QtWindowTest, OutsideItsShapeNothingIsPaintedWhateverWasThere) {
    PictureBox &ground = m_form.picBackground, &play = m_form.picPlay;
    ground.Left = ground.Top = play.Left = play.Top = 2;
    ground.Visible = play.Visible = true;
    play.Picture = Dots({QColor(0, 200, 0, 128)});
    const auto colours = [&] {
        m_loop.Turn();
        const QImage image = m_window.screen()->grabWindow(m_window.winId()).toImage();
        std::string names;
        for (const QPoint& place : {QPoint(10, 1), QPoint(1, 10), QPoint(9, 1), QPoint(4, 4)})
            names += image.pixelColor(place).name().toStdString();
        return names;
    };
    m_window.ShowFirst();
    EXPECT_EQ(colours(), "#3a6ea5#3a6ea5#3a6ea5#006400");
    m_form.Region = Bands({{3, 22, 13, 32}});
    m_window.ShowChanges();
    EXPECT_EQ(colours(), "#000000#000000#3a6ea5#006400");
}

// As a tiling window manager has it: the window is larger than its records, and stays so.
TEST_F(QtWindowShown, WhatAManagerMakesLargerIsPaintedToItsEdges) {
    m_form.Caption = u"one";
    m_window.ShowFirst();
    (void)Shown();
    m_window.setMaximumSize({2000, 2000});
    m_window.resize(500, 300);
    EXPECT_EQ(Shown(), "500x300 framed 'one' painted [0,0 500x300] ");
    m_form.picEject.Visible = m_form.picBackground.Visible = true;
    m_form.picEject.Picture = Dots({Qt::red});
    EXPECT_EQ(Shown(), "500x300 framed 'one' painted [8,8 369x89] scope visible;");
}
