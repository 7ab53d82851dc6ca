// The one window: shows what the form's records say, and reports the mouse.
#pragma once

#include <QBackingStore>
#include <functional>

#include "platform/qt/qt_accessible.h"
#include "platform/qt/qt_labels.h"
#include "platform/qt/qt_look.h"
#include "platform/qt/qt_loop.h"
#include "platform/qt/qt_move.h"
#include "platform/qt/qt_screens.h"
#include "platform/qt/qt_tool_tip.h"
#include "platform/window.h"
#include "state/form_events.h"
#include "state/scene.h"

/// The client area of frmMain on a real display. Neither it nor a control is a widget: all of them
/// are painted on this one plain window, which spares the toolkit's machinery for widgets at each
/// frame and at the start.
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

    /// Compares the form with what was shown last, and paints what differs. The loop calls it
    /// before it sleeps. Nothing happens before `ShowFirst`.
    void ShowChanges();

    /// Whether a dialog keeps the user from the window.
    [[nodiscard]] bool IsBlocked() const;

    /// Makes the window ready for a dialog in front of it: shows the records as they are, has the
    /// toolkit know where the window is, and gives the dialog the look that the desktop has now.
    void PrepareDialog();

    /// Called after each painting, with what was painted.
    std::function<void(const QRegion& painted)> AfterPaint;

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void exposeEvent(QExposeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    /// Shows size, frame, shape, caption and state where they differ from what was shown last; what
    /// has to be painted is the result.
    [[nodiscard]] QRegion TakeDamage();
    void Minimise();
    void ShowFrame(const Scene& now);
    void ShowShape(const Scene& now);
    void ShowSize(const Scene& now);
    void ShowCaption(const Scene& now);
    /// What the store has to have: more than the client area where a manager enforces it.
    [[nodiscard]] QSize StoreSize(const Scene& now) const;
    [[nodiscard]] QRect WholeStore() const;
    /// The platform has minimised the window, or brought it back.
    void FollowState();
    void TellVisibility(const Scene& now);
    /// The window may be at another scale, or a manager's move may have ended.
    void FollowScale();
    /// Has the X server, which counts in its own pixels, know size and shape anew. Elsewhere the
    /// platform does it.
    void AskForSize();
    /// Has the toolkit know where the window is.
    void FindPlace();
    /// Paints `changed`, or all if the scale is another one, and sends it to the display; or keeps
    /// it until there is one to see it.
    void Paint(const QRegion& changed);
    void PaintOn(QPaintDevice& device, const QRegion& region);
    void Report(PointerKind kind, const QMouseEvent& event, Integer button);
    void CentreOnScreen();
    /// Tells that no release will come for the buttons that are held.
    void LosePointer();

    QtLoop& m_loop;
    QBackingStore m_store;
    QtLabels m_labels;
    QtLook m_look;
    QtMove m_move;
    QtScreens m_screens;
    QtToolTip m_toolTip;
    const bool m_isCutByServer; ///< To the form's region. Elsewhere transparent pixels do it.
    Form* m_form = nullptr;
    FormEvents* m_events = nullptr;
    std::function<void(bool, bool)> m_tellVisibility;
    bool m_isWindowVisible = false; ///< As told last, like the next.
    bool m_isScopeVisible = false;
    bool m_isExposed = true; ///< The platform can hide the window otherwise than minimised.
    bool m_isForced = false; ///< A manager gave the window another size than was asked for.
    Scene m_shown;
    Scene m_now; ///< Here for its memory alone: most scenes differ from the last one in little.
    double m_sizedRatio = 0;    ///< Device pixels to one of the toolkit's, at the last size.
    double m_paintedRatio = 0;  ///< The same, when it painted last.
    QRegion m_unpainted;        ///< What changed while nobody could see it.
    QRegion m_shape;            ///< The form's region in client pixels; used only while it has one.
    Integer m_held = kNoButton; ///< The buttons held at the event told last.
    bool m_isUp = false;        ///< Whether `ShowFirst` was called.
};
