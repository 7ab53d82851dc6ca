// Moving the window with the pointer: by the window manager where there is one that does it, or by
// following the pointer ourselves.
#pragma once

#include <QPoint>
#include <QTimer>
#include <functional>

#include "platform/window.h"

class QMouseEvent;
class QWindow;

/// Moves the corner of `window` to `place`, in the toolkit's coordinates. A window of a fixed size
/// keeps it where the screen there has another scale.
void MoveTo(QWindow& window, QPoint place);

/// The move of one window. A click can be over before its move begins, and a manager can begin
/// late: no move outlasts the button that it was begun with.
class QtMove {
public:
    /// `ended` is called after each move that a manager made.
    QtMove(QWindow& window, std::function<void()> ended);

    /// Begins a move with `button`, at the place of the last press. Does nothing if the button is
    /// up again.
    void Begin(Integer button);

    /// Sees each event of the mouse first. Whether it belongs to a move of ours, and goes no
    /// further.
    [[nodiscard]] bool Takes(const QMouseEvent& event);

private:
    void LetManagerEnd();

    QWindow& m_window;
    std::function<void()> m_ended;
    Integer m_button = kNoButton; ///< The button of a move that we make.
    QPoint m_pressedAt;           ///< Where on the screen the last press was.
    QPoint m_from;                ///< Where in the window the pointer holds it.
    QTimer m_managerMoves;        ///< Runs while a manager has a move of ours.
};
