// libpulse's loop: where the player's thread waits for the sound server, a command or a moment.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/audio/bell.h"

struct pa_io_event;
struct pa_mainloop;

/// Belongs to the player's thread.
class PulseLoop {
public:
    /// `bell` wakes the loop. It must stay as long as the loop.
    explicit PulseLoop(Bell& bell);
    ~PulseLoop();
    PulseLoop(const PulseLoop&) = delete;
    PulseLoop& operator=(const PulseLoop&) = delete;

    /// For the connection to the server; null if the system has no memory for it.
    [[nodiscard]] pa_mainloop* Handle() const { return m_loop; }

    /// Sleeps until `untilUs` by `NowUs` (nothing: without a limit), until the bell rings or the
    /// server sends something, and handles what the server sent. False if the loop can't go on.
    [[nodiscard]] bool SleepUntil(std::optional<std::int64_t> untilUs);

private:
    pa_mainloop* m_loop;
    pa_io_event* m_wakeUp = nullptr;
};
