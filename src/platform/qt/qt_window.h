// The one window: shows scenes of the form's records and reports the pointer.
#pragma once

#include <QWidget>
#include <functional>

#include "platform/qt/qt_accessible.h"
#include "platform/qt/qt_fonts.h"
#include "platform/qt/qt_look.h"
#include "platform/qt/qt_loop.h"
#include "platform/window.h"
#include "state/form_events.h"
#include "state/scene.h"

class QHelpEvent;

/// The client area of frmMain on a real display. All is painted on this one surface.
class QtWindow : public QWidget, public Window {
public:
    explicit QtWindow(QtLoop& loop);

    /// The form that the window shows and who is told. `tellSight` is called whenever the window or
    /// the visualisation in it begins or ceases to be on the screen.
    void Attach(Form& form, FormEvents& events,
                std::function<void(bool window, bool scope)> tellSight);

    /// What screen readers are told, and how they press. Without it they see a window without
    /// content.
    void LetSpeak(SpokenSource source);
    [[nodiscard]] const SpokenSource& SpokenBy() const { return m_spokenBy; }

    void Present() override;
    void ShowFirst() override;
    void BeginMove(Integer button) override;
    std::size_t PopupMenu(std::span<const MenuEntry> menu, std::size_t root) override;

    /// Shows what differs from what was shown last; what has to be painted is left to the toolkit's
    /// next turn. The loop calls it after each event.
    void ShowChanges();

    /// Gives what is about to open the desktop's look.
    void FollowDesktop() { m_look.Follow(); }

    /// Runs once, on the loop, when the window has been painted for the first time: the place for
    /// what can come a moment later.
    std::function<void()> AfterFirstPaint;

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void Speak();
    [[nodiscard]] QRegion TakeDamage(const Scene& now);
    void ShowFrame(const Scene& now);
    void ShowShape(const Scene& now);
    void ShowSize(const Scene& now);
    /// Takes the handle to where the widget is. What a window manager does with a new window can
    /// leave it at another place, without a word to the widget.
    void PlaceHandle();
    void ShowCaption(const Scene& now);
    void TellSight(const Scene& now);
    void ShowToolTip(QHelpEvent& event);
    void Report(PointerKind kind, const QMouseEvent& event, Integer button);
    [[nodiscard]] bool FollowPointer(const QMouseEvent& event);
    void CentreOnScreen();

    QtLoop& m_loop;
    QtFonts m_fonts;
    QtLook m_look;
    Form* m_form = nullptr;
    FormEvents* m_events = nullptr;
    std::function<void(bool, bool)> m_tellSight;
    SpokenSource m_spokenBy;
    std::vector<AccessibleControl>
        m_spoken; ///< As told last; empty while no screen reader listens.
    bool m_wasWindowSeen = false;
    bool m_wasScopeSeen = false;
    Scene m_shown;
    QRegion m_shape; ///< The region in client pixels; used only while one is set.
    bool m_isUp = false;
    Integer m_movingButton = kNoButton; ///< The button whose release ends a move made by ourselves.
    QPoint m_pressedAt;                 ///< Where on the screen the last press was.
    QPoint m_moveFrom;
};
