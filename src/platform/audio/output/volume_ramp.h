// The volume along the track: a change is spread over a few milliseconds, so that no click is
// heard.
#pragma once

#include <cstdint>
#include <span>

/// Factors are fixed-point numbers with 16 bits behind the point: `kFull` leaves a sample as it is.
class VolumeRamp {
public:
    static constexpr std::int32_t kFull = 65536;

    /// The factor for an amplitude in percent, 0 to 100; other values are clamped.
    [[nodiscard]] static std::int32_t FactorOf(int percent);

    /// `factor` everywhere.
    void Set(std::int32_t factor);
    /// From `atFrame` on the factor goes from what it was there to `factor`, within `overFrames`.
    /// Frames before `atFrame` must not be asked for any more.
    void Change(std::int64_t atFrame, std::int32_t factor, std::int64_t overFrames);
    /// The last change is over: its factor everywhere.
    void Settle() { Set(m_to); }

    [[nodiscard]] std::int32_t At(std::int64_t frame) const;
    /// Applies the volume to samples of which the first belongs to `frame`.
    void Apply(std::int64_t frame, int channels, std::span<std::int16_t> samples) const;

private:
    std::int32_t m_from = kFull;
    std::int32_t m_to = kFull;
    std::int64_t m_start = 0;
    std::int64_t m_length = 0;
};
