// A signal handler may do almost nothing, so it only writes to a descriptor on which the loop
// waits.
#include "platform/qt/qt_signals.h"

#include <QSocketNotifier>
#include <csignal>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

namespace {

// Global, since a signal handler gets no argument that could tell it.
volatile std::sig_atomic_t wakeDescriptor = -1;

extern "C" void OnEndSignal(int) {
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = write(wakeDescriptor, &one, sizeof one);
}

} // namespace

bool WatchEndSignals(std::function<void()> ended) {
    const int descriptor = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (descriptor < 0) return false;
    wakeDescriptor = descriptor;
    auto* notifier = new QSocketNotifier(descriptor, QSocketNotifier::Read);
    QObject::connect(notifier, &QSocketNotifier::activated, notifier,
                     [ended = std::move(ended)] { ended(); });
    struct sigaction action {};
    action.sa_handler = OnEndSignal;
    action.sa_flags = SA_RESTART;
    bool done = true;
    for (const int number : {SIGTERM, SIGHUP, SIGINT})
        done = sigaction(number, &action, nullptr) == 0 && done;
    return done;
}
