// The toolkit's interfaces keep no state of a control: each question looks into the kept controls.
#include "platform/qt/qt_accessible.h"

#include <QAccessibleObject>
#include <QGuiApplication>
#include <algorithm>
#include <map>
#include <utility>

#include "platform/qt/qt_text.h"

namespace {

QAccessible::Role RoleOf(AccessibleRole role) {
    switch (role) {
    case AccessibleRole::Button:
        return QAccessible::Button;
    case AccessibleRole::Slider:
        return QAccessible::Slider;
    case AccessibleRole::ProgressBar:
        return QAccessible::ProgressBar;
    case AccessibleRole::StaticText:
        return QAccessible::StaticText;
    }
    return QAccessible::NoRole;
}

// One control of the form. A screen reader may hold on to it, so it stays when a skin takes the
// control away, and says then that it is invisible.
class ControlInterface : public QAccessibleInterface,
                         public QAccessibleActionInterface,
                         public QAccessibleValueInterface {
public:
    ControlInterface(AccessibleWindow& window, std::string_view name, AccessibleRole role)
        : m_window(window), m_name(name), m_role(role) {}

    bool isValid() const override { return true; }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(&m_window);
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}
    QAccessible::Role role() const override { return RoleOf(m_role); }

    QString text(QAccessible::Text kind) const override {
        const AccessibleControl* spoken = Found();
        if (!spoken) return {};
        if (kind == QAccessible::Name) return ToQString(spoken->Name);
        if (kind == QAccessible::Help || kind == QAccessible::Description)
            return ToQString(spoken->Help);
        return {};
    }

    QRect rect() const override {
        const AccessibleControl* spoken = Found();
        if (!spoken) return {};
        const Rect& place = spoken->Place;
        return QRect(m_window.mapToGlobal(QPoint(place.Left, place.Top)),
                     QSize(place.Right - place.Left, place.Bottom - place.Top));
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        state.invisible = !Found();
        state.readOnly = m_role != AccessibleRole::Button;
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ActionInterface && m_role == AccessibleRole::Button)
            return static_cast<QAccessibleActionInterface*>(this);
        const bool hasValue =
            m_role == AccessibleRole::Slider || m_role == AccessibleRole::ProgressBar;
        if (type == QAccessible::ValueInterface && hasValue)
            return static_cast<QAccessibleValueInterface*>(this);
        return nullptr;
    }

    QStringList actionNames() const override { return {pressAction()}; }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }
    void doAction(const QString& action) override {
        const AccessibleControl* spoken = Found();
        if (action != pressAction() || !spoken) return;
        m_window.Accessibility().Press(*spoken);
    }

    QVariant currentValue() const override { return Found() ? Found()->Value : 0; }
    void setCurrentValue(const QVariant&) override {}
    QVariant maximumValue() const override { return Found() ? Found()->Most : 0; }
    QVariant minimumValue() const override { return 0; }
    QVariant minimumStepSize() const override { return 1; }

private:
    // Null while the control is invisible.
    const AccessibleControl* Found() const {
        for (const AccessibleControl& spoken : m_window.Accessibility().Controls())
            if (spoken.ControlName == m_name) return &spoken;
        return nullptr;
    }

    AccessibleWindow& m_window;
    std::string_view m_name;
    AccessibleRole m_role;
};

// The window itself; its children are the visible controls.
class WindowInterface : public QAccessibleObject {
public:
    explicit WindowInterface(AccessibleWindow& window)
        : QAccessibleObject(&window), m_window(window) {}

    QAccessible::Role role() const override { return QAccessible::Window; }
    QWindow* window() const override { return &m_window; }
    QRect rect() const override { return m_window.geometry(); }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(qApp);
    }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? QStringLiteral("Velora") : QString();
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        state.invisible = !m_window.isVisible();
        state.focusable = true;
        state.active = state.focused = m_window.isActive();
        state.movable = true;
        return state;
    }

    int childCount() const override { return static_cast<int>(Controls().size()); }

    QAccessibleInterface* child(int index) const override {
        const std::vector<AccessibleControl>& controls = Controls();
        if (index < 0 || static_cast<std::size_t>(index) >= controls.size()) return nullptr;
        return InterfaceOf(controls[static_cast<std::size_t>(index)]);
    }

    int indexOfChild(const QAccessibleInterface* child) const override {
        const std::vector<AccessibleControl>& controls = Controls();
        for (std::size_t index = 0; index < controls.size(); ++index)
            if (InterfaceOf(controls[index]) == child) return static_cast<int>(index);
        return -1;
    }

    QAccessibleInterface* childAt(int x, int y) const override {
        const QPoint point = m_window.mapFromGlobal(QPoint(x, y));
        for (const AccessibleControl& spoken : Controls())
            if (spoken.Place.Holds(point.x(), point.y())) return InterfaceOf(spoken);
        return nullptr;
    }

    QAccessibleInterface* InterfaceOf(const AccessibleControl& spoken) const {
        ControlInterface*& known = m_children[spoken.ControlName];
        if (!known) {
            known = new ControlInterface(m_window, spoken.ControlName, spoken.Role);
            // The toolkit's registry owns it from here on.
            QAccessible::registerAccessibleInterface(known);
        }
        return known;
    }

private:
    const std::vector<AccessibleControl>& Controls() const {
        return m_window.Accessibility().Controls();
    }

    AccessibleWindow& m_window;
    mutable std::map<std::string_view, ControlInterface*> m_children;
};

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
    auto* window = dynamic_cast<AccessibleWindow*>(object);
    return window ? new WindowInterface(*window) : nullptr;
}

} // namespace

QAccessibleInterface* AccessibleWindow::accessibleRoot() const {
    return QAccessible::queryAccessibleInterface(const_cast<AccessibleWindow*>(this));
}

void QtAccessibility::Attach(AccessibleSource source) {
    m_source = std::move(source);
    Forget();
    QAccessible::installFactory(MakeInterface);
}

const std::vector<AccessibleControl>& QtAccessibility::Controls() {
    if (!m_isBuilt && m_source.Controls) m_controls = m_source.Controls();
    m_isBuilt = true;
    return m_controls;
}

void QtAccessibility::Press(const AccessibleControl& control) const {
    m_source.Press((control.Place.Left + control.Place.Right) / 2,
                   (control.Place.Top + control.Place.Bottom) / 2);
}

void QtAccessibility::AnnounceChanges() {
    if (!QAccessible::isActive() || Controls() == m_told) return;
    const std::vector<AccessibleControl> before = std::exchange(m_told, Controls());
    auto* itself = dynamic_cast<WindowInterface*>(QAccessible::queryAccessibleInterface(&m_window));
    if (!itself) return;
    for (const AccessibleControl& now : m_told) {
        const auto old =
            std::find_if(before.begin(), before.end(), [&](const AccessibleControl& each) {
                return each.ControlName == now.ControlName;
            });
        QAccessibleInterface* control = itself->InterfaceOf(now);
        if (old == before.end() || old->Name != now.Name) {
            QAccessibleEvent event(control, QAccessible::NameChanged);
            QAccessible::updateAccessibility(&event);
        }
        if (old != before.end() && old->Value != now.Value) {
            QAccessibleValueChangeEvent event(control, now.Value);
            QAccessible::updateAccessibility(&event);
        }
    }
}
