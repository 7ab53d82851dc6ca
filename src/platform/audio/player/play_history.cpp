// A ring: frame n of the track lies at n modulo the capacity.
#include "platform/audio/player/play_history.h"

#include <algorithm>

void PlayHistory::Restart(const SoundFormat& format, std::int64_t frame) {
    m_channels = format.Channels;
    m_capacity = static_cast<std::int64_t>(format.RateHz) * kSeconds;
    m_samples.resize(static_cast<std::size_t>(m_capacity * m_channels));
    m_first = m_end = frame;
}

void PlayHistory::Append(std::span<const std::int16_t> samples) {
    std::int64_t left = static_cast<std::int64_t>(samples.size()) / m_channels;
    while (left > 0) {
        const std::int64_t at = m_end % m_capacity;
        const std::int64_t frames = std::min(m_capacity - at, left);
        const auto count = static_cast<std::size_t>(frames * m_channels);
        std::copy_n(samples.begin(), count, m_samples.begin() + at * m_channels);
        samples = samples.subspan(count);
        left -= frames;
        m_end += frames;
    }
}

std::span<const std::int16_t> PlayHistory::From(std::int64_t frame, std::int64_t frames) const {
    const std::int64_t at = frame % m_capacity;
    const std::int64_t count =
        std::max<std::int64_t>(0, std::min({frames, m_end - frame, m_capacity - at}));
    return {m_samples.data() + at * m_channels, static_cast<std::size_t>(count * m_channels)};
}
