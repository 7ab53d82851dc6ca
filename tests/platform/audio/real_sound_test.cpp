// The player on a real sound server, recorded behind the sink and compared with the decoded file.
#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "platform/audio/player_fixture.h"
#include "support/pulse_server.h"

namespace {

using Samples = std::vector<std::int16_t>;

/// Where `part` lies in `all`, from `from` on.
std::optional<std::size_t> Find(const Samples& all, const Samples& part, std::size_t from = 0) {
    const auto at = std::search(all.begin() + static_cast<std::ptrdiff_t>(std::min(from, all.size())),
                                all.end(), part.begin(), part.end());
    if (at == all.end()) return std::nullopt;
    return static_cast<std::size_t>(at - all.begin());
}

/// From the first to the last sample that isn't silent, with every run of silence longer than two
/// milliseconds taken out.
Samples WithoutSilence(const Samples& recorded) {
    constexpr std::size_t kLongest = 176;
    Samples sound;
    std::size_t run = 0;
    for (const std::int16_t sample : recorded) {
        run = sample == 0 ? run + 1 : 0;
        sound.push_back(sample);
        if (run == kLongest) sound.resize(sound.size() - kLongest);
        if (run > kLongest) sound.pop_back();
    }
    while (!sound.empty() && sound.back() == 0)
        sound.pop_back();
    const auto first =
        std::find_if(sound.begin(), sound.end(), [](std::int16_t sample) { return sample != 0; });
    return {first, sound.end()};
}

Samples Piece(const Samples& samples, std::size_t from, std::size_t count) {
    const auto at = samples.begin() + static_cast<std::ptrdiff_t>(std::min(from, samples.size()));
    return {at, at + static_cast<std::ptrdiff_t>(
                         std::min(count, samples.size() - std::min(from, samples.size())))};
}

class RealSoundTest : public PlayerTest {
protected:
    void SetUp() override {
        if (!PrivatePulseServer::CanRun()) GTEST_SKIP() << "no sound server installed";
        StartServer(TestSink::Null);
    }
    void StartServer(TestSink sink) {
        m_player.reset();
        m_server = std::make_unique<PrivatePulseServer>(sink);
        ASSERT_TRUE(m_server->IsRunning());
        MakeOn(m_server->Address());
    }
    void MakeOn(const std::string& address) {
        AudioSettings settings;
        settings.Server = address;
        Make(std::move(settings));
    }
    bool UntilPlace(Long ms) {
        return Until([&] { return !m_log.Positions.empty() && m_log.Positions.back() >= ms; });
    }
    Text Song(int ms) { return PlayerTest::Song("song.mp3", ms, "-b 128"); }
    /// Waits until the recorder has got what the sink still holds when the end is told.
    void Drain(const SoundRecorder& recorder) {
        const auto isSilent = [&] {
            const Samples all = recorder.Samples();
            return all.size() > 20000 &&
                   std::all_of(all.end() - 20000, all.end(), [](int sample) { return sample == 0; });
        };
        for (int i = 0; i < 50 && !isSilent(); ++i)
            LetPass(100);
    }
    static void ExpectSame(const Samples& heard, const Samples& file) {
        const auto [inHeard, inFile] = std::mismatch(heard.begin(), heard.end(), file.begin(), file.end());
        EXPECT_TRUE(inHeard == heard.end() && inFile == file.end())
            << "differs at sample " << inFile - file.begin() << " of " << file.size() << "; heard "
            << heard.size();
    }

    std::unique_ptr<PrivatePulseServer> m_server;
};

TEST_F(RealSoundTest, EverySampleFromTheFirstToTheLastIsHeard) {
    StartServer(TestSink::Pipe);
    const Text song = Song(3000);
    const Samples file = WithoutSilence(DecodeAll(song));
    const SoundRecorder recorder(*m_server);
    Start(song);
    ASSERT_TRUE(Until([&] { return m_log.HasEnded(); }));
    Drain(recorder);
    ExpectSame(WithoutSilence(recorder.Samples()), file);
}

TEST_F(RealSoundTest, APauseLosesAndDoublesNothing) {
    StartServer(TestSink::Pipe);
    const Text song = Song(4000);
    const Samples file = WithoutSilence(DecodeAll(song));
    const SoundRecorder recorder(*m_server);
    Start(song);
    for (const Long place : {600, 1500, 2500}) {
        ASSERT_TRUE(UntilPlace(place));
        m_player->TogglePause();
        LetPass(300);
        m_player->TogglePause();
    }
    ASSERT_TRUE(Until([&] { return m_log.HasEnded(); }));
    Drain(recorder);
    ExpectSame(WithoutSilence(recorder.Samples()), file);
}

TEST_F(RealSoundTest, ASeekIsHeardAtOnceAndOldSoundIsGone) {
    const Text song = Song(30000);
    const Samples file = DecodeAll(song);
    const SoundRecorder recorder(*m_server);
    Start(song);
    ASSERT_TRUE(UntilPlace(1000));
    m_player->Seek(20);
    m_log.Positions.clear();
    ASSERT_TRUE(Until([&] { return !m_log.Positions.empty(); }));
    const Long told = m_log.Positions.front();
    LetPass(600);
    m_player->Stop();
    const Samples heard = WithoutSilence(recorder.Samples());
    // Before the seek the beginning, after it one piece from the new place.
    const std::optional<std::size_t> head = Find(file, Piece(heard, 0, 2000));
    ASSERT_TRUE(head);
    const Samples tail = Piece(heard, heard.size() - 10000, 2000);
    const std::optional<std::size_t> place = Find(file, tail);
    ASSERT_TRUE(place);
    EXPECT_GT(*place, 20U * 88200);
    const std::size_t before = *Find(heard, tail);
    std::size_t same = 0;
    while (same < before && heard[before - same] == file[*place - same])
        ++same;
    const std::size_t jump = before - same;
    EXPECT_NEAR(static_cast<double>(jump), 88200 * 1.05, 88200 * 0.25);
    const double newPlaceMs = static_cast<double>(*place - same) / 88.2;
    EXPECT_NEAR(newPlaceMs, static_cast<double>(jump) / 88.2 + 20000, 100);
    EXPECT_GE(told, static_cast<Long>(newPlaceMs) - 1);
}

TEST_F(RealSoundTest, TheVolumeChangesSoonAndWithoutAStep) {
    // A slow tone, in which a step would stand out.
    const Text song = m_media.Write("song.mp3", m_media.Encode("lame --quiet -b 128", 44100, 2, 8000, 100));
    const SoundRecorder recorder(*m_server);
    Start(song);
    ASSERT_TRUE(UntilPlace(1000));
    const std::size_t before = recorder.Samples().size();
    Integer percent = 30;
    m_player->SetVolume(percent);
    LetPass(300);
    percent = 100;
    m_player->SetVolume(percent);
    LetPass(300);
    m_player->Stop();
    const Samples heard = recorder.Samples();
    int largest = 0;
    int steepest = 0;
    for (std::size_t i = before + 17640; i + 17640 < heard.size() && i < before + 17640 + 4410; ++i)
        largest = std::max(largest, std::abs(int{heard[i]}));
    EXPECT_NEAR(largest, 26000 * 0.3, 600);
    const auto start = std::find_if(heard.begin(), heard.end(), [](int sample) { return sample != 0; });
    for (std::size_t i = static_cast<std::size_t>(start - heard.begin()) + 8820;
         i < before + 44100 && i + 2 < heard.size(); ++i)
        steepest = std::max(steepest, std::abs(heard[i + 2] - heard[i]));
    EXPECT_LT(steepest, 700);
}

TEST_F(RealSoundTest, TheMixerShowsNameRoleAndTitle) {
    Start(PlayerTest::Song("song.mp3", 5000, "-b 128 --tt Moonlight"));
    ASSERT_TRUE(UntilPlace(100));
    const std::string inputs = m_server->Ask("list sink-inputs");
    for (const char* expected :
         {"application.name = \"Velora\"", "application.icon_name = \"velora\"", "media.role = \"music\"",
          "media.name = \"Moonlight\"", "Volume: front-left: 65536 / 100%"})
        EXPECT_NE(inputs.find(expected), std::string::npos) << expected << "\n" << inputs;
}

TEST_F(RealSoundTest, AServerThatDiesIsWaitedForAndThePlaceIsKept) {
    const Text song = Song(20000);
    const Samples file = DecodeAll(song);
    Start(song);
    ASSERT_TRUE(UntilPlace(1000));
    m_server->Kill();
    LetPass(1500);
    const Long place = m_log.Positions.back();
    EXPECT_LT(place, 2500);
    ASSERT_TRUE(m_server->Start());
    const SoundRecorder recorder(*m_server);
    ASSERT_TRUE(UntilPlace(place + 1000));
    EXPECT_LT(m_log.Positions.back(), place + 2000);
    m_player->Stop();
    const Samples heard = WithoutSilence(recorder.Samples());
    const std::optional<std::size_t> first = Find(file, Piece(heard, 0, 2000));
    ASSERT_TRUE(first);
    EXPECT_NEAR(static_cast<double>(*first) / 88.2, place, 300);
}

TEST_F(RealSoundTest, AServerThatDiesWhilePausedOrSeekingIsWaitedForToo) {
    Start(Song(20000));
    ASSERT_TRUE(UntilPlace(500));
    m_player->TogglePause();
    const Long held = m_log.Positions.back();
    m_server->Kill();
    LetPass(200);
    m_player->Seek(5);
    m_player->TogglePause();
    LetPass(200);
    ASSERT_TRUE(m_server->Start());
    m_log.Positions.clear();
    ASSERT_TRUE(Until([&] { return !m_log.Positions.empty(); }));
    EXPECT_GE(m_log.Positions.front(), held + 5000);
    EXPECT_LT(m_log.Positions.front(), held + 6500);
}

TEST_F(RealSoundTest, AStreamKilledFromOutsideComesBack) {
    Start(Song(20000));
    ASSERT_TRUE(UntilPlace(500));
    const std::string inputs = m_server->Ask("list short sink-inputs");
    static_cast<void>(m_server->Ask("kill-sink-input " + inputs.substr(0, inputs.find('\t'))));
    const Long place = m_log.Positions.back();
    EXPECT_TRUE(UntilPlace(place + 2000));
}

TEST_F(RealSoundTest, AServerThatRefusesOrNeverAnswersLeavesTheTrackPlayingSilently) {
    const std::string path = m_server->Directory() + "/deaf";
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(path.size(), sizeof address.sun_path);
    path.copy(address.sun_path, path.size());
    const int deaf = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(bind(deaf, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(listen(deaf, 5), 0);
    const Text song = Song(1000);
    for (const std::string& server : {"unix:" + path, "unix:" + m_server->Directory() + "/nobody"}) {
        m_log = {};
        MakeOn(server);
        Start(song);
        EXPECT_TRUE(Until([&] { return m_log.HasEnded(); })) << server;
    }
    close(deaf);
}

TEST_F(RealSoundTest, TheNextTrackIsHeardWholeInTheSameStreamOrAnother) {
    StartServer(TestSink::Pipe);
    const Text first = PlayerTest::Song("first.mp3", 2000, "-b 128");
    const Text second = PlayerTest::Song("second.mp3", 1500, "-b 128");
    const Samples file = WithoutSilence(DecodeAll(second));
    const SoundRecorder recorder(*m_server);
    Start(first);
    ASSERT_TRUE(UntilPlace(500));
    m_player->Stop();
    Drain(recorder);
    const std::size_t before = recorder.Samples().size();
    m_log = {};
    Start(second);
    ASSERT_TRUE(Until([&] { return m_log.HasEnded(); }));
    Drain(recorder);
    const Samples all = recorder.Samples();
    ExpectSame(WithoutSilence(Piece(all, before, all.size())), file);
}

} // namespace
