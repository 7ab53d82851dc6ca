// The last seconds of what was decoded, so that it can be looked at again and written again.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/audio/sound_format.h"

/// Holds frames of a track as they were decoded: the last `kSeconds` seconds before `End()`, but
/// none before `First()`.
class PlayHistory {
public:
    static constexpr int kSeconds = 6;

    /// Empty; the next frame to be added is `frame`.
    void Restart(const SoundFormat& format, std::int64_t frame);
    /// Adds whole frames at the end; the oldest fall out.
    void Append(std::span<const std::int16_t> samples);

    /// The frame of the last `Restart`.
    [[nodiscard]] std::int64_t First() const { return m_first; }
    /// The frame behind the last one.
    [[nodiscard]] std::int64_t End() const { return m_end; }

    /// The samples of up to `frames` frames from `frame` on that lie together; fewer where the
    /// memory wraps around. `frame` must be held, or be `End()`.
    [[nodiscard]] std::span<const std::int16_t> From(std::int64_t frame, std::int64_t frames) const;

private:
    int m_channels = 2;
    std::int64_t m_capacity = 0; ///< In frames.
    std::int64_t m_first = 0;
    std::int64_t m_end = 0;
    std::vector<std::int16_t> m_samples;
};
