// The player on a real sound server, recorded behind the sink and compared with the decoded file.
#include <algorithm>
#include <unistd.h>

#include "platform/audio/player_fixture.h"
#include "platform/audio/volume_ramp.h"
#include "support/pulse_server.h"

namespace {

using Samples = std::vector<std::int16_t>;

/// Without every run of silence longer than two milliseconds, and without any at both ends.
Samples WithoutSilence(const Samples& recorded) {
    Samples sound;
    for (auto at = recorded.begin(); at != recorded.end();) {
        const auto loud = std::find_if(at, recorded.end(), [](int sample) { return sample != 0; });
        if (!sound.empty() && loud != recorded.end() && loud - at < 176) sound.insert(sound.end(), at, loud);
        at = std::find(loud, recorded.end(), 0);
        sound.insert(sound.end(), loud, at);
    }
    return sound;
}

class RealSoundTest : public PlayerTest {
protected:
    void MakeOn(const std::string& address, double clockSpeed = 1) {
        AudioSettings settings;
        settings.Server = address;
        settings.ClockSpeed = clockSpeed;
        Make(std::move(settings));
    }
    /// Waits until the piece of `file` that begins at `ms` has been heard.
    bool Hears(const SoundRecorder& recorder, const Samples& file, Long ms) {
        const auto piece = file.begin() + ms * 441 / 10 * 2;
        return Until([&] {
            m_loop.Turn();
            usleep(20'000);
            const Samples heard = recorder.Samples();
            return std::search(heard.begin(), heard.end(), piece, piece + 1000) != heard.end();
        });
    }
};

TEST_F(RealSoundTest, EverySampleIsHeardAcrossPausesAndTheNextTrack) {
    PrivatePulseServer server(TestSink::Pipe);
    ASSERT_TRUE(server.IsRunning());
    const SoundRecorder recorder(server);
    MakeOn(server.Address());
    m_player->Prepare();
    const auto mixerShows = [&](const std::string& title) {
        const std::string inputs = server.Ask("list sink-inputs");
        const std::string lines[] = {
            "Sink Input #0",          "application.name = \"Velora\"",  "application.icon_name = \"velora\"",
            "media.role = \"music\"", "media.name = \"" + title + "\"", "Volume: front-left: 65536 / 100%"};
        for (const std::string& expected : lines)
            EXPECT_NE(inputs.find(expected), std::string::npos) << expected << "\n" << inputs;
    };
    const Text first = Song("first.mp3", 2000, "-b 128 --tt Moonlight");
    const Text second = Song("second.mp3", 1000, "-b 128");
    Samples files = WithoutSilence(DecodeAll(first));
    Start(first);
    for (const Long place : {300, 1000}) {
        ASSERT_TRUE(UntilPlace(place));
        m_player->TogglePause();
        mixerShows("Moonlight");
        m_player->TogglePause();
    }
    ASSERT_TRUE(UntilEnd());
    m_log = {};
    Start(second);
    ASSERT_TRUE(UntilPlace(200));
    mixerShows("second.mp3");
    ASSERT_TRUE(UntilEnd());
    const Samples rest = WithoutSilence(DecodeAll(second));
    files.insert(files.end(), rest.begin(), rest.end());
    Samples heard;
    EXPECT_TRUE(Until(
        [&] { return usleep(50'000), (heard = WithoutSilence(recorder.Samples())).size() >= files.size(); }));
    const auto [inHeard, inFile] = std::mismatch(heard.begin(), heard.end(), files.begin(), files.end());
    EXPECT_TRUE(inHeard == heard.end() && inFile == files.end())
        << "differs at sample " << inFile - files.begin() << " of " << files.size() << "; heard "
        << heard.size();
}

TEST_F(RealSoundTest, VolumeAndSeekAreHeardBeforeWhatWasQueuedAndWhatIsLostComesBack) {
    PrivatePulseServer server(TestSink::Null);
    ASSERT_TRUE(server.IsRunning());
    const Text song = Song("song.mp3", 40000, "-b 128");
    const Samples file = DecodeAll(song);
    Samples quiet = file;
    Integer percent = 60;
    VolumeRamp volume;
    volume.Set(VolumeRamp::FactorOf(percent));
    volume.Apply(0, 2, quiet);
    MakeOn(server.Address());
    m_player->SetVolume(percent);
    {
        const SoundRecorder recorder(server);
        Start(song);
        ASSERT_TRUE(UntilPlace(100));
        EXPECT_TRUE(Hears(recorder, quiet, 200));
        percent = 100;
        m_player->SetVolume(percent);
        EXPECT_TRUE(Hears(recorder, file, m_log.Positions.back() + 1700))
            << "it was queued before, and quiet";
        m_player->Seek(15);
        m_log.Positions.clear();
        ASSERT_TRUE(UntilPlace(15000));
        EXPECT_TRUE(Hears(recorder, file, m_log.Positions.back() + 300));
        const std::string inputs = server.Ask("list short sink-inputs");
        static_cast<void>(server.Ask("kill-sink-input " + inputs.substr(0, inputs.find('\t'))));
        EXPECT_TRUE(Hears(recorder, file, m_log.Positions.back() + 1000));
    }
    server.Kill();
    const Long place = m_log.Positions.back();
    ASSERT_TRUE(server.Start());
    const SoundRecorder recorder(server);
    EXPECT_TRUE(Hears(recorder, file, place + 3000));
}

TEST_F(RealSoundTest, AServerThatNeverAnswersOrIsNotThereLeavesTheTrackPlayingSilently) {
    PrivatePulseServer server;
    ASSERT_TRUE(server.IsRunning());
    server.Freeze();
    const Text song = Song("song.mp3", 1000);
    for (const std::string& address : {server.Address(), std::string("unix:/nobody")}) {
        m_log = {};
        MakeOn(address, 10);
        Start(song);
        EXPECT_TRUE(UntilEnd()) << address;
    }
}

} // namespace
