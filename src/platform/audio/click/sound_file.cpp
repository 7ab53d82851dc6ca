// The file is opened by `OpenForReading`, so that a FIFO or a device can't hold up the caller.
#include "platform/audio/click/sound_file.h"

#include <algorithm>
#include <cmath>
#include <sndfile.h>

#include "platform/audio/sound_format.h"
#include "platform/files.h"

namespace {

constexpr std::size_t kMostSamples = (4u << 20) / sizeof(std::int16_t);
constexpr int kMostChannels = 32;
constexpr int kMostRateHz = 192'000;

/// Full scale is 1; a file may hold more, or no number at all.
std::int16_t ToSample(float value) {
    if (std::isnan(value)) return 0;
    return static_cast<std::int16_t>(std::lrint(std::clamp(value * 32768.0F, -32768.0F, 32767.0F)));
}

} // namespace

std::int64_t SoundClip::LengthMs() const {
    const auto frames = static_cast<std::int64_t>(Samples.size()) / Channels;
    return MsOfFrames(frames, RateHz);
}

std::optional<SoundClip> ReadSoundFile(const Text& path) {
    FileHandle handle = OpenForReading(TextView(path));
    if (!handle) return std::nullopt;
    SF_INFO info{};
    // The library closes the descriptor, also where it fails.
    SNDFILE* file = sf_open_fd(handle.Release(), SFM_READ, &info, SF_TRUE);
    if (!file) return std::nullopt;
    SoundClip clip{info.samplerate, info.channels, {}};
    const bool fits = info.channels >= 1 && info.channels <= kMostChannels &&
                      info.samplerate >= 1 && info.samplerate <= kMostRateHz;
    if (fits) {
        const auto channels = static_cast<std::size_t>(info.channels);
        const auto most = static_cast<sf_count_t>(kMostSamples / channels);
        const sf_count_t frames = std::clamp<sf_count_t>(info.frames, 0, most);
        // Asked for 16 bits, the library cuts off what stands behind the point of a floating-point
        // file, which is all of it.
        std::vector<float> samples(static_cast<std::size_t>(frames) * channels);
        const sf_count_t read = sf_readf_float(file, samples.data(), frames);
        samples.resize(static_cast<std::size_t>(std::max<sf_count_t>(read, 0)) * channels);
        clip.Samples.resize(samples.size());
        std::transform(samples.begin(), samples.end(), clip.Samples.begin(), ToSample);
    }
    sf_close(file);
    if (clip.Samples.empty()) return std::nullopt;
    return clip;
}
