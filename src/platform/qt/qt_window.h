// The one window: shows what the form's records say, and reports the mouse.
#pragma once

#include <QWidget>
#include <functional>

#include "platform/qt/qt_accessible.h"
#include "platform/qt/qt_labels.h"
#include "platform/qt/qt_look.h"
#include "platform/qt/qt_loop.h"
#include "platform/qt/qt_move.h"
#include "platform/window.h"
#include "state/form_events.h"
#include "state/scene.h"

class QHelpEvent;

/// The client area of frmMain on a real display. The controls are no widgets: all of them are
/// painted on this one.
class QtWindow : public AccessibleWindow, public Window {
public:
    explicit QtWindow(QtLoop& loop);

    /// Called once, before all else: the form to show, and who hears of the mouse and of the wish
    /// to close. `tellVisibility` is called whenever the window or the visualisation in it becomes
    /// visible or invisible; a minimised window is invisible.
    void Attach(Form& form, FormEvents& events,
                std::function<void(bool isWindowVisible, bool isScopeVisible)> tellVisibility);

    void Present() override;
    void ShowFirst() override;
    void BeginMove(Integer button) override;
    [[nodiscard]] std::size_t PopupMenu(std::span<const MenuEntry> menu, std::size_t root) override;

    /// Compares the form with what was shown last, and has the toolkit paint what differs in its
    /// next turn. The loop calls it after each event. Nothing happens before `ShowFirst`.
    void ShowChanges();

    /// Whether a dialog keeps the user from the window.
    [[nodiscard]] bool IsBlocked() const;

    /// Gives dialogs, menus and tool tips the look that the desktop has now. Called before each of
    /// them opens.
    void FollowDesktop() { m_look.Follow(); }

    /// Called once, on the loop, after the window has been painted for the first time: for work
    /// that may be done a moment later than the start.
    std::function<void()> AfterFirstPaint;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* handle, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    /// Shows size, frame, shape, caption and state where they differ from what was shown last; what
    /// has to be painted is the result.
    [[nodiscard]] QRegion TakeDamage(Scene& now);
    void Minimise(Scene& now);
    void ShowFrame(const Scene& now);
    void ShowShape(const Scene& now);
    void ShowSize(const Scene& now);
    /// Moves the handle (the window as the platform has it) to where the widget says that it is. A
    /// window manager can put a new window at another place without the widget being told.
    void PlaceHandle();
    void ShowCaption(const Scene& now);
    void TellVisibility(const Scene& now);
    void ShowToolTip(QHelpEvent& event);
    void Report(PointerKind kind, const QMouseEvent& event, Integer button);
    void CentreOnScreen();
    /// Tells that no release will come for the buttons that are held.
    void LosePointer();

    QtLoop& m_loop;
    QtLabels m_labels;
    QtLook m_look;
    QtMove m_move;
    Form* m_form = nullptr;
    FormEvents* m_events = nullptr;
    std::function<void(bool, bool)> m_tellVisibility;
    bool m_isWindowVisible = false; ///< As told last, like the next.
    bool m_isScopeVisible = false;
    bool m_isExposed = true; ///< The platform can hide the window otherwise than minimised.
    Scene m_shown;
    QRegion m_shape;            ///< The form's region in client pixels; used only while it has one.
    Integer m_held = kNoButton; ///< The buttons held at the event told last.
    bool m_isUp = false;        ///< Whether `ShowFirst` was called.
};
