// The player on the silent clock, which runs faster here: events, their order, and what they say.
#include <algorithm>
#include <condition_variable>
#include <filesystem>
#include <sys/stat.h>
#include <thread>

#include "platform/audio/audio_clock.h"
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

TEST_F(AudioPlayerTest, ATrackTellsItsTagsStreamLengthAndPlacesInOrderAndEndsWithItsLength) {
    Make(Silent(10));
    Start(Song("song.mp3", 5000, "-b 128 --tt Moon --ta Sun"));
    ASSERT_TRUE(Until([&] { return m_log.HasEnded(); }));
    EXPECT_EQ(m_log.Order.substr(0, 3), "tsl");
    EXPECT_EQ(m_log.Order.find_first_not_of('p', 3), std::string::npos);
    EXPECT_EQ(m_log.Titles, std::vector<Text>{u"Moon"});
    EXPECT_EQ(m_log.LastArtist, u"Sun");
    EXPECT_EQ(m_log.BitrateKbps, 128);
    EXPECT_EQ(m_log.RateHz, 44100);
    EXPECT_EQ(m_log.ChannelCount, 2);
    EXPECT_EQ(m_log.LengthMs, 5000);
    EXPECT_TRUE(std::is_sorted(m_log.Positions.begin(), m_log.Positions.end()));
    EXPECT_EQ(std::count(m_log.Positions.begin(), m_log.Positions.end(), 5000), 1);
}

TEST_F(AudioPlayerTest, AFileWithoutTagsAndLengthTellsEmptyTextsAndAScannedLength) {
    Make(Silent(10));
    Start(Song("song.mp3", 3000, "-V5 -t"));
    ASSERT_TRUE(Until([&] { return m_log.HasEnded(); }));
    EXPECT_EQ(m_log.Order.substr(0, 3), "tsl");
    EXPECT_EQ(m_log.Titles, std::vector<Text>{u""});
    EXPECT_NEAR(m_log.LengthMs, 3000, 100);
}

TEST_F(AudioPlayerTest, WhatCanNotBePlayedTellsNothing) {
    Make(Silent(10));
    const std::string fifo = m_media.Directory() + "/fifo.mp3";
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    std::filesystem::create_directory(m_media.Directory() + "/directory.mp3");
    for (const Text& path :
         {Text(), Text(u"\\nowhere\\x.mp3"), PathText(fifo), PathText(m_media.Directory() + "/directory.mp3"),
          m_media.Write("text.mp3", "These are words."), m_media.Write("empty.mp3", "")}) {
        Start(path);
        LetPass(50);
        m_player->TogglePause();
        m_player->Seek(10);
        m_player->TogglePause();
    }
    EXPECT_EQ(m_log.Order, "");
    // And the next one plays.
    Start(Song("song.mp3", 1000));
    EXPECT_TRUE(Until([&] { return m_log.HasEnded(); }));
}

TEST_F(AudioPlayerTest, StopBeforeAnythingWasPlayedIsHarmless) {
    Make(Silent(1));
    m_player->Stop();
    m_player->TogglePause();
    m_player->Seek(5);
    Integer percent = 500;
    m_player->SetVolume(percent);
    LetPass(20);
    EXPECT_EQ(m_log.Order, "");
}

TEST_F(AudioPlayerTest, ARelativePathIsLookedForInTheGivenDirectoriesInTheirOrder) {
    Make(Silent(10));
    std::filesystem::create_directories(m_media.Directory() + "/a");
    std::filesystem::create_directories(m_media.Directory() + "/b/Sub");
    Song("b/Sub/song.mp3", 1000, "-b 64 --tt Second");
    m_player->LookIn({PathText(m_media.Directory() + "/a"), PathText(m_media.Directory() + "/b") + u"\\"});
    Start(u"sub\\SONG.mp3");
    EXPECT_TRUE(Until([&] { return m_log.HasEnded(); }));
    EXPECT_EQ(m_log.Titles, std::vector<Text>{u"Second"});
}

TEST_F(AudioPlayerTest, APauseHoldsThePlaceAndTellsNothing) {
    Make(Silent(2));
    Start(Song("song.mp3", 20000));
    ASSERT_TRUE(Until([&] { return m_log.Positions.size() >= 2; }));
    m_player->TogglePause();
    const std::string before = m_log.Order;
    LetPass(500);
    EXPECT_EQ(m_log.Order, before);
    const Long held = m_log.Positions.back();
    m_player->TogglePause();
    ASSERT_TRUE(Until([&] { return m_log.Order != before; }));
    EXPECT_GE(m_log.Positions.back(), held);
    EXPECT_LT(m_log.Positions.back(), held + 3000);
}

TEST_F(AudioPlayerTest, ASeekGoesFromTheHeardPlaceAndIsClampedAtTheBeginning) {
    Make(Silent(1));
    Start(Song("song.mp3", 60000));
    ASSERT_TRUE(Until([&] { return !m_log.Positions.empty(); }));
    const Long before = m_log.Positions.back();
    m_player->Seek(30);
    m_log.Positions.clear();
    ASSERT_TRUE(Until([&] { return !m_log.Positions.empty(); }));
    EXPECT_GE(m_log.Positions.front(), before + 30000);
    EXPECT_LT(m_log.Positions.front(), before + 35000);
    m_player->Seek(-1000);
    m_log.Positions.clear();
    ASSERT_TRUE(Until([&] { return !m_log.Positions.empty(); }));
    EXPECT_LT(m_log.Positions.front(), 5000);
}

TEST_F(AudioPlayerTest, SeeksAddUpBeforeTheFirstIsCarriedOut) {
    Make(Silent(1));
    m_player->TrackFile(Song("song.mp3", 60000));
    m_player->Play();
    m_player->Seek(20);
    m_player->Seek(20);
    ASSERT_TRUE(Until([&] { return !m_log.Positions.empty(); }));
    EXPECT_GE(m_log.Positions.front(), 40000);
    EXPECT_LT(m_log.Positions.front(), 45000);
}

TEST_F(AudioPlayerTest, ASeekOfNothingChangesNothing) {
    Make(Silent(10));
    Start(Song("song.mp3", 4000));
    ASSERT_TRUE(Until([&] { return !m_log.Positions.empty(); }));
    m_player->Seek(0);
    ASSERT_TRUE(Until([&] { return m_log.HasEnded(); }));
    EXPECT_TRUE(std::is_sorted(m_log.Positions.begin(), m_log.Positions.end()));
}

TEST_F(AudioPlayerTest, ASeekWhilePausedStaysPausedAndGoesOnFromThere) {
    Make(Silent(1));
    Start(Song("song.mp3", 60000));
    ASSERT_TRUE(Until([&] { return !m_log.Positions.empty(); }));
    m_player->TogglePause();
    m_player->Seek(30);
    m_log.Positions.clear();
    LetPass(400);
    EXPECT_TRUE(m_log.Positions.empty());
    m_player->TogglePause();
    ASSERT_TRUE(Until([&] { return !m_log.Positions.empty(); }));
    EXPECT_GE(m_log.Positions.front(), 30000);
    EXPECT_LT(m_log.Positions.front(), 36000);
}

TEST_F(AudioPlayerTest, AfterTheEndASeekBackPlaysOnAndASeekOnTellsTheEndAgain) {
    Make(Silent(10));
    Start(Song("song.mp3", 4000));
    ASSERT_TRUE(Until([&] { return m_log.HasEnded(); }));
    m_log.Positions.clear();
    m_player->Seek(10);
    ASSERT_TRUE(Until([&] { return !m_log.Positions.empty(); }));
    EXPECT_EQ(m_log.Positions, std::vector<Long>{4000});
    m_log.Positions.clear();
    m_player->Seek(-3);
    ASSERT_TRUE(Until([&] { return m_log.HasEnded(); }));
    EXPECT_GE(m_log.Positions.front(), 1000);
    EXPECT_GT(m_log.Positions.size(), 1U);
}

TEST_F(AudioPlayerTest, ASeekBehindTheEndOfAPausedTrackTellsTheEndWhenItGoesOn) {
    Make(Silent(5));
    Start(Song("song.mp3", 20000));
    ASSERT_TRUE(Until([&] { return !m_log.Positions.empty(); }));
    m_player->TogglePause();
    m_player->Seek(100);
    m_log.Positions.clear();
    LetPass(100);
    EXPECT_TRUE(m_log.Positions.empty());
    m_player->TogglePause();
    EXPECT_TRUE(Until([&] { return m_log.HasEnded(); }));
}

TEST_F(AudioPlayerTest, AShortenedOrDamagedFileStillEndsWithItsLength) {
    Make(Silent(20));
    const std::string song = m_media.Encode("lame --quiet -b 64", 44100, 2, 6000);
    std::string torn = song;
    torn.replace(song.size() / 3, 4000, std::string(4000, 'x'));
    std::string claims = song;
    const std::size_t letters = claims.find("Info");
    ASSERT_NE(letters, std::string::npos);
    claims.replace(letters + 8, 4, std::string("\0\0\2\0", 4));
    for (const std::string& bytes : {song.substr(0, song.size() / 2), torn, claims}) {
        m_log = {};
        Start(m_media.Write("damaged.mp3", bytes));
        EXPECT_TRUE(Until([&] { return m_log.HasEnded(); }));
        EXPECT_EQ(std::count_if(m_log.Positions.begin(), m_log.Positions.end(),
                                [&](Long position) { return position >= m_log.LengthMs; }),
                  1);
    }
}

TEST_F(AudioPlayerTest, EventsOfAStoppedTrackDoNotArrive) {
    Make(Silent(1));
    const Text first = Song("first.mp3", 2000, "-b 64 --tt First");
    const Text second = Song("second.mp3", 2000, "-b 64 --tt Second");
    Start(first);
    // The events are on their way, but the loop hasn't run.
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    Start(second);
    ASSERT_TRUE(Until([&] { return !m_log.Positions.empty(); }));
    EXPECT_EQ(m_log.Titles, std::vector<Text>{u"Second"});
    m_player->Stop();
    const std::string before = m_log.Order;
    LetPass(400);
    EXPECT_EQ(m_log.Order, before);
}

TEST_F(AudioPlayerTest, AHandlerThatWaitsNeitherReordersNorStrandsEvents) {
    struct Waiting : EventLog {
        void OnTagInfo(const Text& title, const Text& artist, const Text& album, const Text& year,
                       const Text& comment, const Text& genre) override {
            EventLog::OnTagInfo(title, artist, album, year, comment, genre);
            static_cast<void>(
                Inner->RunUntil([this] { return Order.find('l') != std::string::npos; }, kLimitMs));
            Order += ')';
        }
        NullLoop* Inner = nullptr;
    } log;
    log.Inner = &m_loop;
    Make(Silent(5));
    m_player->Attach(log);
    Start(Song("song.mp3", 2000));
    ASSERT_TRUE(Until([&] { return log.HasEnded(); }));
    EXPECT_EQ(log.Order.substr(0, 5), "tsl)p");
}

TEST_F(AudioPlayerTest, AThousandQuickChangesEndWithTheLastTrack) {
    Make(Silent(5));
    const Text first = Song("first.mp3", 3000, "-b 64 --tt First");
    const Text last = Song("last.mp3", 3000, "-b 64 --tt Last");
    for (int i = 0; i < 1000; ++i) {
        Start(first);
        if (i % 7 == 0) m_player->TogglePause();
        if (i % 5 == 0) m_player->Seek(i % 3 - 1);
        if (i % 50 == 0) m_loop.Turn();
    }
    m_log = {};
    Start(last);
    ASSERT_TRUE(Until([&] { return m_log.HasEnded(); }));
    EXPECT_EQ(m_log.Titles, std::vector<Text>{u"Last"});
}

/// An opener that hangs on one path until it is let go, as a dead network folder would.
struct Hanging {
    FileHandle Open(const Text& path) {
        if (path.find(u"hangs") != Text::npos) {
            std::unique_lock lock(Mutex);
            ++Entered;
            Changed.notify_all();
            Changed.wait(lock, [this] { return LetGo; });
        }
        return OpenForReading(TextView(path));
    }
    std::mutex Mutex;
    std::condition_variable Changed;
    int Entered = 0;
    bool LetGo = false;
};

TEST_F(AudioPlayerTest, AReaderThatHangsHoldsNobodyUp) {
    const auto hanging = std::make_shared<Hanging>();
    AudioSettings settings = Silent(5);
    settings.Open = [hanging](const Text& path) { return hanging->Open(path); };
    Make(std::move(settings));
    const Text hangs = Song("hangs.mp3", 1000, "-b 64 --tt Hangs");
    const Text plays = Song("plays.mp3", 1000, "-b 64 --tt Plays");
    Start(hangs);
    {
        std::unique_lock lock(hanging->Mutex);
        hanging->Changed.wait(lock, [&] { return hanging->Entered > 0; });
    }
    m_player->TogglePause();
    m_player->Seek(5);
    Start(plays);
    EXPECT_TRUE(Until([&] { return m_log.HasEnded(); }));
    Start(hangs);
    // The player goes while a reader still hangs.
    m_player.reset();
    {
        const std::lock_guard lock(hanging->Mutex);
        hanging->LetGo = true;
        hanging->Changed.notify_all();
    }
    EXPECT_EQ(m_log.Titles, std::vector<Text>{u"Plays"});
}

TEST_F(AudioPlayerTest, AFileGoneWhileItPlaysIsPlayedToItsEnd) {
    Make(Silent(5));
    Start(Song("song.mp3", 6000));
    ASSERT_TRUE(Until([&] { return !m_log.Positions.empty(); }));
    std::filesystem::remove(m_media.Directory() + "/song.mp3");
    EXPECT_TRUE(Until([&] { return m_log.HasEnded(); }));
}

TEST_F(AudioPlayerTest, FramesForTheScopeComeOnlyWhileItIsSeenAndTheMusicMoves) {
    Make(Silent(1));
    Start(Song("song.mp3", 20000));
    ASSERT_TRUE(Until([&] { return m_log.Positions.size() > 1; }));
    EXPECT_TRUE(m_log.Frames.empty());
    m_player->SetSight(true, true);
    SampleFrame frame;
    std::int64_t lastMs = 0;
    std::size_t seen = 0;
    const auto noteFrame = [&] {
        if (m_log.Frames.size() == seen) return;
        seen = m_log.Frames.size();
        if (!m_player->Ring().Take(m_log.Frames.back(), frame)) return;
        EXPECT_GT(frame.AtMs, lastMs);
        EXPECT_LE(frame.AtMs, NowUs() / 1000 + 2) << "shown before it is heard";
        lastMs = frame.AtMs;
    };
    ASSERT_TRUE(Until([&] {
        noteFrame();
        return seen > 20;
    }));
    ASSERT_TRUE(m_player->Ring().Take(m_log.Frames.back(), frame));
    EXPECT_TRUE(
        std::any_of(frame.Samples.begin(), frame.Samples.end(), [](float sample) { return sample != 0; }));
    m_player->TogglePause();
    m_log.Frames.clear();
    LetPass(300);
    EXPECT_TRUE(m_log.Frames.empty());
}

TEST_F(AudioPlayerTest, UnseenThePlaceIsToldMoreSeldom) {
    Make(Silent(4));
    m_player->SetSight(false, false);
    Start(Song("song.mp3", 30000));
    ASSERT_TRUE(Until([&] { return !m_log.Positions.empty() && m_log.Positions.back() > 12000; }));
    // Five times a second would be about 15.
    EXPECT_LT(m_log.Positions.size(), 8U);
    const std::size_t before = m_log.Positions.size();
    m_player->SetSight(true, false);
    ASSERT_TRUE(Until([&] { return m_log.HasEnded(); }));
    // Once a second would be about 5, five times a second 22; a slow machine tells fewer.
    EXPECT_GT(m_log.Positions.size(), before + 8);
}

} // namespace
