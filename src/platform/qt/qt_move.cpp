// A manager that has been handed a move waits for a release that may have gone to somebody else by
// then.
#include "platform/qt/qt_move.h"

#include <QMouseEvent>
#include <QWindow>
#include <utility>

#include "platform/qt/qt_server.h"

namespace {

// How often a move of the manager's is compared with the button; a hand needs as long for a new
// press.
constexpr int kLookMs = 250;

bool IsHeld(const QMouseEvent& event, Integer button) {
    const Qt::MouseButton held = button == kLeftButton    ? Qt::LeftButton
                                 : button == kRightButton ? Qt::RightButton
                                                          : Qt::MiddleButton;
    return event.buttons().testFlag(held);
}

// Whether the server says that `button` is up. Without an X server nobody can say.
bool IsUp(const X11Window& server, Integer button) {
    if (!server.Connection) return false;
    const std::optional<Integer> down = ButtonsDown(server);
    return down && (*down & button) == 0;
}

} // namespace

void MoveTo(QWindow& window, QPoint place) {
    // On its way to another screen the toolkit takes a size for what it was on the last one.
    const QSize fixed = window.maximumSize();
    window.setGeometry(QRect(place, fixed == window.minimumSize() ? fixed : window.size()));
}

QtMove::QtMove(QWindow& window, std::function<void()> ended)
    : m_window(window), m_ended(std::move(ended)) {
    m_managerMoves.setInterval(kLookMs);
    QObject::connect(&m_managerMoves, &QTimer::timeout, &m_managerMoves, [this] {
        if (IsUp(ServerWindow(m_window), kLeftButton)) LetManagerEnd();
    });
}

void QtMove::Begin(Integer button) {
    const X11Window server = ServerWindow(m_window);
    if (IsUp(server, button)) return;
    if (button == kLeftButton && m_window.startSystemMove()) {
        if (server.Connection) m_managerMoves.start();
        return;
    }
    m_button = button;
    // From where the press was: the pointer has moved on since, and the window has to follow that.
    m_from = m_pressedAt - m_window.position();
}

bool QtMove::Takes(const QMouseEvent& event) {
    if (event.type() == QEvent::MouseButtonRelease && event.button() == Qt::LeftButton)
        if (m_managerMoves.isActive()) LetManagerEnd();
    if (m_button == kNoButton) {
        if (event.type() == QEvent::MouseButtonPress)
            m_pressedAt = event.globalPosition().toPoint();
        return false;
    }
    if (IsHeld(event, m_button))
        MoveTo(m_window, event.globalPosition().toPoint() - m_from);
    else
        m_button = kNoButton;
    return true;
}

void QtMove::LetManagerEnd() {
    m_managerMoves.stop();
    CancelMove(ServerWindow(m_window));
    m_ended();
}
