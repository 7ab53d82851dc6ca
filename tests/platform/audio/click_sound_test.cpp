// The click: heard whole, each time, before the caller goes on; and no harm where it can't be.
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <sndfile.h>
#include <sstream>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>

#include "platform/audio/click_sound.h"
#include "platform/audio/media_maker.h"
#include "platform/audio/sound_file.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "support/pulse_server.h"

namespace {

// A wave file whose samples say how they stand, the same in each channel.
Text CountingWave(const std::string& path, int format, int rateHz, int channels, int from, int frames) {
    Samples16 samples;
    for (int at = 0; at < frames * channels; ++at)
        samples.push_back(static_cast<std::int16_t>(from + at / channels % 8000));
    WriteWave(path, format, rateHz, channels, samples);
    return PathText(path);
}

std::ptrdiff_t OpenDescriptors() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

class ClickTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(m_server.IsRunning()); }
    // Stereo, so that the sink takes it unchanged.
    Text File(const std::string& name, int from, int frames, int rateHz = 44100) {
        return CountingWave(m_files.Path(name), SF_FORMAT_PCM_16, rateHz, 2, from, frames);
    }
    // Whether it plays in the end: the first calls may find a server that isn't ready.
    bool Plays(const Text& path) {
        return WaitUntil([&] { return m_click->PlayAndWait(path); });
    }
    // How often the whole sound of a file stands in the recording.
    int Count(const Text& path) {
        const Samples16 sound = ReadSoundFile(path)->Samples;
        const Samples16 all = m_recorder.Samples();
        int count = 0;
        for (auto at = all.begin();; ++at, ++count)
            if ((at = std::search(at, all.end(), sound.begin(), sound.end())) == all.end()) return count;
    }

    // What a monitor hears after a server took sound back isn't what was played; a pipe takes nothing back.
    PrivatePulseServer m_server{TestSink::Pipe};
    SoundRecorder m_recorder{m_server};
    TempDirectory m_files;
    std::optional<ClickSound> m_click{m_server.Address()};
};

} // namespace

TEST_F(ClickTest, IsHeardWholeBeforeTheCallerGoesOnAndIsHeldUntilTheNext) {
    // One that follows at once takes back what isn't heard yet, so a caller who went on too soon would never
    // hear a whole one. A server that is held up loses one now and then: that one is made up for.
    const auto isHeard = [&](const Text& path, int times) {
        times += Count(path);
        return WaitUntil([&] { return m_click->PlayAndWait(path) && Count(path) >= times; });
    };
    const Text path = File("click.wav", 1000, 1323);
    EXPECT_TRUE(isHeard(path, 5));
    std::string streams;
    EXPECT_TRUE(WaitUntil([&] {
        streams = m_server.Ask("list sink-inputs");
        return streams.find("Corked: yes") != std::string::npos;
    }));
    for (const char* fact : {"s16le 2ch 44100Hz", "media.name = \"Button\"", "media.role = \"event\"",
                             "application.name = \"Velora\"", "application.icon_name = \"velora\""})
        EXPECT_NE(streams.find(fact), std::string::npos) << fact << " in " << streams;
    EXPECT_TRUE(isHeard(path, 1));
    EXPECT_TRUE(isHeard(File("other.wav", 10000, 441), 1));
}

TEST_F(ClickTest, LeavesNothingOpen) {
    const std::ptrdiff_t before = OpenDescriptors();
    EXPECT_TRUE(Plays(File("click.wav", 1000, 100)));
    m_click.reset();
    EXPECT_TRUE(WaitUntil([&] { return OpenDescriptors() == before; }));
}

TEST_F(ClickTest, WithoutASoundOrAServerIsToldAtOnceAndTriedAnew) {
    EXPECT_FALSE(m_click->PlayAndWait(m_files.PathText("click.wav")));
    const Text path = File("click.wav", 1000, 100);
    EXPECT_TRUE(Plays(path));
    EXPECT_FALSE(m_click->PlayAndWait(m_files.Put("empty.wav", "")));
    EXPECT_FALSE(ClickSound("unix:" + m_files.Path("nobody")).PlayAndWait(path));
    // A server that takes the connection and never answers.
    const FileHandle deaf(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_un address{AF_UNIX, {}};
    m_files.Path("deaf").copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(bind(deaf.Descriptor(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(listen(deaf.Descriptor(), 5), 0);
    EXPECT_FALSE(ClickSound("unix:" + m_files.Path("deaf")).PlayAndWait(path));
}

TEST_F(ClickTest, ALongSoundIsNotWaitedForAndAServerThatDiesFreesTheCallerAndMayComeBack) {
    using namespace std::chrono;
    const Text path = File("long.wav", 1000, 8000 * 60, 8000);
    auto start = steady_clock::now();
    EXPECT_TRUE(WaitUntil([&] {
        start = steady_clock::now();
        return m_click->PlayAndWait(path);
    }));
    EXPECT_GE(steady_clock::now() - start, seconds(1));
    EXPECT_LE(steady_clock::now() - start, seconds(30));
    std::thread killer([this] { m_server.Kill(); });
    EXPECT_TRUE(WaitUntil([&] { return !m_click->PlayAndWait(path); }));
    killer.join();
    ASSERT_TRUE(m_server.Start());
    EXPECT_TRUE(Plays(File("short.wav", 1000, 100)));
}

TEST(SoundFileTest, EveryKindOfWaveFileIsReadAndLongOnesAreCutAndOddOnesRefused) {
    // Format, rate in Hz, channels, frames, the bytes that the file is cut to if it is, and what is read.
    const std::tuple<int, int, int, int, std::uintmax_t, std::string> rows[] = {
        {SF_FORMAT_PCM_16, 44100, 2, 463, 0, "44100x2 463 10ms 8463"},
        {SF_FORMAT_PCM_U8, 8000, 1, 5, 0, "8000x1 5 1ms 7936"},
        {SF_FORMAT_PCM_24, 192000, 2, 96, 0, "192000x2 96 1ms 8096"},
        {SF_FORMAT_PCM_16, 192001, 2, 100, 0, ""},
        {SF_FORMAT_PCM_16, 1, 1, 3, 0, "1x1 3 3000ms 8003"},
        {SF_FORMAT_PCM_16, 44100, 32, 3, 0, "44100x32 3 0ms 8003"},
        {SF_FORMAT_PCM_16, 44100, 33, 3, 0, ""},
        {SF_FORMAT_PCM_16, 44100, 2, 0, 0, ""},
        {SF_FORMAT_PCM_16, 44100, 1, 100, 46, "44100x1 1 0ms 8001"},
        {SF_FORMAT_PCM_16, 44100, 1, 100, 30, ""},
        {SF_FORMAT_PCM_16, 44100, 3, 699050, 0, "44100x3 699050 15851ms 11050"},
        {SF_FORMAT_PCM_16, 44100, 3, 699051, 0, "44100x3 699050 15851ms 11050"},
    };
    const TempDirectory files;
    const std::ptrdiff_t before = OpenDescriptors();
    for (const auto& [format, rateHz, channels, frames, bytes, read] : rows) {
        const Text path = CountingWave(files.Path("wave"), format, rateHz, channels, 8001, frames);
        if (bytes > 0) std::filesystem::resize_file(files.Path("wave"), bytes);
        std::ostringstream text;
        if (const std::optional<SoundClip> clip = ReadSoundFile(path))
            text << clip->RateHz << "x" << clip->Channels << " " << clip->Samples.size() / clip->Channels
                 << " " << clip->LengthMs() << "ms " << clip->Samples.back();
        EXPECT_EQ(text.str(), read) << frames << " frames";
    }
    EXPECT_EQ(OpenDescriptors(), before);
}
