// The noise has no silence in it, so that any piece of it is found again in a recording.
#include "platform/audio/media_maker.h"

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <numbers>
#include <sndfile.h>
#include <thread>

#include "platform/audio/mpeg_decoder.h"

void WriteWave(const std::string& path, int format, int rateHz, int channels, const Samples16& samples) {
    SF_INFO info{};
    info.samplerate = rateHz;
    info.channels = channels;
    info.format = SF_FORMAT_WAV | format;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    sf_write_short(file, samples.data(), static_cast<sf_count_t>(samples.size()));
    sf_close(file);
}

bool WaitUntil(const std::function<bool()>& done) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    bool isDone = false;
    while (!(isDone = done()) && std::chrono::steady_clock::now() < limit)
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    return isDone;
}

std::string MediaMaker::Encode(const std::string& encoder, int rateHz, int channels, int ms,
                               double toneHz) const {
    Samples16 samples;
    std::uint32_t state = 12345;
    int smooth = 0;
    for (int at = 0; at < static_cast<int>(static_cast<std::int64_t>(rateHz) * ms / 1000) * channels; ++at) {
        state = state * 1664525 + 1013904223;
        smooth = (smooth * 3 + static_cast<int>(state >> 17) - 16384) / 4;
        const double turns = toneHz * (at / channels) / rateHz;
        const double tone = 26000 * std::sin(2 * std::numbers::pi * turns);
        samples.push_back(static_cast<std::int16_t>(toneHz > 0 ? tone : smooth));
    }
    const std::string wave = m_files.Path("encode.wav");
    const std::string result = m_files.Path("encode.out");
    WriteWave(wave, SF_FORMAT_PCM_16, rateHz, channels, samples);
    const std::string command = encoder + " '" + wave + "' '" + result + "' >/dev/null 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    return m_files.Get("encode.out").value_or("");
}

Samples16 DecodeAll(const Text& path) {
    const std::atomic<bool> quit{false};
    Samples16 all;
    const std::unique_ptr<MpegDecoder> decoder = MpegDecoder::Open(OpenForReading(TextView(path)), &quit);
    for (Samples16 part(1); decoder && !part.empty(); all.insert(all.end(), part.begin(), part.end()))
        decoder->Decode(20000, part);
    return all;
}
