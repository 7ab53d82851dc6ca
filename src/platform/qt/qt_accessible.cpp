// Every answer is worked out from the records at the moment of the question: nothing here can be
// stale.
#include "platform/qt/qt_accessible.h"

#include <QAccessibleWidget>
#include <algorithm>
#include <map>
#include <optional>

#include "platform/qt/qt_text.h"
#include "platform/qt/qt_window.h"

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

// One control of the form. It stays registered when a skin takes the control away; it is invisible
// then.
class ControlInterface : public QAccessibleInterface,
                         public QAccessibleActionInterface,
                         public QAccessibleValueInterface {
public:
    ControlInterface(QtWindow& window, std::string_view name, AccessibleRole role)
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
        const std::optional<AccessibleControl> spoken = Spoken();
        if (!spoken) return {};
        if (kind == QAccessible::Name) return ToQString(spoken->Name);
        if (kind == QAccessible::Help || kind == QAccessible::Description)
            return ToQString(spoken->Help);
        return {};
    }

    QRect rect() const override {
        const std::optional<AccessibleControl> spoken = Spoken();
        if (!spoken) return {};
        const Rect& place = spoken->Place;
        return QRect(m_window.mapToGlobal(QPoint(place.Left, place.Top)),
                     QSize(place.Right - place.Left, place.Bottom - place.Top));
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        state.invisible = !Spoken();
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
        const std::optional<AccessibleControl> spoken = Spoken();
        if (action != pressAction() || !spoken) return;
        m_window.SpokenBy().Press((spoken->Place.Left + spoken->Place.Right) / 2,
                                  (spoken->Place.Top + spoken->Place.Bottom) / 2);
    }

    QVariant currentValue() const override { return Spoken().value_or(AccessibleControl{}).Value; }
    void setCurrentValue(const QVariant&) override {}
    QVariant maximumValue() const override { return Spoken().value_or(AccessibleControl{}).Most; }
    QVariant minimumValue() const override { return 0; }
    QVariant minimumStepSize() const override { return 1; }

private:
    std::optional<AccessibleControl> Spoken() const {
        for (AccessibleControl& spoken : m_window.SpokenBy().Controls())
            if (spoken.ControlName == m_name) return std::move(spoken);
        return std::nullopt;
    }

    QtWindow& m_window;
    std::string_view m_name;
    AccessibleRole m_role;
};

// The window itself; its children are what the records show now.
class WindowInterface : public QAccessibleWidget {
public:
    explicit WindowInterface(QtWindow& window)
        : QAccessibleWidget(&window, QAccessible::Window), m_window(window) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? QStringLiteral("Velora") : QAccessibleWidget::text(kind);
    }
    int childCount() const override {
        return static_cast<int>(m_window.SpokenBy().Controls().size());
    }

    QAccessibleInterface* child(int index) const override {
        const std::vector<AccessibleControl> controls = m_window.SpokenBy().Controls();
        if (index < 0 || static_cast<std::size_t>(index) >= controls.size()) return nullptr;
        return InterfaceOf(controls[static_cast<std::size_t>(index)]);
    }

    int indexOfChild(const QAccessibleInterface* child) const override {
        const std::vector<AccessibleControl> controls = m_window.SpokenBy().Controls();
        for (std::size_t index = 0; index < controls.size(); ++index)
            if (InterfaceOf(controls[index]) == child) return static_cast<int>(index);
        return -1;
    }

    QAccessibleInterface* childAt(int x, int y) const override {
        const QPoint point = m_window.mapFromGlobal(QPoint(x, y));
        for (const AccessibleControl& spoken : m_window.SpokenBy().Controls())
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
    QtWindow& m_window;
    mutable std::map<std::string_view, ControlInterface*> m_children;
};

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
    auto* window = dynamic_cast<QtWindow*>(object);
    return window ? new WindowInterface(*window) : nullptr;
}

} // namespace

void InstallAccessibility() {
    QAccessible::installFactory(MakeInterface);
}

void AnnounceChanges(QtWindow& window, const std::vector<AccessibleControl>& before,
                     const std::vector<AccessibleControl>& now) {
    auto* itself = dynamic_cast<WindowInterface*>(QAccessible::queryAccessibleInterface(&window));
    if (!itself) return;
    for (const AccessibleControl& spoken : now) {
        const auto old =
            std::find_if(before.begin(), before.end(), [&](const AccessibleControl& each) {
                return each.ControlName == spoken.ControlName;
            });
        QAccessibleInterface* control = itself->InterfaceOf(spoken);
        if (old == before.end() || old->Name != spoken.Name) {
            QAccessibleEvent event(control, QAccessible::NameChanged);
            QAccessible::updateAccessibility(&event);
        }
        if (old != before.end() && old->Value != spoken.Value) {
            QAccessibleValueChangeEvent event(control, spoken.Value);
            QAccessible::updateAccessibility(&event);
        }
    }
}
