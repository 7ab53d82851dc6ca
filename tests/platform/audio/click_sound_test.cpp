// The click: heard whole, each time, before the caller goes on; and no harm where it can't be.
#include <chrono>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <thread>

#include "platform/audio/click_sound.h"
#include "platform/audio/sound_file.h"
#include "platform/paths.h"
#include "support/pulse_server.h"

namespace {

std::string Number(std::uint32_t number, int bytes) {
    std::string text;
    for (int at = 0; at < bytes; ++at)
        text += static_cast<char>(number >> (8 * at));
    return text;
}

// A wave file of 16 bits whose samples say how they stand; stereo, so that the sink takes them unchanged.
std::string WaveFile(std::uint32_t frames, std::uint32_t rateHz = 44100, std::uint32_t channels = 2) {
    std::string samples;
    for (std::uint32_t frame = 0; frame < frames; ++frame)
        for (std::uint32_t channel = 0; channel < channels; ++channel)
            samples += Number(1000 + frame % 20'000, 2);
    const auto bytes = static_cast<std::uint32_t>(samples.size());
    return "RIFF" + Number(36 + bytes, 4) + "WAVEfmt " + Number(16, 4) + Number(1, 2) + Number(channels, 2) +
           Number(rateHz, 4) + Number(rateHz * channels * 2, 4) + Number(channels * 2, 2) + Number(16, 2) +
           "data" + Number(bytes, 4) + samples;
}

class Click : public testing::Test {
protected:
    void SetUp() override {
        if (!PrivatePulseServer::CanRun()) GTEST_SKIP() << "no sound server here";
        // What a monitor hears after a server took sound back isn't what was played; a pipe takes nothing
        // back.
        m_server.emplace(TestSink::Pipe);
        ASSERT_TRUE(m_server->IsRunning());
    }
    Text File(const std::string& name, const std::string& bytes) {
        const std::string path = m_server->Directory() + "/" + name;
        std::ofstream(path, std::ios::binary) << bytes;
        return PathText(path);
    }
    // Tries until it is heard: the first calls may find a server that isn't ready.
    static bool HeardInTheEnd(ClickSound& click, const Text& path) {
        for (int attempt = 0; attempt < 200; ++attempt) {
            if (click.PlayAndWait(path)) return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        return false;
    }
    // How often the whole sound of `frames` stands in the recording.
    static int Count(const std::vector<std::int16_t>& recording, int frames) {
        int found = 0;
        for (std::size_t at = 0; at + static_cast<std::size_t>(2 * frames) <= recording.size(); at += 2) {
            int frame = 0;
            while (frame < frames && recording[at + static_cast<std::size_t>(2 * frame)] == 1000 + frame)
                ++frame;
            if (frame == frames) ++found;
        }
        return found;
    }

    std::optional<PrivatePulseServer> m_server;
};

} // namespace

TEST_F(Click, IsHeardWholeBeforeTheCallerGoesOn) {
    constexpr int kFrames = 1323;
    const Text path = File("click.wav", WaveFile(kFrames));
    SoundRecorder recorder(*m_server);
    ClickSound click(m_server->Address());
    ASSERT_TRUE(HeardInTheEnd(click, path));
    // One that follows at once takes back what isn't heard yet, so a caller who went on too soon would never
    // hear a whole one. A server that is held up loses one now and then: that one is made up for.
    int whole = 0;
    for (int time = 0; time < 40 && whole < 5; ++time) {
        EXPECT_TRUE(click.PlayAndWait(path));
        whole = Count(recorder.Samples(), kFrames);
    }
    EXPECT_GE(whole, 5);
}

TEST_F(Click, WithoutASoundOrAServerIsToldAtOnce) {
    ClickSound click(m_server->Address());
    EXPECT_FALSE(click.PlayAndWait(PathText(m_server->Directory() + "/missing.wav")));
    EXPECT_FALSE(click.PlayAndWait(File("empty.wav", "")));
    EXPECT_FALSE(click.PlayAndWait(File("none.wav", WaveFile(0))));
    EXPECT_FALSE(click.PlayAndWait(File("nochannels.wav", WaveFile(10, 44100, 0))));
    EXPECT_FALSE(click.PlayAndWait(PathText(m_server->Directory())));
    ClickSound nowhere("unix:" + m_server->Directory() + "/nobody");
    EXPECT_FALSE(nowhere.PlayAndWait(File("click.wav", WaveFile(100))));
}

TEST_F(Click, SurvivesAServerThatGoesAndComesBack) {
    const Text path = File("click.wav", WaveFile(1323));
    ClickSound click(m_server->Address());
    ASSERT_TRUE(HeardInTheEnd(click, path));
    m_server->Kill();
    bool heard = true;
    for (int attempt = 0; attempt < 200 && heard; ++attempt)
        heard = click.PlayAndWait(path);
    EXPECT_FALSE(heard);
    ASSERT_TRUE(m_server->Start());
    EXPECT_TRUE(HeardInTheEnd(click, path));
}

TEST_F(Click, AServerKilledInTheMiddleOfALongSoundFreesTheCaller) {
    const Text path = File("long.wav", WaveFile(44100 * 20));
    ClickSound click(m_server->Address());
    ASSERT_TRUE(HeardInTheEnd(click, path)) << "a longer sound than a second isn't waited for";
    std::thread killer([this] { m_server->Kill(); });
    (void)click.PlayAndWait(path);
    killer.join();
}

TEST(SoundFile, LongSoundsAreCutAndOddOnesRefused) {
    const std::string directory = testing::TempDir() + "/velora-sounds";
    std::filesystem::create_directories(directory);
    const auto read = [&](const std::string& bytes) {
        std::ofstream(directory + "/x.wav", std::ios::binary) << bytes;
        return ReadSoundFile(PathText(directory + "/x.wav"));
    };
    const std::optional<SoundClip> clip = read(WaveFile(441));
    ASSERT_TRUE(clip);
    EXPECT_EQ(clip->LengthMs(), 10);
    EXPECT_EQ(clip->Samples.size(), 882u);
    EXPECT_LE(read(WaveFile(2'000'000))->Samples.size(), 2u << 20);
    EXPECT_TRUE(read(WaveFile(100, 192'000)));
    EXPECT_FALSE(read(WaveFile(100, 400'000)));
    EXPECT_FALSE(read("RIFF\xFF\xFF\xFF\xFFWAVEfmt "));
    std::filesystem::remove_all(directory);
}
