// Each place is reckoned from the last change, so that rounding errors don't add up over a long
// track.
#include "platform/audio/output/clock_output.h"

#include <algorithm>

void ClockOutput::Open(const SoundFormat& format, const std::string&, std::int64_t nowUs) {
    m_state = OutputState::Running;
    m_format = format;
    m_held = false;
    Drop(nowUs);
}

void ClockOutput::Drop(std::int64_t nowUs) {
    m_written = 0;
    m_heard = 0;
    m_sinceUs = nowUs;
    m_askAtUs = nowUs;
}

std::int64_t ClockOutput::AheadFrames() const {
    // A fast clock empties its queue sooner, so it gets a longer one.
    const double seconds = kAheadMs / 1000.0 * std::clamp(m_speed, 1.0, 1.5);
    return static_cast<std::int64_t>(m_format.RateHz * seconds);
}

std::int64_t ClockOutput::HeardFrames(std::int64_t nowUs) {
    if (m_held) return m_heard;
    const double gone = static_cast<double>(std::max<std::int64_t>(0, nowUs - m_sinceUs)) / 1e6;
    const std::int64_t heard =
        m_heard + static_cast<std::int64_t>(gone * m_format.RateHz * m_speed);
    return std::min(heard, m_written);
}

double ClockOutput::Pace() const {
    return m_held ? 0 : m_format.RateHz * m_speed;
}

void ClockOutput::Settle(std::int64_t nowUs) {
    m_heard = HeardFrames(nowUs);
    m_sinceUs = nowUs;
}

std::int64_t ClockOutput::WritableFrames(std::int64_t nowUs) {
    return std::max<std::int64_t>(0, AheadFrames() - (m_written - HeardFrames(nowUs)));
}

void ClockOutput::Write(std::span<const std::int16_t> samples, std::int64_t nowUs) {
    // While there was nothing to be heard the clock stood still.
    if (HeardFrames(nowUs) == m_written) Settle(nowUs);
    m_written += static_cast<std::int64_t>(samples.size()) / m_format.Channels;
}

void ClockOutput::Hold(bool held, std::int64_t nowUs) {
    Settle(nowUs);
    m_held = held;
}

std::optional<std::int64_t> ClockOutput::DueUs() const {
    if (m_state != OutputState::Running || m_held) return std::nullopt;
    return m_askAtUs;
}

void ClockOutput::Poll(std::int64_t nowUs) {
    if (nowUs < m_askAtUs) return;
    const double seconds = static_cast<double>(AheadFrames()) / m_format.RateHz / m_speed;
    m_askAtUs = nowUs + static_cast<std::int64_t>(seconds / 2 * 1e6);
}
