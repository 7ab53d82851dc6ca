// What a screen reader finds, asked for in the toolkit's own words.
#include "qt_fixture.h"

namespace {

QString heard;
bool listens = false;

std::string Line(QAccessibleInterface& control) {
    const QRect rect = control.rect();
    QString line = QString::asprintf("%d %d,%d %dx%d", control.role(), rect.x(), rect.y(),
                                     rect.width(), rect.height());
    for (const auto kind :
         {QAccessible::Name, QAccessible::Help, QAccessible::Description, QAccessible::Value})
        line += "|" + control.text(kind);
    if (control.state().invisible) line += " invisible";
    if (control.state().readOnly) line += " readonly";
    if (auto* action = control.actionInterface()) line += " " + action->actionNames().join(',');
    if (auto* value = control.valueInterface())
        line += QString::asprintf(" %d-%d-%d by %d", value->minimumValue().toInt(),
                                  value->currentValue().toInt(), value->maximumValue().toInt(),
                                  value->minimumStepSize().toInt());
    const bool isLeaf = control.childCount() == 0 && control.indexOfChild(&control) == -1;
    return (line + (control.isValid() && isLeaf ? "" : " strange")).toStdString();
}

class QtAccessible : public QtWindowTest {
protected:
    QtAccessible() {
        m_window.Accessibility().Attach(
            {[this] { return ++m_builds, m_spoken; },
             [this](int x, int y) { Note(QString::asprintf("%d,%d", x, y)); }});
        m_window.setPosition(100, 200);
    }

    std::vector<AccessibleControl> m_spoken{
        {"play", AccessibleRole::Button, u"Play", u"a tip", 3, 4, {10, 21, 15, 28}},
        {"volume", AccessibleRole::Slider, u"Volume", u"", 2, 7, {20, 22, 30, 25}},
        {"lights", AccessibleRole::ProgressBar, u"Progress", u"", 5, 13, {0, 40, 50, 45}},
        {"title", AccessibleRole::StaticText, u"A song", u"", 0, 0, {0, 50, 51, 60}}};
    int m_builds = 0;
};

} // namespace

// The offscreen platform has no bridge to a listener; the test stands in for it.
bool QAccessible::isActive() {
    return listens;
}
void QAccessible::updateAccessibility(QAccessibleEvent* event) {
    // Not what the toolkit says of its own widgets.
    if (!listens || event->object()) return;
    heard += event->type() == QAccessible::ValueChanged ? "value of " : "";
    heard += event->accessibleInterface()->text(QAccessible::Name) + ";";
}

TEST_F(QtAccessible, FindsEachControlWithAllThatBelongsToIt) {
    QAccessibleInterface& window = *QAccessible::queryAccessibleInterface(&m_window);
    EXPECT_EQ(window.text(QAccessible::Name) + "|" + window.text(QAccessible::Value), "Velora|");
    const char* lines[] = {
        "43 110,221 5x7|Play|a tip|a tip| Press",
        "51 120,222 10x3|Volume||| readonly 0-2-7 by 1",
        "48 100,240 50x5|Progress||| readonly 0-5-13 by 1",
        "41 100,250 51x10|A song||| readonly",
    };
    ASSERT_EQ(window.childCount(), 4);
    for (int index = 0; index < 4; ++index) {
        QAccessibleInterface* control = window.child(index);
        EXPECT_EQ(Line(*control), lines[index]);
        EXPECT_EQ(window.indexOfChild(control), index);
        EXPECT_EQ(control->parent(), &window);
        EXPECT_EQ(QAccessible::accessibleInterface(QAccessible::uniqueId(control)), control)
            << "registered";
        const QPoint corner = control->rect().bottomRight();
        EXPECT_EQ(window.childAt(corner.x(), corner.y()), control);
    }
    EXPECT_FALSE(window.child(-1) || window.child(4) || window.childAt(119, 222));
    EXPECT_EQ(window.indexOfChild(&window), -1);
    EXPECT_EQ(m_builds, 1) << "for all of these questions";
}

TEST_F(QtAccessible, AButtonIsPressedInItsMiddleAndAControlThatWentAwayIsInvisible) {
    QAccessibleInterface& play = *QAccessible::queryAccessibleInterface(&m_window)->child(0);
    play.actionInterface()->doAction("Dance");
    play.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(Taken(), "12,24;");
    m_spoken.erase(m_spoken.begin());
    m_window.ShowChanges();
    play.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(Taken(), "");
    EXPECT_EQ(Line(play), "43 0,0 0x0|||| invisible Press");
}

TEST_F(QtAccessible, ChangesOfNamesAndValuesAreToldOnce) {
    m_window.ShowFirst();
    const auto told = [&] {
        m_window.ShowChanges();
        return std::exchange(heard, {}).toStdString();
    };
    EXPECT_EQ(told(), "") << "nobody listens";
    listens = true;
    EXPECT_EQ(told(), "Play;Volume;Progress;A song;");
    EXPECT_EQ(told(), "");
    m_spoken[0].Name = u"Stop";
    m_spoken[1].Value = 3;
    EXPECT_EQ(told(), "Stop;value of Volume;");
    listens = false;
}
