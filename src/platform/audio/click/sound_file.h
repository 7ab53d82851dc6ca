// A short sound read whole from a file.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/text.h"

/// 16-bit samples, interleaved.
struct SoundClip {
    int RateHz = 0;
    int Channels = 0;
    std::vector<std::int16_t> Samples;

    /// To the nearest millisecond.
    [[nodiscard]] std::int64_t LengthMs() const;
};

/// The sound of a wave file, or of whatever else libsndfile reads. Of a long one only the first 4
/// MiB of samples. Nothing for a file that isn't a plain one, isn't a sound, holds no sample, or
/// has a form that no sound server takes (more than 32 channels, above 192,000 Hz).
[[nodiscard]] std::optional<SoundClip> ReadSoundFile(const Text& path);
