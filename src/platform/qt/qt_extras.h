// Keys and drops as the toolkit has them, the window's way to the front, the list, the door. All of
// it stands beside the window and sees its events; the window knows nothing of it.
#pragma once

#include <QObject>
#include <memory>

#include "platform/doorway.h"
#include "platform/qt/qt_loop.h"
#include "platform/window_extras.h"

class QDropEvent;
class QKeyEvent;
class QtWindow;

/// The extras of one window.
class QtExtras : public QObject, public WindowExtras {
public:
    /// `door` is where second starts knock, opened before there is anybody to hear it: who knocks
    /// meanwhile waits. It may be null.
    QtExtras(QtWindow& window, QtLoop& loop, std::unique_ptr<Doorway> door);

    void Listen(ExtraEvents& events) override;
    void OpenDoor(bool open) override;
    void Raise() override;
    [[nodiscard]] std::size_t ChooseRow(const std::vector<Text>& rows, std::size_t marked) override;

protected:
    bool eventFilter(QObject* window, QEvent* event) override;

private:
    [[nodiscard]] bool TakeKey(const QKeyEvent& event);
    [[nodiscard]] bool TakeDrop(QDropEvent& event);
    void LetIn();

    QtWindow& m_window;
    QtLoop& m_loop;
    std::unique_ptr<Doorway> m_door;
    std::unique_ptr<QObject> m_knocks; ///< Hears of knocks while the door is open.
    ExtraEvents* m_events = nullptr;
};

/// The message by which a start hands over its command line: with the token that lets the window
/// come to the front, where the desktop has given one.
[[nodiscard]] std::string HandoverMessage(const Text& commandLine);
