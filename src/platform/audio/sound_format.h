// The kind of sound that goes from the decoder to the output: 16 bits, interleaved.
#pragma once

#include <cstdint>

/// Samples are `std::int16_t`; a "frame" is one sample of each channel.
struct SoundFormat {
    int RateHz = 44100;
    int Channels = 2; ///< 1 or 2.

    bool operator==(const SoundFormat&) const = default;
};

/// The time of `frames`, in milliseconds, to the nearest.
[[nodiscard]] constexpr std::int64_t MsOfFrames(std::int64_t frames, int rateHz) {
    return (frames * 1000 + rateHz / 2) / rateHz;
}
