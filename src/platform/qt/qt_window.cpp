// The window only reads the records, but for the window's state, which the platform can change,
// too.
#include "platform/qt/qt_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QHelpEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScreen>
#include <QToolTip>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/qt/qt_menu.h"
#include "platform/qt/qt_paint.h"
#include "platform/qt/qt_rect.h"
#include "platform/qt/qt_server.h"
#include "platform/qt/qt_text.h"
#include "platform/regions.h"

namespace {

constexpr std::size_t kMostCaption = 1000;

Integer ButtonNumber(Qt::MouseButton button) {
    switch (button) {
    case Qt::LeftButton:
        return kLeftButton;
    case Qt::RightButton:
        return kRightButton;
    case Qt::MiddleButton:
        return kMiddleButton;
    default:
        return kNoButton;
    }
}

Integer ButtonSet(Qt::MouseButtons buttons) {
    Integer set = 0;
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton})
        if (buttons & button) set = static_cast<Integer>(set + ButtonNumber(button));
    return set;
}

Integer ShiftSet(Qt::KeyboardModifiers keys) {
    return static_cast<Integer>((keys & Qt::ShiftModifier ? 1 : 0) +
                                (keys & Qt::ControlModifier ? 2 : 0) +
                                (keys & Qt::AltModifier ? 4 : 0));
}

} // namespace

QtWindow::QtWindow(QtLoop& loop) : m_loop(loop), m_move(*this) {
    setAttribute(Qt::WA_TranslucentBackground);
    // If a release gets lost, the next move without a button tells it.
    setMouseTracking(true);
    setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                   Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
}

void QtWindow::Attach(Form& form, FormEvents& events,
                      std::function<void(bool, bool)> tellVisibility) {
    m_form = &form;
    m_events = &events;
    m_tellVisibility = std::move(tellVisibility);
}

void QtWindow::ShowFirst() {
    m_shown = SceneOf(*m_form);
    m_isUp = true;
    ShowSize(m_shown);
    create();
    windowHandle()->installEventFilter(this);
    ShowFrame(m_shown);
    ShowShape(m_shown);
    ShowCaption(m_shown);
    CentreOnScreen();
    show();
    TellVisibility(m_shown);
}

void QtWindow::Present() {
    Accessibility().Forget();
    if (!m_isUp) return;
    // Dialogs open where the handle is.
    PlaceHandle();
    Scene now = SceneOf(*m_form);
    const QRegion damage = TakeDamage(now);
    m_shown = std::move(now);
    // Painting at once also sends it to the display; the toolkit's sync would let events happen.
    // The call also paints what earlier events left to be painted.
    if (!damage.isEmpty()) repaint(damage);
}

void QtWindow::ShowChanges() {
    Accessibility().Forget();
    if (!m_isUp) return;
    if (m_form->State == WindowState::Minimised && m_shown.State == WindowState::Minimised) {
        // Nothing but the caption is visible; the rest is compared when the window comes back.
        if (m_form->Caption != m_shown.Caption) {
            m_shown.Caption = m_form->Caption;
            ShowCaption(m_shown);
        }
        return;
    }
    Scene now = SceneOf(*m_form);
    const QRegion damage = TakeDamage(now);
    m_shown = std::move(now);
    if (!damage.isEmpty()) update(damage);
    Accessibility().AnnounceChanges();
}

QRegion QtWindow::TakeDamage(Scene& now) {
    const bool otherShape = now.Region != m_shown.Region || now.Client != m_shown.Client;
    if (now.Client != m_shown.Client) ShowSize(now);
    if (otherShape) {
        ShowFrame(now);
        ShowShape(now);
    }
    if (now.Caption != m_shown.Caption) ShowCaption(now);
    if (now.State != m_shown.State && now.State == WindowState::Minimised) Minimise(now);
    TellVisibility(now);
    if (otherShape) return rect();
    QRegion damage;
    for (const Rect& rect : DamageBetween(m_shown, now))
        damage += ToQRect(rect);
    return damage;
}

void QtWindow::Minimise(Scene& now) {
    // A wish, until the platform says that it has come true. Not every window manager grants it.
    m_form->State = m_shown.State;
    const X11Window server = ServerWindow(*windowHandle());
    if (server.Connection)
        AskToMinimise(server);
    else
        showMinimized();
    now.State = m_form->State;
}

void QtWindow::PlaceHandle() {
    QWindow* handle = windowHandle();
    if (handle && handle->position() != geometry().topLeft())
        handle->setPosition(geometry().topLeft());
}

void QtWindow::ShowSize(const Scene& now) {
    // A change of size would move the window to where the handle is.
    PlaceHandle();
    setFixedSize(now.Client.Right, now.Client.Bottom);
}

void QtWindow::ShowFrame(const Scene& now) {
    // On the handle: the widget's setter would hide the window and show it again.
    windowHandle()->setFlag(Qt::FramelessWindowHint, now.Region != nullptr);
}

void QtWindow::ShowShape(const Scene& now) {
    if (!now.Region) {
        clearMask();
        return;
    }
    const Rect client{kFrameLeftPx, kFrameTopPx, kFrameLeftPx + now.Client.Right,
                      kFrameTopPx + now.Client.Bottom};
    const std::vector<Rect> rows = now.Region->Rectangles(client);
    std::vector<QRect> rectangles;
    for (const Rect& row : rows)
        rectangles.push_back(ToQRect(row));
    m_shape.setRects(rectangles.data(), static_cast<int>(rectangles.size()));
    // To the toolkit an empty mask is none, and the whole window would be visible.
    setMask(m_shape.isEmpty() ? QRegion(-1, -1, 1, 1) : m_shape);
}

void QtWindow::ShowCaption(const Scene& now) {
    // The widget's setter would replace [*] in the text and append the program's name.
    windowHandle()->setTitle(ToQString(TextView(now.Caption).substr(0, kMostCaption)));
}

void QtWindow::TellVisibility(const Scene& now) {
    const bool isWindowVisible = now.State == WindowState::Normal && m_isExposed;
    const bool isScopeVisible =
        isWindowVisible &&
        std::any_of(now.Figures.begin(), now.Figures.end(),
                    [](const Figure& figure) { return figure.Kind == ControlKind::Scope; });
    if (isWindowVisible == m_isWindowVisible && isScopeVisible == m_isScopeVisible) return;
    m_isWindowVisible = isWindowVisible;
    m_isScopeVisible = isScopeVisible;
    m_tellVisibility(isWindowVisible, isScopeVisible);
}

void QtWindow::CentreOnScreen() {
    const QRect screen = windowHandle()->screen()->availableGeometry();
    const QPoint outer(
        screen.left() + (screen.width() - width() - kFrameLeftPx - kFrameRightPx) / 2,
        screen.top() + (screen.height() - height() - kFrameTopPx - kFrameBottomPx) / 2);
    // With a region the frame isn't there, but its place is.
    move(m_shown.Region ? outer + QPoint(kFrameLeftPx, kFrameTopPx) : outer);
}

bool QtWindow::eventFilter(QObject* handle, QEvent* event) {
    if (event->type() == QEvent::Expose && m_isExposed != windowHandle()->isExposed()) {
        m_isExposed = !m_isExposed;
        if (!m_isExposed) LosePointer();
        TellVisibility(m_shown);
    }
    return QWidget::eventFilter(handle, event);
}

void QtWindow::LosePointer() {
    if (std::exchange(m_held, kNoButton) == kNoButton) return;
    m_loop.Handle([this] {
        m_events->OnPointer({PointerKind::Lost, 0, 0, kNoButton, kNoButton, 0});
    });
}

bool QtWindow::IsBlocked() const {
    return QApplication::activeModalWidget() != nullptr;
}

bool QtWindow::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        ShowToolTip(static_cast<QHelpEvent&>(*event));
        return true;
    }
    // A dialog takes the mouse; a release will not come here.
    if (event->type() == QEvent::WindowBlocked) LosePointer();
    return QWidget::event(event);
}

void QtWindow::ShowToolTip(QHelpEvent& event) {
    const Control* control = ControlAt(*m_form, event.pos().x(), event.pos().y());
    if (!control || control->ToolTip.empty()) {
        QToolTip::hideText();
        return;
    }
    FollowDesktop();
    // The rectangle hides the tip when the pointer goes on to another control.
    const QRect place(control->Left + m_form->picBackground.Left,
                      control->Top + m_form->picBackground.Top, control->Width, control->Height);
    QToolTip::showText(event.globalPos(), ToQString(control->ToolTip), this, place);
}

void QtWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::WindowStateChange && m_isUp) {
        // Not only we change the state. Without this a window that the user brought back could not
        // be minimised again, since the record would still say so.
        m_form->State = isMinimized() ? WindowState::Minimised : WindowState::Normal;
        m_shown.State = m_form->State;
        TellVisibility(m_shown);
        if (isMinimized()) LosePointer();
        m_loop.Handle([] {});
    }
    QWidget::changeEvent(event);
}

void QtWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (IsBlocked()) return;
    m_loop.Post([this] { m_events->OnClose(); });
}

void QtWindow::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    // Where the server itself cuts the window to its shape nothing is clipped here: at scales that
    // are no whole number the two would round otherwise, and leave specks along the edge.
    if (m_shown.Region && !ServerWindow(*windowHandle()).Connection) {
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(event->rect(), Qt::transparent);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter.setClipRegion(m_shape & event->region());
    }
    // Piece by piece, so that nothing is drawn between two changes that are far from each other.
    for (const QRect& piece : event->region()) {
        painter.fillRect(piece, FormColour());
        PaintScene(painter, m_labels, m_shown, FromQRect(piece));
    }
    if (AfterFirstPaint) m_loop.Post(std::exchange(AfterFirstPaint, nullptr));
}

void QtWindow::mousePressEvent(QMouseEvent* event) {
    Report(PointerKind::Press, *event, ButtonNumber(event->button()));
}

void QtWindow::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

void QtWindow::mouseReleaseEvent(QMouseEvent* event) {
    Report(PointerKind::Release, *event, ButtonNumber(event->button()));
}

void QtWindow::mouseMoveEvent(QMouseEvent* event) {
    Report(PointerKind::Move, *event, kNoButton);
}

void QtWindow::Report(PointerKind kind, const QMouseEvent& event, Integer button) {
    if (m_move.Takes(event)) return;
    if (kind != PointerKind::Move && button == kNoButton) return;
    // Not the event's own position, which the toolkit has rounded.
    const QPointF place = event.scenePosition();
    const PointerEvent report{kind,
                              static_cast<int>(std::floor(place.x())),
                              static_cast<int>(std::floor(place.y())),
                              button,
                              ButtonSet(event.buttons()),
                              ShiftSet(event.modifiers())};
    m_held = report.Held;
    m_loop.Handle([&] { m_events->OnPointer(report); });
}

void QtWindow::BeginMove(Integer button) {
    QToolTip::hideText();
    // The window manager is told where the pointer is, counted from the handle.
    PlaceHandle();
    m_move.Begin(button);
}

std::size_t QtWindow::PopupMenu(std::span<const MenuEntry> menu, std::size_t root) {
    Accessibility().Forget();
    FollowDesktop();
    QMenu popup;
    // A press beside the menu only closes it.
    popup.setAttribute(Qt::WA_NoMouseReplay);
    FillMenu(popup, menu, root);
    const QAction* chosen = popup.exec(QCursor::pos());
    return chosen ? static_cast<std::size_t>(chosen->data().toULongLong()) : root;
}
