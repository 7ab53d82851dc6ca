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
    QtWindowShown() { m_window.installEventFilter(&m_painted); }

    // Shows the form; how the window stands then, its mask, what was painted, and what was told.
    std::string Shown() {
        m_window.ShowChanges();
        m_loop.Turn();
        QEvent update(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(&m_window, &update);
        const QWindow& handle = *m_window.windowHandle();
        const bool isBare = handle.flags() & Qt::FramelessWindowHint;
        return QString::asprintf("%dx%d %s%s '%s'", m_window.width(), m_window.height(),
                                 m_window.isMinimized() ? "minimised " : "",
                                 isBare ? "bare" : "framed", qPrintable(handle.title()))
                   .toStdString() +
               RectsOf(m_window.mask()) + Painted() + " " + Taken();
    }
    std::string Painted() { return " painted" + RectsOf(std::exchange(m_painted.Region, {})); }

    struct : QObject {
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == Paint) Region += static_cast<QPaintEvent*>(event)->region();
            return event->type() == Move;
        }
        QRegion Region;
    } m_painted; ///< And keeps it from the widget where the handle goes.
};

} // namespace

TEST_F(QtWindowTest, ReportsTheMouseInWholePixelsWithButtonsAndKeys) {
    constexpr auto left = Qt::LeftButton, right = Qt::RightButton, middle = Qt::MiddleButton;
    Mouse(MouseButtonPress, {3.9, 4.2}, left, left);
    Mouse(MouseButtonRelease, {-.5, 7}, right, left | middle,
          Qt::ShiftModifier | Qt::ControlModifier);
    Mouse(MouseButtonDblClick, {8, -8.1}, middle, right | middle, Qt::AltModifier);
    Mouse(MouseButtonPress, {5, 6}, Qt::BackButton, Qt::BackButton);
    Mouse(MouseButtonRelease, {5, 6}, Qt::BackButton);
    Mouse(MouseMove, {5, 7});
    EXPECT_EQ(Taken(), "press 3,4 button 1 held 1 keys 0;release -1,7 button 2 held 5 keys 3;"
                       "press 8,-9 button 4 held 6 keys 4;move 5,7 button 0 held 0 keys 0;");
    EXPECT_TRUE(m_window.hasMouseTracking()) << "a move without a button tells of a lost release";

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
    EXPECT_EQ(Taken(), "invisible;lost 0,0 button 0 held 0 keys 0;");
}

TEST_F(QtWindowShown, FollowsTheRecords) {
    m_form.Caption = u"one";
    m_form.Width += kTwipsPerPixel;
    m_form.Region = Bands({{3, 22, 13, 32}});
    m_form.picBackground.Visible = m_form.picPlay.Visible = m_form.picEject.Visible = true;
    m_window.Present();
    m_window.ShowChanges();
    EXPECT_FALSE(m_window.windowHandle()) << "nothing is there before the start-up is done";
    m_window.ShowFirst();
    EXPECT_EQ(m_window.pos(), QPoint(208, 282)) << "in the middle with the frame that isn't there";
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
    EXPECT_EQ(Shown(),
              "384x254 bare '%1[*]' [0,0 47x8] [17,8 367x246] painted [0,0 47x8] [17,8 367x246] ");
    m_form.Region = Bands({{0, 0, 9, 9}});
    EXPECT_EQ(Shown(), "384x254 bare '%1[*]' [-1,-1 1x1] painted ") << "no pixel is visible";
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
    EXPECT_EQ(m_window.pos(), QPoint(205, 260)) << "in the middle with its frame";
    m_window.move(100, 50);
    Mouse(MouseButtonPress, {20, 30}, button, button);
    Mouse(MouseMove, {25, 31}, Qt::NoButton, button);
    (void)Taken();
    m_window.BeginMove(kMiddleButton);
    Mouse(MouseMove, {24, 37}, Qt::NoButton, button);
    EXPECT_EQ(m_window.pos(), QPoint(104, 57)) << "by the way since the press";
    Mouse(MouseMove, {-1, 30}, Qt::NoButton, button | Qt::BackButton);
    Mouse(MouseButtonRelease, {60, 60}, button);
    EXPECT_EQ(m_window.pos(), QPoint(83, 57));
    EXPECT_EQ(Taken(), "") << "the form hears nothing of it";
    Mouse(MouseMove, {9, 9});
    EXPECT_EQ(Taken(), "move 9,9 button 0 held 0 keys 0;");
}

// As a window manager can leave it with a new window, without a word to the widget.
TEST_F(QtWindowShown, AHandleElsewhereIsTakenToTheWindowBeforeADialogAMoveAndAChangeOfSize) {
    m_window.ShowFirst();
    m_window.move(100, 50);
    QWindow& handle = *m_window.windowHandle();
    handle.installEventFilter(&m_painted);
    const std::function<void()> deeds[] = {[&] { m_window.Present(); },
                                           [&] { m_window.BeginMove(kMiddleButton); },
                                           [&] { m_form.Width += 150, m_window.ShowChanges(); }};
    for (const auto& deed : deeds) {
        m_loop.Turn();
        handle.setPosition(0, 0);
        m_loop.Turn();
        EXPECT_NE(handle.position(), m_window.geometry().topLeft());
        deed();
        EXPECT_EQ(handle.position(), m_window.geometry().topLeft());
        EXPECT_EQ(m_window.pos(), QPoint(100, 50));
    }
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
    m_form.Region = Bands({{3, 22, 13, 32}});
    m_window.ShowFirst();
    QImage image(20, 20, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::red);
    m_window.render(&image, {}, QRegion(0, 0, 20, 20), QWidget::IgnoreMask);
    std::string colours;
    for (const QPoint& place :
         {QPoint(10, 9), QPoint(9, 10), QPoint(9, 9), QPoint(1, 1), QPoint(4, 4)})
        colours += image.pixelColor(place).name(QColor::HexArgb).toStdString();
    EXPECT_EQ(colours, "#00000000#00000000#ff000000#ff3a6ea5#ff006400");
}
