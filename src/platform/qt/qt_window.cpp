// Showing never changes a record, but for the window state, which the platform changes too.
#include "platform/qt/qt_window.h"

#include <QAccessible>
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

#include "platform/qt/qt_paint.h"
#include "platform/qt/qt_rect.h"
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

QtWindow::QtWindow(QtLoop& loop) : m_loop(loop) {
    setAttribute(Qt::WA_TranslucentBackground);
    // A move without a button tells of a release that got lost.
    setMouseTracking(true);
    setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                   Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
}

void QtWindow::Attach(Form& form, FormEvents& events, std::function<void(bool, bool)> tellSight) {
    m_form = &form;
    m_events = &events;
    m_tellSight = std::move(tellSight);
}

void QtWindow::LetSpeak(SpokenSource source) {
    m_spokenBy = std::move(source);
    InstallAccessibility();
}

void QtWindow::Speak() {
    if (!QAccessible::isActive() || !m_spokenBy.Controls) return;
    std::vector<AccessibleControl> now = m_spokenBy.Controls();
    if (now == m_spoken) return;
    AnnounceChanges(*this, m_spoken, now);
    m_spoken = std::move(now);
}

void QtWindow::ShowFirst() {
    m_shown = SceneOf(*m_form);
    m_isUp = true;
    ShowSize(m_shown);
    create();
    ShowFrame(m_shown);
    ShowShape(m_shown);
    ShowCaption(m_shown);
    CentreOnScreen();
    show();
    TellSight(m_shown);
}

void QtWindow::Present() {
    if (!m_isUp) return;
    // Dialogs are placed by it.
    PlaceHandle();
    Scene now = SceneOf(*m_form);
    const QRegion damage = TakeDamage(now);
    m_shown = std::move(now);
    // Painting at once also sends it; the toolkit's sync would let events in. Damage that still
    // waits from earlier turns is painted along by the same call.
    if (!damage.isEmpty()) repaint(damage);
}

void QtWindow::ShowChanges() {
    if (!m_isUp) return;
    if (m_form->State == WindowState::Minimised && m_shown.State == WindowState::Minimised) {
        // Nothing else of a minimised window is seen; the rest is compared when it comes back.
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
    Speak();
}

QRegion QtWindow::TakeDamage(const Scene& now) {
    const bool otherShape = now.Region != m_shown.Region || now.Client != m_shown.Client;
    if (now.Client != m_shown.Client) ShowSize(now);
    if (otherShape) {
        ShowFrame(now);
        ShowShape(now);
    }
    if (now.Caption != m_shown.Caption) ShowCaption(now);
    if (now.State != m_shown.State && now.State == WindowState::Minimised) showMinimized();
    TellSight(now);
    if (otherShape) return rect();
    QRegion damage;
    for (const Rect& rect : DamageBetween(m_shown, now))
        damage += ToQRect(rect);
    return damage;
}

void QtWindow::PlaceHandle() {
    QWindow* handle = windowHandle();
    if (handle && handle->position() != geometry().topLeft())
        handle->setPosition(geometry().topLeft());
}

void QtWindow::ShowSize(const Scene& now) {
    // A change of size would take the window to where the handle is.
    PlaceHandle();
    setFixedSize(now.Client.Right, now.Client.Bottom);
}

void QtWindow::ShowFrame(const Scene& now) {
    // On the handle, since the widget's own setter would hide the window and show it again.
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
    // An empty mask would show the whole window; a shape without a pixel shows nothing of it.
    setMask(m_shape.isEmpty() ? QRegion(-1, -1, 1, 1) : m_shape);
}

void QtWindow::ShowCaption(const Scene& now) {
    // The widget's own setter would read place-holders and append the program's name.
    windowHandle()->setTitle(ToQString(TextView(now.Caption).substr(0, kMostCaption)));
}

void QtWindow::TellSight(const Scene& now) {
    const bool window = now.State == WindowState::Normal;
    const bool scope =
        window && std::any_of(now.Figures.begin(), now.Figures.end(), [](const Figure& figure) {
            return figure.Kind == ControlKind::Scope;
        });
    if (window == m_wasWindowSeen && scope == m_wasScopeSeen) return;
    m_wasWindowSeen = window;
    m_wasScopeSeen = scope;
    m_tellSight(window, scope);
}

void QtWindow::CentreOnScreen() {
    const QRect screen = windowHandle()->screen()->availableGeometry();
    const int frameWidth = m_shown.Region ? 0 : kFrameLeftPx + kFrameRightPx;
    const int frameHeight = m_shown.Region ? 0 : kFrameTopPx + kFrameBottomPx;
    move(screen.left() + (screen.width() - width() - frameWidth) / 2,
         screen.top() + (screen.height() - height() - frameHeight) / 2);
}

bool QtWindow::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        ShowToolTip(static_cast<QHelpEvent&>(*event));
        return true;
    }
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
        // The platform restores a minimised window; without this a second minimise would show no
        // difference.
        m_form->State = isMinimized() ? WindowState::Minimised : WindowState::Normal;
        m_shown.State = m_form->State;
        TellSight(m_shown);
        m_loop.Handle([] {});
    }
    QWidget::changeEvent(event);
}

void QtWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (QApplication::activeModalWidget()) return;
    m_loop.Post([this] { m_events->OnClose(); });
}

void QtWindow::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    if (m_shown.Region) {
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(event->rect(), Qt::transparent);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter.setClipRegion(m_shape & event->region());
    }
    // Piece by piece: what lies between two distant changes need not be drawn.
    for (const QRect& piece : event->region()) {
        painter.fillRect(piece, FormColour());
        PaintScene(painter, m_fonts, m_shown, FromQRect(piece));
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
    if (FollowPointer(event)) return;
    if (kind != PointerKind::Move && button == kNoButton) return;
    if (kind == PointerKind::Press) m_pressedAt = event.globalPosition().toPoint();
    const QPointF place = event.position();
    const PointerEvent report{kind,
                              static_cast<int>(std::floor(place.x())),
                              static_cast<int>(std::floor(place.y())),
                              button,
                              ButtonSet(event.buttons()),
                              ShiftSet(event.modifiers())};
    m_loop.Handle([&] { m_events->OnPointer(report); });
}

void QtWindow::BeginMove(Integer button) {
    QToolTip::hideText();
    // The window manager is told the pointer's place as the handle sees it.
    PlaceHandle();
    if (button == kLeftButton && windowHandle()->startSystemMove()) return;
    m_movingButton = button;
    // Not where the pointer is by now, or what it has gone since the press would be lost.
    m_moveFrom = m_pressedAt - pos();
}

bool QtWindow::FollowPointer(const QMouseEvent& event) {
    if (m_movingButton == kNoButton) return false;
    if (!(ButtonSet(event.buttons()) & m_movingButton)) {
        m_movingButton = kNoButton;
        return true;
    }
    move(event.globalPosition().toPoint() - m_moveFrom);
    return true;
}

std::size_t QtWindow::PopupMenu(std::span<const MenuEntry> menu, std::size_t root) {
    FollowDesktop();
    QMenu popup;
    // The press that dismisses the menu goes nowhere.
    popup.setAttribute(Qt::WA_NoMouseReplay);
    for (std::size_t index = root + 1; index < menu.size() && menu[index].Level > menu[root].Level;
         ++index) {
        const MenuEntry& entry = menu[index];
        if (entry.Level != menu[root].Level + 1 || !entry.Visible) continue;
        QAction* action = entry.Caption == u"-" ? popup.addSeparator()
                                                : popup.addAction(ToQString(entry.Caption));
        action->setEnabled(entry.Enabled);
        action->setData(static_cast<qulonglong>(index));
    }
    const QAction* chosen = popup.exec(QCursor::pos());
    return chosen ? static_cast<std::size_t>(chosen->data().toULongLong()) : root;
}
