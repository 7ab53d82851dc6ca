// The window only reads the records, but for the window's state, which the platform can change,
// too.
#include "platform/qt/qt_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QToolTip>
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
// The most that the toolkit takes: no limit.
constexpr int kAnySizePx = (1 << 24) - 1;

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

QSize ClientSize(const Scene& scene) {
    return QSize(scene.Client.Right, scene.Client.Bottom);
}

// The region with one more pixel on each side of its pieces.
QRegion WithNeighbours(const QRegion& region) {
    QRegion wider;
    for (const QRect& piece : region)
        wider += piece.adjusted(-1, -1, 1, 1);
    return wider;
}

} // namespace

QtWindow::QtWindow(QtLoop& loop)
    : m_loop(loop), m_store(this), m_move(*this, [this] { FollowScale(); }),
      m_screens([this] { FollowScale(); }), m_toolTip([this] { m_look.Follow(); }),
      m_isCutByServer(HasServer()) {
    QSurfaceFormat format = requestedFormat();
    // Where it isn't needed it would be cleared before each painting.
    format.setAlphaBufferSize(m_isCutByServer ? -1 : 8);
    setFormat(format);
    setFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
             Qt::WindowCloseButtonHint);
    // Once all that belongs to the change has been heard.
    connect(this, &QWindow::screenChanged, this, &QtWindow::FollowScale, Qt::QueuedConnection);
}

void QtWindow::Attach(Form& form, FormEvents& events,
                      std::function<void(bool, bool)> tellVisibility) {
    m_form = &form;
    m_events = &events;
    m_tellVisibility = std::move(tellVisibility);
}

void QtWindow::ShowFirst() {
    TakeScene(*m_form, m_shown);
    m_isUp = true;
    ShowSize(m_shown);
    create();
    ShowFrame(m_shown);
    ShowShape(m_shown);
    ShowCaption(m_shown);
    m_sizedRatio = devicePixelRatio();
    CentreOnScreen();
    Paint(WholeStore());
    show();
    TellVisibility(m_shown);
}

void QtWindow::Present() {
    Accessibility().Forget();
    if (!m_isUp) return;
    TakeScene(*m_form, m_now);
    const QRegion damage = TakeDamage();
    std::swap(m_shown, m_now);
    Paint(damage);
}

void QtWindow::ShowChanges() {
    if (m_isUp && m_form->State == WindowState::Minimised &&
        m_shown.State == WindowState::Minimised) {
        Accessibility().Forget();
        // Nothing but the caption is visible; the rest is compared when the window comes back.
        if (m_form->Caption == m_shown.Caption) return;
        m_shown.Caption = m_form->Caption;
        ShowCaption(m_shown);
        return;
    }
    Present();
    if (m_isUp) Accessibility().AnnounceChanges();
}

QRegion QtWindow::TakeDamage() {
    const Scene& now = m_now;
    const bool otherShape = now.Region != m_shown.Region || now.Client != m_shown.Client;
    if (now.Client != m_shown.Client) ShowSize(now);
    if (otherShape) {
        ShowFrame(now);
        ShowShape(now);
    }
    if (now.Caption != m_shown.Caption) ShowCaption(now);
    if (now.State != m_shown.State && now.State == WindowState::Minimised) Minimise();
    TellVisibility(now);
    if (otherShape) return WholeStore();
    QRegion damage;
    for (const Rect& rect : DamageBetween(m_shown, now))
        damage += ToQRect(rect);
    return damage;
}

void QtWindow::Minimise() {
    // A wish, until the platform says that it has come true. Not every window manager grants it.
    m_form->State = m_shown.State;
    const X11Window server = ServerWindow(*this);
    if (server.Connection)
        AskToMinimise(server);
    else
        showMinimized();
    m_now.State = m_form->State;
}

void QtWindow::FindPlace() {
    const std::optional<QPoint> corner = PlaceOnServer(*this);
    // The manager, which is asked for the place where the window is already, moves nothing.
    if (corner && *corner != position()) MoveTo(*this, *corner);
}

void QtWindow::ShowSize(const Scene& now) {
    const QSize client = ClientSize(now);
    // A change of size would move the window to where the toolkit thinks it is.
    if (m_shown.Client != now.Client) FindPlace();
    setMinimumSize(client);
    setMaximumSize(client);
    resize(client);
    m_store.resize(StoreSize(now));
}

QSize QtWindow::StoreSize(const Scene& now) const {
    return m_isForced ? ClientSize(now).expandedTo(size()) : ClientSize(now);
}

QRect QtWindow::WholeStore() const {
    return QRect(QPoint(0, 0), m_store.size());
}

void QtWindow::ShowFrame(const Scene& now) {
    setFlag(Qt::FramelessWindowHint, now.Region != nullptr);
}

void QtWindow::ShowShape(const Scene& now) {
    if (!now.Region) {
        setMask(QRegion());
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
    setTitle(ToQString(TextView(now.Caption).substr(0, kMostCaption)));
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
    const QRect area = screen()->availableGeometry();
    const QPoint outer(
        area.left() + (area.width() - m_shown.Client.Right - kFrameLeftPx - kFrameRightPx) / 2,
        area.top() + (area.height() - m_shown.Client.Bottom - kFrameTopPx - kFrameBottomPx) / 2);
    // With a region the frame isn't there, but its place is.
    if (m_shown.Region)
        setPosition(outer + QPoint(kFrameLeftPx, kFrameTopPx));
    else
        setFramePosition(outer);
}

void QtWindow::exposeEvent(QExposeEvent*) {
    if (m_isExposed == isExposed()) return;
    m_isExposed = isExposed();
    if (!m_isExposed) LosePointer();
    TellVisibility(m_shown);
}

void QtWindow::paintEvent(QPaintEvent* event) {
    // At another scale the store is a new one.
    if (m_paintedRatio != devicePixelRatio()) m_unpainted = WholeStore();
    Paint(std::exchange(m_unpainted, {}));
    // The display has lost it, but the store hasn't.
    m_store.flush(event->region());
}

void QtWindow::resizeEvent(QResizeEvent*) {
    if (!m_isUp) return;
    // Of a size that is still on its way nothing has to be painted.
    m_isForced = size() != ClientSize(m_shown);
    if (m_store.size() == StoreSize(m_shown)) return;
    m_store.resize(StoreSize(m_shown));
    Paint(WholeStore());
}

void QtWindow::FollowScale() {
    if (!m_isUp || !m_isCutByServer) return;
    const double ratio = devicePixelRatio();
    const bool isOtherScale = std::exchange(m_sizedRatio, ratio) != ratio;
    // While a manager moves it to a screen of another scale it lets it have no other size.
    if (isOtherScale || size() != ClientSize(m_shown)) AskForSize();
}

void QtWindow::AskForSize() {
    // The middle decides on which screen a window is. It stays, or a window that grows could be on
    // the other screen again, and shrink, without end.
    QRect place(PlaceOnServer(*this).value_or(position()), size());
    const QPoint middle = place.center();
    place.setSize(ClientSize(m_shown));
    place.moveCenter(middle);
    // The toolkit passes on what is new to it alone, and none of it is.
    setMinimumSize(QSize());
    setMaximumSize(QSize(kAnySizePx, kAnySizePx));
    setMinimumSize(place.size());
    setMaximumSize(place.size());
    setGeometry(place);
    ShowShape(m_shown);
    // Nor does it give the store as many pixels as the scale wants, where there was none until now.
    m_store.resize(m_store.size());
    Paint(WholeStore());
}

void QtWindow::LosePointer() {
    if (std::exchange(m_held, kNoButton) == kNoButton) return;
    m_loop.Handle([this] {
        m_events->OnPointer({PointerKind::Lost, 0, 0, kNoButton, kNoButton, 0});
    });
}

bool QtWindow::IsBlocked() const {
    return QGuiApplication::modalWindow() != nullptr;
}

void QtWindow::PrepareDialog() {
    Present();
    FindPlace();
    m_look.Follow();
}

bool QtWindow::event(QEvent* event) {
    // Not every platform lets a menu take the keyboard; what is typed is for it all the same.
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    if (QWidget* menu = QApplication::activePopupWidget(); menu && isKey)
        return QCoreApplication::sendEvent(menu, event);
    // A dialog takes the mouse; a release will not come here.
    if (event->type() == QEvent::WindowBlocked) LosePointer();
    if (event->type() == QEvent::Leave) m_toolTip.Forget();
    if (event->type() == QEvent::WindowStateChange && m_isUp) FollowState();
    return QWindow::event(event);
}

void QtWindow::FollowState() {
    // Not only we change the state. Without this a window that the user brought back could not be
    // minimised again, since the record would still say so.
    const bool isMinimised = windowStates().testFlag(Qt::WindowMinimized);
    m_form->State = isMinimised ? WindowState::Minimised : WindowState::Normal;
    m_shown.State = m_form->State;
    TellVisibility(m_shown);
    if (isMinimised) LosePointer();
    m_loop.Handle([] {});
}

void QtWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (IsBlocked()) return;
    m_loop.Post([this] { m_events->OnClose(); });
}

void QtWindow::Paint(const QRegion& changed) {
    if (changed.isEmpty()) return;
    if (!isExposed()) {
        m_unpainted += changed;
        return;
    }
    const double ratio = devicePixelRatio();
    const bool isOtherScale = std::exchange(m_paintedRatio, ratio) != ratio;
    const QRegion region = isOtherScale ? QRegion(WholeStore()) : changed;
    m_store.beginPaint(region);
    // Where a piece ends within a device pixel its neighbours belong to it: clearing, painting and
    // clipping round otherwise there, and would leave seams.
    const QRegion painted = ratio == std::floor(ratio) ? region : WithNeighbours(region);
    if (QPaintDevice* device = m_store.paintDevice()) PaintOn(*device, painted);
    m_store.endPaint();
    m_store.flush(painted);
    if (AfterPaint) AfterPaint(region);
}

void QtWindow::PaintOn(QPaintDevice& device, const QRegion& region) {
    QPainter painter(&device);
    // Where the server itself cuts the window to its shape nothing is clipped here: at scales that
    // are no whole number the two would round otherwise, and leave specks along the edge.
    if (m_shown.Region && !m_isCutByServer) {
        painter.setClipRegion(region);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(region.boundingRect(), Qt::transparent);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter.setClipRegion(m_shape & region);
    }
    // Piece by piece, so that nothing is drawn between two changes that are far from each other.
    for (const QRect& piece : region)
        PaintScene(painter, m_labels, m_shown, FromQRect(piece));
}

void QtWindow::mousePressEvent(QMouseEvent* event) {
    Report(PointerKind::Press, *event, ButtonNumber(event->button()));
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
    m_toolTip.Follow(*m_form, report, event.globalPosition().toPoint());
    m_loop.Handle([&] { m_events->OnPointer(report); });
}

void QtWindow::BeginMove(Integer button) {
    m_toolTip.Forget();
    // The manager is told where the pointer is, counted from the window's corner.
    FindPlace();
    m_move.Begin(button);
}

std::size_t QtWindow::PopupMenu(std::span<const MenuEntry> menu, std::size_t root) {
    Accessibility().Forget();
    m_toolTip.Forget();
    m_look.Follow();
    QMenu popup;
    // A press beside the menu only closes it.
    popup.setAttribute(Qt::WA_NoMouseReplay);
    FillMenu(popup, menu, root);
    const QAction* chosen = popup.exec(QCursor::pos());
    return chosen ? static_cast<std::size_t>(chosen->data().toULongLong()) : root;
}
