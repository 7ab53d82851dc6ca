// The last seconds of what was decoded, so that it can be looked at again and written again.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/audio/sound_format.h"

/// Holds frames `Begin()` to `End()` of the track as they were decoded.
class PlayHistory {
public:
    static constexpr int kSeconds = 6;

    /// Empty, from `frame` on.
    void Restart(const SoundFormat& format, std::int64_t frame);
    /// Adds whole frames at the end; the oldest fall out.
    void Append(std::span<const std::int16_t> samples);

    [[nodiscard]] std::int64_t Begin() const { return m_begin; }
    [[nodiscard]] std::int64_t End() const { return m_end; }

    /// The samples of up to `frames` frames from `frame` on that lie together; fewer where the
    /// memory wraps around. `frame` lies between `Begin()` and `End()`.
    [[nodiscard]] std::span<const std::int16_t> From(std::int64_t frame, std::int64_t frames) const;

private:
    int m_channels = 2;
    std::int64_t m_capacity = 0; ///< In frames.
    std::int64_t m_begin = 0;
    std::int64_t m_end = 0;
    std::vector<std::int16_t> m_samples;
};
