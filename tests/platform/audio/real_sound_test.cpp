// The player on a real sound server, recorded behind the sink and compared with the decoded file.
#include <algorithm>
#include <optional>

#include "platform/audio/output/volume_ramp.h"
#include "platform/audio/player_fixture.h"
#include "support/pulse_server.h"

struct RealSoundTest : PlayerTest, testing::WithParamInterface<TestSink> {};

INSTANTIATE_TEST_SUITE_P(Servers, RealSoundTest,
                         testing::Values(TestSink::Null, TestSink::PipeWire));

TEST_P(RealSoundTest, VolumeAndSeekAreHeardBeforeWhatWasQueuedAndWhatIsLostComesBack) {
    PrivatePulseServer server(GetParam());
    ASSERT_TRUE(server.IsRunning());
    std::optional<SoundRecorder> recorder(server);
    const Text song = Song("song.mp3", 40000, "-b 128 --tt Moon");
    const Samples16 file = DecodeAll(song);
    Samples16 quiet = file;
    Integer percent = 60;
    VolumeRamp volume;
    volume.Set(VolumeRamp::FactorOf(percent));
    volume.Apply(0, 2, quiet);
    // The piece that begins so many ms behind the place that was told last.
    const auto isHeard = [&](const Samples16& samples, Long ms) {
        const auto piece = samples.begin() + (m_log.Positions.back() + ms) * 441 / 10 * 2;
        return WaitUntil([&] {
            m_loop.Turn();
            const Samples16 heard = recorder->Samples();
            return std::search(heard.begin(), heard.end(), piece, piece + 1000) != heard.end();
        });
    };
    m_settings.Server = server.Address();
    Make(1);
    m_player->SetVolume(percent);
    m_player->Prepare();
    Start(song);
    ASSERT_TRUE(UntilPlace(100));
    EXPECT_TRUE(isHeard(quiet, 200));
    const std::string inputs = server.Ask("list sink-inputs");
    for (const char* fact :
         {"application.name = \"Velora\"", "application.icon_name = \"velora\"",
          "media.role = \"music\"", "media.name = \"Moon\"", "Volume: front-left: 65536 / 100%"})
        EXPECT_NE(inputs.find(fact), std::string::npos) << fact << " in " << inputs;
    percent = 100;
    m_player->SetVolume(percent);
    EXPECT_TRUE(isHeard(file, 1700)) << "it was queued before, and quiet";
    m_player->Seek(15);
    m_log.Positions.clear();
    ASSERT_TRUE(UntilPlace(15000));
    EXPECT_TRUE(isHeard(file, 300));
    ASSERT_TRUE(server.Start());
    recorder.emplace(server);
    EXPECT_TRUE(isHeard(file, 1000));
    // A server that hangs leaves the next track to the silent clock, for as long as it does.
    server.Freeze();
    Start(song);
    EXPECT_TRUE(UntilPlace(100));
    server.Thaw();
    EXPECT_TRUE(isHeard(file, 1000));
}
