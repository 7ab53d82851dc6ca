// The player on its own threads and real files: what comes from one thread to the other, and that
// nobody waits for anybody. It plays on the silent clock, which runs faster here.
#include <algorithm>
#include <atomic>
#include <filesystem>
#include <semaphore>
#include <sys/stat.h>
#include <thread>

#include "platform/audio/decode/track_session.h"
#include "platform/audio/player_fixture.h"
#include "platform/paths.h"

namespace {

using AudioPlayerTest = PlayerTest;

TEST_F(AudioPlayerTest, AFileTellsItsFactsThenItsPlacesAndOnceItsEnd) {
    Make(20);
    // The second has neither tags nor a length, so it is scanned.
    for (const auto& [options, facts] :
         {std::pair("-b 128 --tt Moon --ta X", "tag=Moon/X//// stream=128/44100/2 length=2000 p"),
          std::pair("-V5 -t", "tag=///// stream=")}) {
        Start(Song("song.mp3", 2000, options));
        ASSERT_TRUE(UntilEnd());
        EXPECT_EQ(m_log.Told.find(facts), 0U) << m_log.Told;
        EXPECT_NEAR(m_log.LengthMs, 2000, 100);
        EXPECT_EQ(m_log.Told.find_first_of("tsl", m_log.Told.find(" p")), std::string::npos);
        EXPECT_TRUE(std::is_sorted(m_log.Positions.begin(), m_log.Positions.end()));
    }
}

TEST_F(AudioPlayerTest, WhatCanNotBePlayedTellsNothingAndTheNextOnePlays) {
    Make(10);
    m_player->TogglePause();
    m_player->Seek(5);
    const std::string fifo = m_media.Directory() + "/fifo.mp3";
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    Song("b/Sub/song.mp3", 1000, "-b 64 --tt Second");
    const Text directory = PathText(m_media.Directory());
    for (const Text& path : {Text(), Text(u"\\nowhere\\x.mp3"), PathText(fifo), directory,
                             m_media.Write("text.mp3", "These are words.")}) {
        Start(path);
        m_player->TogglePause();
        m_player->Seek(10);
    }
    // A relative path is looked for in the given directories.
    m_player->LookIn({directory, directory + u"\\b\\"});
    Start(u"sub\\SONG.mp3");
    ASSERT_TRUE(UntilEnd());
    EXPECT_EQ(m_log.Told.find("tag=Second///// "), 0U);
}

TEST_F(AudioPlayerTest, EachCommandReachesTheTrack) {
    Make(5);
    m_player->SetVisibility(false, true);
    Start(Song("song.mp3", 40000, "-b 32"));
    // Unseen, the place is told once or twice a second, which is five of the track's here.
    ASSERT_TRUE(UntilPlace(5000));
    EXPECT_LT(m_log.Positions.size(), 5U);
    EXPECT_FALSE(m_log.Frames.empty());
    // The file itself isn't needed any more.
    std::filesystem::remove(m_media.Directory() + "/song.mp3");
    m_player->SetVisibility(true, false);
    ASSERT_TRUE(Until([&] {
        const std::size_t count = m_log.Positions.size();
        return count > 2 && m_log.Positions[count - 1] - m_log.Positions[count - 2] < 3000;
    }));
    m_player->TogglePause();
    m_player->Seek(20);
    m_player->Seek(-2);
    m_player->Seek(0);
    const Long held = std::exchange(m_log.Positions, {}).back();
    m_loop.Turn();
    EXPECT_TRUE(m_log.Positions.empty());
    m_player->TogglePause();
    ASSERT_TRUE(UntilPlace(0));
    EXPECT_GE(m_log.Positions.front(), held + 18000);
    EXPECT_LT(m_log.Positions.front(), 38000);
    m_player->Seek(100);
    EXPECT_TRUE(UntilEnd());
}

TEST_F(AudioPlayerTest, AStopDropsEventsThatAreAlreadyPosted) {
    Make(5);
    m_player->SetVisibility(true, true);
    Start(Song("song.mp3", 2000));
    // The facts are told before the first sound.
    SampleFrame frame;
    ASSERT_TRUE(WaitUntil([&] { return m_player->Ring().Take(1, frame); }));
    m_player->Stop();
    m_loop.Turn();
    EXPECT_EQ(m_log.Told, "");
    EXPECT_TRUE(m_log.Frames.empty());
}

TEST_F(AudioPlayerTest, AHandlerThatWaitsNeitherReordersNorStrandsEvents) {
    struct Waiting : EventLog {
        void Note(const std::string& what) override {
            EventLog::Note(what);
            if (what[0] != 't') return;
            EXPECT_TRUE(Inner->RunUntil([this] { return LengthMs >= 0; }, 30000));
            EventLog::Note("waited");
        }
        NullLoop* Inner = nullptr;
    } log;
    log.Inner = &m_loop;
    Make(5);
    m_player->Attach(log);
    Start(Song("song.mp3", 2000, "-b 128"));
    EXPECT_TRUE(Until([&] { return log.HasEnded(); }));
    EXPECT_EQ(log.Told.find("tag=///// stream=128/44100/2 length=2000 waited p"), 0U) << log.Told;
    m_player.reset();
}

TEST_F(AudioPlayerTest, AThousandQuickChangesEndWithTheLastTrack) {
    Make(5);
    const Text first = Song("first.mp3", 3000, "-b 64 --tt First");
    const Text last = Song("last.mp3", 1000, "-b 64 --tt Last");
    for (int i = 0; i < 1000; ++i) {
        Start(first);
        if (i % 7 == 0) m_player->TogglePause();
        if (i % 5 == 0) m_player->Seek(i % 3 - 1);
        if (i % 50 == 0) m_loop.Turn();
    }
    Start(last);
    ASSERT_TRUE(UntilEnd());
    EXPECT_EQ(m_log.Told.find("tag=Last///// "), 0U) << m_log.Told;
}

TEST_F(AudioPlayerTest, AReaderThatHangsHoldsNobodyUp) {
    // As in a dead network folder.
    struct Hanging {
        std::counting_semaphore<> Entered{0};
        std::counting_semaphore<> LetGo{0};
    };
    const auto hanging = std::make_shared<Hanging>();
    m_settings.Open = [hanging](const Text& path) {
        if (path.find(u"hangs") != Text::npos) {
            hanging->Entered.release();
            hanging->LetGo.acquire();
        }
        return OpenForReading(TextView(path));
    };
    Make(5);
    const Text hangs = Song("hangs.mp3", 1000, "-b 64 --tt Hangs");
    Start(hangs);
    hanging->Entered.acquire();
    m_player->TogglePause();
    m_player->Seek(5);
    Start(Song("plays.mp3", 1000, "-b 64 --tt Plays"));
    EXPECT_TRUE(UntilEnd());
    EXPECT_EQ(m_log.Told.find("tag=Plays///// "), 0U) << m_log.Told;
    // The player goes while a reader still hangs.
    Start(hangs);
    m_player.reset();
    hanging->LetGo.release(2);
}

TEST(TrackSessionTest, TheReaderFillsTheQueueAndSleepsUntilHalfIsTakenAndIsHandedTheIndex) {
    TrackSession session(std::make_shared<Bell>());
    session.SetFacts({{44100, 2}, 7, {}, {}}, 60);
    std::atomic<int> pushed = 0;
    std::thread reader([&] {
        int serial = 0;
        std::optional<SeekRequest> seek;
        while (session.WaitForWork(serial, seek)) {
            if (seek) serial = seek->Serial;
            session.Push(serial, {++pushed, Samples16(2 * 10)});
        }
    });
    EXPECT_TRUE(WaitUntil([&] { return pushed >= 6; }));
    for (int chunk = 1; chunk <= 3; ++chunk)
        EXPECT_EQ(session.TakeChunk().value_or(Chunk{}).StartFrame, chunk);
    EXPECT_TRUE(WaitUntil([&] { return pushed >= 9; }));
    session.RequestSeek(30);
    EXPECT_TRUE(WaitUntil([&] { return pushed >= 15; }));
    session.Quit();
    reader.join();
    EXPECT_EQ(pushed, 15);
    session.SetScan(LengthScan{77, {{3, 5}, 9}});
    EXPECT_EQ(session.TakeIndex().value_or(FrameIndex{}).Step, 9);
}

} // namespace
