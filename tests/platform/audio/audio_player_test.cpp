// The player on its own threads and real files: what comes from one thread to the other, and that nobody
// waits for anybody. It plays on the silent clock, which runs faster here.
#include <algorithm>
#include <atomic>
#include <cstring>
#include <filesystem>
#include <semaphore>
#include <sys/stat.h>
#include <thread>

#include "platform/audio/player_fixture.h"
#include "platform/paths.h"

namespace {

AudioSettings Silent(double speed) {
    AudioSettings settings;
    settings.UseServer = false;
    settings.ClockSpeed = speed;
    return settings;
}

using AudioPlayerTest = PlayerTest;

TEST_F(AudioPlayerTest, AFileTellsItsFactsThenItsPlacesAndOnceItsEnd) {
    Make(Silent(20));
    // The second has neither tags nor a length, so it is scanned.
    for (const auto& [options, facts] :
         {std::pair("-b 128 --tt Moon --ta Sun", "tag=Moon/Sun//// stream=128/44100/2 length=2000 p"),
          std::pair("-V5 -t", "tag=///// stream=")}) {
        m_log = {};
        Start(Song("song.mp3", 2000, options));
        ASSERT_TRUE(UntilEnd());
        EXPECT_EQ(m_log.Told.substr(0, std::strlen(facts)), facts);
        EXPECT_NEAR(m_log.LengthMs, 2000, 100);
        EXPECT_EQ(m_log.Told.find_first_of("tsl", m_log.Told.find(" p")), std::string::npos);
        EXPECT_TRUE(std::is_sorted(m_log.Positions.begin(), m_log.Positions.end()));
    }
}

TEST_F(AudioPlayerTest, WhatCanNotBePlayedTellsNothingAndTheNextOnePlays) {
    Make(Silent(10));
    m_player->TogglePause();
    m_player->Seek(5);
    const std::string fifo = m_media.Directory() + "/fifo.mp3";
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    std::filesystem::create_directories(m_media.Directory() + "/a");
    std::filesystem::create_directories(m_media.Directory() + "/b/Sub");
    Song("b/Sub/song.mp3", 1000, "-b 64 --tt Second");
    for (const Text& path :
         {Text(), Text(u"\\nowhere\\x.mp3"), PathText(fifo), PathText(m_media.Directory() + "/a"),
          m_media.Write("text.mp3", "These are words."), m_media.Write("empty.mp3", "")}) {
        Start(path);
        m_player->TogglePause();
        m_player->Seek(10);
    }
    // A relative path is looked for in the given directories, in their order.
    m_player->LookIn({PathText(m_media.Directory() + "/a"), PathText(m_media.Directory() + "/b") + u"\\"});
    Start(u"sub\\SONG.mp3");
    ASSERT_TRUE(UntilEnd());
    EXPECT_EQ(m_log.Told.substr(0, 16), "tag=Second///// ");
}

TEST_F(AudioPlayerTest, EachCommandReachesTheTrack) {
    Make(Silent(5));
    m_player->SetSight(false, true);
    Start(Song("song.mp3", 40000, "-b 32"));
    // Unseen, the place is told once or twice a second, which is five of the track's here.
    ASSERT_TRUE(UntilPlace(5000));
    EXPECT_LT(m_log.Positions.size(), 5U);
    EXPECT_FALSE(m_log.Frames.empty());
    // The file itself isn't needed any more.
    std::filesystem::remove(m_media.Directory() + "/song.mp3");
    m_player->SetSight(true, false);
    ASSERT_TRUE(Until([&] {
        const std::size_t count = m_log.Positions.size();
        return count > 2 && m_log.Positions[count - 1] - m_log.Positions[count - 2] < 3000;
    }));
    m_player->TogglePause();
    m_player->Seek(20);
    m_player->Seek(-2);
    m_player->Seek(0);
    const Long held = m_log.Positions.back();
    m_log.Positions.clear();
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
    struct CountingLoop : NullLoop {
        void Post(std::function<void()> task) override {
            NullLoop::Post(std::move(task));
            ++Posts;
        }
        std::atomic<int> Posts = 0;
    } loop;
    m_player = std::make_unique<AudioPlayer>(loop, Silent(5));
    m_player->Attach(m_log);
    Start(Song("first.mp3", 2000, "-b 64 --tt First"));
    // Tag, stream, length and a place.
    while (loop.Posts < 4)
        std::this_thread::yield();
    m_player->Stop();
    loop.Turn();
    EXPECT_EQ(m_log.Told, "");
    Start(Song("second.mp3", 1000, "-b 64 --tt Second"));
    ASSERT_TRUE(loop.RunUntil([&] { return m_log.HasEnded(); }, 30000));
    EXPECT_EQ(m_log.Told.substr(0, 16), "tag=Second///// ");
    m_player.reset();
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
    Make(Silent(5));
    m_player->Attach(log);
    Start(Song("song.mp3", 2000, "-b 128"));
    ASSERT_TRUE(Until([&] { return log.HasEnded(); }));
    const std::string facts = "tag=///// stream=128/44100/2 length=2000 waited p";
    EXPECT_EQ(log.Told.substr(0, facts.size()), facts);
    m_player.reset();
}

TEST_F(AudioPlayerTest, AThousandQuickChangesEndWithTheLastTrack) {
    Make(Silent(5));
    const Text first = Song("first.mp3", 3000, "-b 64 --tt First");
    const Text last = Song("last.mp3", 1000, "-b 64 --tt Last");
    for (int i = 0; i < 1000; ++i) {
        Start(first);
        if (i % 7 == 0) m_player->TogglePause();
        if (i % 5 == 0) m_player->Seek(i % 3 - 1);
        if (i % 50 == 0) m_loop.Turn();
    }
    m_log = {};
    Start(last);
    ASSERT_TRUE(UntilEnd());
    EXPECT_EQ(m_log.Told.substr(0, 14), "tag=Last///// ");
}

TEST_F(AudioPlayerTest, AReaderThatHangsHoldsNobodyUp) {
    // As in a dead network folder.
    struct Hanging {
        std::counting_semaphore<> Entered{0};
        std::counting_semaphore<> LetGo{0};
    };
    const auto hanging = std::make_shared<Hanging>();
    AudioSettings settings = Silent(5);
    settings.Open = [hanging](const Text& path) {
        if (path.find(u"hangs") != Text::npos) {
            hanging->Entered.release();
            hanging->LetGo.acquire();
        }
        return OpenForReading(TextView(path));
    };
    Make(std::move(settings));
    const Text hangs = Song("hangs.mp3", 1000, "-b 64 --tt Hangs");
    Start(hangs);
    hanging->Entered.acquire();
    m_player->TogglePause();
    m_player->Seek(5);
    Start(Song("plays.mp3", 1000, "-b 64 --tt Plays"));
    EXPECT_TRUE(UntilEnd());
    EXPECT_EQ(m_log.Told.substr(0, 15), "tag=Plays///// ");
    // The player goes while a reader still hangs.
    Start(hangs);
    m_player.reset();
    hanging->LetGo.release(2);
}

} // namespace
