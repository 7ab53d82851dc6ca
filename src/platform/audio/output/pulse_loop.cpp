// The bell is one more descriptor that the loop polls.
#include "platform/audio/output/pulse_loop.h"

#include <algorithm>
#include <pulse/mainloop-api.h>
#include <pulse/mainloop.h>

#include "platform/audio/output/audio_clock.h"

namespace {

/// The poll takes its time as an `int`.
constexpr std::int64_t kLongestSleepUs = 1'000'000'000;

void OnBell(pa_mainloop_api*, pa_io_event*, int, pa_io_event_flags_t, void* bell) {
    static_cast<Bell*>(bell)->Clear();
}

} // namespace

PulseLoop::PulseLoop(Bell& bell) : m_loop(pa_mainloop_new()) {
    if (!m_loop) return;
    pa_mainloop_api* api = pa_mainloop_get_api(m_loop);
    m_wakeUp = api->io_new(api, bell.Descriptor(), PA_IO_EVENT_INPUT, OnBell, &bell);
}

PulseLoop::~PulseLoop() {
    if (!m_loop) return;
    if (m_wakeUp) pa_mainloop_get_api(m_loop)->io_free(m_wakeUp);
    pa_mainloop_free(m_loop);
}

bool PulseLoop::SleepUntil(std::optional<std::int64_t> untilUs) {
    int sleepUs = -1;
    if (untilUs)
        sleepUs =
            static_cast<int>(std::clamp<std::int64_t>(*untilUs - NowUs(), 0, kLongestSleepUs));
    // A bell that rings from here on ends the sleep at once, so nothing can be missed.
    if (pa_mainloop_prepare(m_loop, sleepUs) < 0 || pa_mainloop_poll(m_loop) < 0) return false;
    pa_mainloop_dispatch(m_loop);
    return true;
}
