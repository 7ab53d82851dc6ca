// What a screen reader finds in the window. To the toolkit the window is one without
// content; here each visible control of the form becomes a child of it.
#pragma once

#include <QWindow>
#include <functional>
#include <vector>

#include "state/accessible.h"

/// What accessibility needs of the rest of the program.
struct AccessibleSource {
    /// The visible controls as the records are now. Each call builds all of them.
    std::function<std::vector<AccessibleControl>()> Controls;
    /// Has the left button pressed and released at a point of the client area, as the mouse would
    /// do it. Returns first; the press comes later.
    std::function<void(int xPx, int yPx)> Press;
};

/// The controls of a window as screen readers are told of them. A question builds them, and they
/// are kept until the records may have changed.
class QtAccessibility {
public:
    explicit QtAccessibility(QWindow& window) : m_window(window) {}

    /// From now on screen readers find the controls of `source`; before, a window without content.
    void Attach(AccessibleSource source);

    /// The records may have changed: the next question builds the controls again.
    void Forget() { m_isBuilt = false; }

    /// The visible controls. The reference is valid until `Forget`.
    [[nodiscard]] const std::vector<AccessibleControl>& Controls();

    /// Presses the left button in the middle of `control`.
    void Press(const AccessibleControl& control) const;

    /// Tells a screen reader which names and values differ from those told last. Costs nothing
    /// while no screen reader listens.
    void AnnounceChanges();

private:
    QWindow& m_window;
    AccessibleSource m_source;
    std::vector<AccessibleControl> m_controls;
    bool m_isBuilt = false;
    std::vector<AccessibleControl> m_told; ///< Empty until a screen reader listens.
};

/// A window whose controls are no widgets, and which has them found by screen readers all the same.
class AccessibleWindow : public QWindow {
public:
    [[nodiscard]] QtAccessibility& Accessibility() { return m_accessibility; }
    /// What the toolkit shows to screen readers as this window.
    [[nodiscard]] QAccessibleInterface* accessibleRoot() const override;

private:
    QtAccessibility m_accessibility{*this};
};
