// The noise has no silence in it, so that any piece of it is found again in a recording.
#include "platform/audio/media_maker.h"

#include <chrono>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sndfile.h>
#include <unistd.h>

#include "platform/audio/decode/mpeg_decoder.h"

void WriteWave(const std::string& path, int rateHz, int channels, const Samples16& samples,
               bool floats) {
    SF_INFO info{};
    info.samplerate = rateHz;
    info.channels = channels;
    info.format = SF_FORMAT_WAV | (floats ? SF_FORMAT_FLOAT : SF_FORMAT_PCM_16);
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    sf_command(file, SFC_SET_SCALE_INT_FLOAT_WRITE, nullptr, SF_TRUE);
    sf_write_short(file, samples.data(), static_cast<sf_count_t>(samples.size()));
    sf_close(file);
}

bool WaitUntil(const std::function<bool()>& done) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    bool isDone = false;
    while (!(isDone = done()) && std::chrono::steady_clock::now() < limit)
        usleep(2000);
    return isDone;
}

std::string MediaMaker::Encode(const std::string& encoder, int rateHz, int channels, int ms) const {
    Samples16 samples(std::size_t(rateHz / 10 * ms / 100 * channels));
    std::uint32_t state = 12345;
    int smooth = 0;
    for (std::int16_t& sample : samples) {
        state = state * 1664525 + 1013904223;
        smooth = (smooth * 3 + int(state >> 17) - 16384) / 4;
        sample = static_cast<std::int16_t>(smooth);
    }
    const std::string wave = m_files.Path("encode.wav");
    WriteWave(wave, rateHz, channels, samples);
    const std::string command =
        encoder + " '" + wave + "' '" + m_files.Path("encode.out") + "' >/dev/null 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    return m_files.Get("encode.out").value_or("");
}

Samples16 DecodeAll(const Text& path) {
    const std::atomic<bool> quit{false};
    Samples16 all;
    const auto decoder = MpegDecoder::Open(OpenForReading(TextView(path)), &quit);
    for (Samples16 part(1); decoder && !part.empty();
         all.insert(all.end(), part.begin(), part.end()))
        decoder->Decode(20000, part);
    return all;
}
