// Whole numbers all the way: at full volume samples pass bit for bit, and the rest is one
// multiplication.
#include "platform/audio/output/volume_ramp.h"

#include <algorithm>

std::int32_t VolumeRamp::FactorOf(int percent) {
    return static_cast<std::int32_t>(
        (static_cast<std::int64_t>(std::clamp(percent, 0, 100)) * kFull + 50) / 100);
}

void VolumeRamp::Set(std::int32_t factor) {
    m_from = m_to = factor;
    m_length = 0;
}

void VolumeRamp::Change(std::int64_t atFrame, std::int32_t factor, std::int64_t overFrames) {
    m_from = At(atFrame);
    m_to = factor;
    m_start = atFrame;
    m_length = std::max<std::int64_t>(0, overFrames);
}

std::int32_t VolumeRamp::At(std::int64_t frame) const {
    const std::int64_t gone = frame - m_start;
    if (m_length == 0 || gone >= m_length) return m_to;
    if (gone <= 0) return m_from;
    return m_from +
           static_cast<std::int32_t>((static_cast<std::int64_t>(m_to) - m_from) * gone / m_length);
}

void VolumeRamp::Apply(std::int64_t frame, int channels, std::span<std::int16_t> samples) const {
    const auto scaled = [](std::int16_t sample, std::int32_t factor) {
        return static_cast<std::int16_t>((sample * factor + kFull / 2) >> 16);
    };
    std::size_t next = 0;
    const auto width = static_cast<std::size_t>(channels);
    while (next < samples.size() && frame < m_start + m_length) {
        const std::int32_t factor = At(frame++);
        for (std::size_t end = std::min(samples.size(), next + width); next < end; ++next)
            samples[next] = scaled(samples[next], factor);
    }
    if (m_to == kFull) return;
    for (; next < samples.size(); ++next)
        samples[next] = scaled(samples[next], m_to);
}
