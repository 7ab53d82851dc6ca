// The click: heard whole, each time, before the caller goes on; and no harm where it can't be.
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <system_error>

#include "platform/audio/click/click_sound.h"
#include "platform/audio/click/sound_file.h"
#include "platform/audio/media_maker.h"
#include "platform/paths.h"
#include "support/pulse_server.h"

namespace {

// A wave file whose samples say how they stand, the same in each channel.
Text CountingWave(const std::string& path, int rateHz, int channels, int from, int frames,
                  bool floats = false) {
    Samples16 samples;
    for (int at = 0; at < frames * channels; ++at)
        samples.push_back(static_cast<std::int16_t>(from + at / channels % 8000));
    WriteWave(path, rateHz, channels, samples, floats);
    return PathText(path);
}

std::ptrdiff_t OpenDescriptors() {
    std::multiset<std::string> targets;
    std::error_code gone;
    for (const auto& each : std::filesystem::directory_iterator("/proc/self/fd"))
        targets.insert(std::filesystem::read_symlink(each.path(), gone).string());
    // Of a pipe to another program one end is here. The checker of threads starts one when it has
    // to name a place.
    return std::count_if(targets.begin(), targets.end(), [&](const std::string& target) {
        return !target.starts_with("pipe:") || targets.count(target) > 1;
    });
}

class ClickTest : public testing::TestWithParam<TestSink> {
protected:
    // A stereo file, so that the sink takes it unchanged.
    Text File(const std::string& name, int from, int frames, int rateHz = 44100) {
        return CountingWave(m_files.Path(name), rateHz, 2, from, frames);
    }
    // Whether it plays in the end, and is heard whole `times` times more: the first calls may find
    // a server that isn't ready, and one that is held up loses a sound now and then, which is made
    // up for.
    bool Plays(const Text& path, int times = 0) {
        times += Count(path);
        return WaitUntil([&] { return m_click->PlayAndWait(path) && Count(path) >= times; });
    }
    // How often the whole sound of a file stands in the recording.
    int Count(const Text& path) {
        const Samples16 one = ReadSoundFile(path)->Samples, all = m_recorder.Samples();
        int count = 0;
        for (auto at = all.begin();; ++at, ++count)
            if ((at = std::search(at, all.end(), one.begin(), one.end())) == all.end())
                return count;
    }

    // What a monitor hears after PulseAudio took sound back isn't what was played; a pipe takes
    // nothing back.
    PrivatePulseServer m_server{GetParam()};
    SoundRecorder m_recorder{m_server};
    TempDirectory m_files;
    std::optional<ClickSound> m_click{m_server.Address()};
};

INSTANTIATE_TEST_SUITE_P(Servers, ClickTest, testing::Values(TestSink::Pipe, TestSink::PipeWire));

} // namespace

TEST_P(ClickTest, IsHeardWholeBeforeTheCallerGoesOnIsHeldUntilTheNextAndLeavesNothingOpen) {
    const std::ptrdiff_t before = OpenDescriptors();
    const Text path = File("click.wav", 1000, 1323);
    EXPECT_TRUE(Plays(path));
    // One that follows at once takes back what isn't heard yet, so a caller who went on too soon
    // would never hear a whole one. The recording shows the last one a moment later.
    EXPECT_TRUE(WaitUntil([&] {
        const int already = Count(path);
        for (int click = 0; click < 5; ++click)
            static_cast<void>(m_click->PlayAndWait(path));
        return Count(path) >= already + 4;
    }));
    for (const char* fact :
         {"Corked: yes", "s16le 2ch 44100Hz", "media.name = \"Button\"", "media.role = \"event\"",
          "application.name = \"Velora\"", "application.icon_name = \"velora\""})
        EXPECT_TRUE(WaitUntil([&] {
            return m_server.Ask("list sink-inputs").find(fact) != std::string::npos;
        })) << fact;
    EXPECT_TRUE(Plays(path, 1));
    EXPECT_TRUE(Plays(File("other.wav", 10000, 441), 1));
    m_click.reset();
    EXPECT_TRUE(WaitUntil([&] { return OpenDescriptors() == before; }));
}

TEST_P(ClickTest, AMissingSoundOrServerIsToldAndMayComeBackAndALongSoundIsNotWaitedFor) {
    using namespace std::chrono;
    EXPECT_FALSE(m_click->PlayAndWait(m_files.PathText("click.wav")));
    const Text path = File("click.wav", 1000, 100);
    EXPECT_TRUE(Plays(path));
    EXPECT_FALSE(m_click->PlayAndWait(m_files.Put("empty.wav", "")));
    const Text longPath = File("long.wav", 1000, 8000 * 60, 8000);
    const auto start = steady_clock::now();
    EXPECT_TRUE(Plays(longPath));
    const auto waited = steady_clock::now() - start;
    EXPECT_TRUE(waited >= seconds(1) && waited <= seconds(30));
    m_server.Kill();
    EXPECT_TRUE(WaitUntil([&] { return !m_click->PlayAndWait(longPath); }));
    ASSERT_TRUE(m_server.Start());
    EXPECT_TRUE(Plays(path));
    m_server.Freeze();
    EXPECT_FALSE(ClickSound(m_server.Address()).PlayAndWait(path));
    // The one that is ready is told as soon as the server owes it an answer.
    EXPECT_TRUE(WaitUntil([&] { return !m_click->PlayAndWait(path); }));
    m_server.Thaw();
    EXPECT_TRUE(Plays(path));
}

TEST(SoundFileTest, WaveFilesAlsoOfFloatsAreReadAndLongOnesAreCutAndOddOnesRefused) {
    // Rate in Hz, channels, frames, and what is read: frames, length in ms, last sample.
    const std::tuple<int, int, int, std::vector<std::int64_t>> rows[] = {
        {192000, 2, 96, {96, 1, 8096}},
        {192001, 2, 100, {}},
        {1, 1, 3, {3, 3000, 8003}},
        {44100, 32, 3, {3, 0, 8003}},
        {44100, 33, 3, {}},
        {44100, 3, 699051, {699050, 15851, 11050}},
    };
    const TempDirectory files;
    const std::ptrdiff_t before = OpenDescriptors();
    for (int at = 0; at < 2 * std::ssize(rows); ++at) {
        const auto& [rateHz, channels, frames, expected] = rows[at / 2];
        std::vector<std::int64_t> read;
        const Text path = CountingWave(files.Path("wave"), rateHz, channels, 8001, frames, at % 2);
        if (const std::optional<SoundClip> clip = ReadSoundFile(path))
            read = {std::ssize(clip->Samples) / clip->Channels, clip->LengthMs(),
                    clip->Samples.back()};
        EXPECT_EQ(read, expected) << rateHz << ", " << channels << ", " << at % 2;
    }
    EXPECT_EQ(OpenDescriptors(), before);
}
