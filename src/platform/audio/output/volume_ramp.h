// The volume along the track: a change is spread over a few milliseconds, so that no click is
// heard.
#pragma once

#include <cstdint>
#include <span>

/// Factors are 16 bits behind the point: `kFull` is the sample as it was.
class VolumeRamp {
public:
    static constexpr std::int32_t kFull = 65536;

    /// The factor for an amplitude in percent; 0 to 100, others are clamped.
    [[nodiscard]] static std::int32_t FactorOf(int percent);

    /// `factor` everywhere.
    void Set(std::int32_t factor);
    /// From `atFrame` on the factor goes over to `factor` within `overFrames`, beginning at what it
    /// was there. What lies before stays.
    void Change(std::int64_t atFrame, std::int32_t factor, std::int64_t overFrames);
    /// As if the change had been made long ago.
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
