// The player's clock, which is libpulse's: what the server's answers are measured against.
#pragma once

#include <cstdint>
#include <pulse/rtclock.h>

/// Microseconds; never jumps, only differences mean something.
[[nodiscard]] inline std::int64_t NowUs() {
    return static_cast<std::int64_t>(pa_rtclock_now());
}
