// The noise has no silence in it, so that any piece of it is found again in a recording.
#include "platform/audio/media_maker.h"

#include <atomic>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <numbers>

#include "platform/audio/mpeg_decoder.h"
#include "platform/paths.h"

namespace {

void PutLittle(std::string& bytes, std::uint32_t number, int count) {
    for (int i = 0; i < count; ++i)
        bytes.push_back(static_cast<char>(number >> 8 * i & 0xFF));
}

std::string Wave(int rateHz, int channels, int ms, double toneHz) {
    const auto count = static_cast<std::uint32_t>(static_cast<std::int64_t>(rateHz) * ms / 1000 * channels);
    const auto rate = static_cast<std::uint32_t>(rateHz);
    const auto width = static_cast<std::uint32_t>(channels);
    std::string wave = "RIFF";
    PutLittle(wave, 36 + count * 2, 4);
    wave += "WAVEfmt ";
    PutLittle(wave, 16, 4);
    PutLittle(wave, 1, 2);
    PutLittle(wave, width, 2);
    PutLittle(wave, rate, 4);
    PutLittle(wave, rate * width * 2, 4);
    PutLittle(wave, width * 2, 2);
    PutLittle(wave, 16, 2);
    wave += "data";
    PutLittle(wave, count * 2, 4);
    std::uint32_t state = 12345;
    int smooth = 0;
    for (std::uint32_t i = 0; i < count; ++i) {
        state = state * 1664525 + 1013904223;
        smooth = (smooth * 3 + static_cast<int>(state >> 17) - 16384) / 4;
        const double turns = toneHz * (i / width) / rateHz;
        const int tone = static_cast<int>(26000 * std::sin(2 * std::numbers::pi * turns));
        PutLittle(wave, static_cast<std::uint32_t>(toneHz > 0 ? tone : smooth), 2);
    }
    return wave;
}

std::string ReadAll(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string SyncSafe(std::int64_t size) {
    std::string bytes;
    for (int shift = 21; shift >= 0; shift -= 7)
        bytes.push_back(static_cast<char>(size >> shift & 0x7F));
    return bytes;
}

} // namespace

MediaMaker::MediaMaker() {
    std::string pattern = (std::filesystem::temp_directory_path() / "velora-media-XXXXXX").string();
    if (mkdtemp(pattern.data())) m_directory = pattern;
}

MediaMaker::~MediaMaker() {
    std::error_code ignored;
    if (!m_directory.empty()) std::filesystem::remove_all(m_directory, ignored);
}

std::string MediaMaker::Encode(const std::string& encoder, int rateHz, int channels, int ms,
                               double toneHz) const {
    const std::string wave = m_directory + "/encode.wav";
    const std::string result = m_directory + "/encode.out";
    std::filesystem::remove(result);
    Write("encode.wav", Wave(rateHz, channels, ms, toneHz));
    const std::string command = encoder + " '" + wave + "' '" + result + "' >/dev/null 2>&1";
    return std::system(command.c_str()) == 0 ? ReadAll(result) : std::string();
}

Text MediaMaker::Write(const std::string& name, const std::string& bytes) const {
    const std::string path = m_directory + "/" + name;
    std::ofstream(path, std::ios::binary) << bytes;
    return PathText(path);
}

std::string LayerOneFrames(int count) {
    // 128 kbit/s at 44,100 Hz: 12 * 128000 / 44100 slots of four bytes. No band gets any bits, so all that
    // follows the header is zero.
    constexpr int kBytes = 12 * 128000 / 44100 * 4;
    std::string frame("\xFF\xFF\x40\x00", 4);
    frame.resize(kBytes, '\0');
    std::string frames;
    for (int i = 0; i < count; ++i)
        frames += frame;
    return frames;
}

std::string Id3v2(int version, const std::string& frames, std::int64_t declared) {
    std::string tag = "ID3";
    tag.push_back(static_cast<char>(version));
    tag += std::string(2, '\0');
    return tag + SyncSafe(declared >= 0 ? declared : static_cast<std::int64_t>(frames.size())) + frames;
}

std::string TextFrame(int version, const std::string& id, char encoding, const std::string& text) {
    const auto size = static_cast<std::int64_t>(text.size() + 1);
    std::string frame = id;
    if (version == 4)
        frame += SyncSafe(size);
    else
        for (int shift = version == 2 ? 16 : 24; shift >= 0; shift -= 8)
            frame.push_back(static_cast<char>(size >> shift & 0xFF));
    if (version > 2) frame += std::string(2, '\0');
    frame.push_back(encoding);
    return frame + text;
}

std::string Id3v1(const std::string& title, const std::string& artist) {
    std::string tag = "TAG" + title.substr(0, 30);
    tag.resize(33, '\0');
    tag += artist.substr(0, 30);
    tag.resize(63, '\0');
    tag.resize(127, '\0');
    return tag + '\x11';
}

std::vector<std::int16_t> DecodeAll(const Text& path) {
    const std::atomic<bool> quit{false};
    std::vector<std::int16_t> all;
    const std::unique_ptr<MpegDecoder> decoder = MpegDecoder::Open(OpenForReading(TextView(path)), &quit);
    for (std::vector<std::int16_t> part; decoder;) {
        decoder->Decode(20000, part);
        if (part.empty()) break;
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}
