// The tips of the controls. For widgets the toolkit itself sees when the pointer rests, but our
// controls are none.
#pragma once

#include <QPoint>
#include <QRect>
#include <QTimer>
#include <functional>

#include "state/form_events.h"

/// The tip of the one control on which the pointer rests.
class QtToolTip {
public:
    /// `prepare` is called before each tip that comes up.
    explicit QtToolTip(std::function<void()> prepare);

    /// Sees each event of the pointer, which is at `onScreen`. The tip of the control there comes
    /// up once the pointer has rested for as long as the toolkit has it elsewhere, and goes when
    /// the pointer leaves the control. The form must outlive this.
    void Follow(const Form& form, const PointerEvent& event, QPoint onScreen);

    /// The pointer has gone, or something else is about to open: no tip is up or will come.
    void Forget();

private:
    void Show();

    std::function<void()> m_prepare;
    QTimer m_rest; ///< Runs from a movement without a button until the pointer has rested.
    const Form* m_form = nullptr;
    QPoint m_place;    ///< In the window, like the next.
    QRect m_tipsPlace; ///< Of the control whose tip is up; empty without one.
    QPoint m_onScreen;
};
