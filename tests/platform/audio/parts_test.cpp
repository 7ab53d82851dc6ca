// The small parts of the player that need neither threads nor files.
#include <deque>
#include <future>
#include <gtest/gtest.h>
#include <numeric>
#include <poll.h>
#include <sstream>

#include "platform/audio/event_log.h"
#include "platform/audio/event_relay.h"
#include "platform/audio/fake_pulse.h"
#include "platform/audio/play_history.h"
#include "platform/audio/sample_ring.h"
#include "platform/audio/track_session.h"
#include "platform/audio/volume_ramp.h"
#include "platform/null/null_loop.h"

namespace {

using Samples = std::vector<std::int16_t>;

TEST(VolumeRampTest, AmplitudeFollowsThePercentFromFrameToFrame) {
    const struct {
        const char* Name;
        int FromPercent;
        int ToPercent;
        std::int64_t AtFrame;
        std::int64_t OverFrames;
        Samples Heard; ///< Of three frames of 10,000 and -30,001, from frame 100 on.
    } rows[] = {
        {"full as it was", 100, 100, 0, 0, {10000, -30001, 10000, -30001, 10000, -30001}},
        {"clamped", -7, 107, 101, 1, {0, 0, 0, 0, 10000, -30001}},
        {"part of it", 30, 30, 0, 0, {3000, -9000, 3000, -9000, 3000, -9000}},
        {"begun before", 3, 100, 99, 2, {5150, -15450, 10000, -30001, 10000, -30001}},
        {"over a while", 57, 33, 100, 9, {5700, -17101, 5434, -16301, 5167, -15501}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        VolumeRamp ramp;
        ramp.Set(VolumeRamp::FactorOf(row.FromPercent));
        ramp.Change(row.AtFrame, VolumeRamp::FactorOf(row.ToPercent), row.OverFrames);
        Samples samples = {10000, -30001, 10000, -30001, 10000, -30001};
        ramp.Apply(100, 2, samples);
        EXPECT_EQ(samples, row.Heard);
    }
}

TEST(PlayHistoryTest, KeepsTheLastSecondsAcrossItsWrap) {
    PlayHistory history;
    history.Restart({5, 2}, 47);
    Samples samples(2 * 19);
    for (const std::int16_t end : {66, 85, 104}) {
        std::iota(samples.begin(), samples.end(), static_cast<std::int16_t>(2 * (end - 19)));
        history.Append(samples);
        EXPECT_EQ(history.Begin(), std::max(47, end - 5 * PlayHistory::kSeconds));
        EXPECT_EQ(history.End(), end);
    }
    // Of nine frames asked for, those before the memory's end and the last frame.
    for (const auto& [frame, frames] : {std::pair(74, 9), {81, 9}, {88, 2}, {90, 9}, {100, 4}, {104, 0}}) {
        Samples expected(static_cast<std::size_t>(2 * frames));
        std::iota(expected.begin(), expected.end(), static_cast<std::int16_t>(2 * frame));
        const std::span<const std::int16_t> part = history.From(frame, 9);
        EXPECT_EQ(Samples(part.begin(), part.end()), expected) << frame;
    }
    history.Append({samples.data(), 1});
    EXPECT_EQ(history.End(), 104) << "half a frame is none";
    history.Restart({5, 1}, 9);
    history.Append({samples.data(), 3});
    EXPECT_EQ(history.End(), 12);
}

TEST(SampleRingTest, HoldsTheLastSixteenFramesByTheirNumbers) {
    SampleRing ring;
    SampleFrame frame;
    EXPECT_FALSE(ring.Take(1, frame));
    for (Long put = 1; put <= 20; ++put) {
        frame.AtMs = 100 + put;
        ASSERT_EQ(ring.Put(frame), put);
        for (const Long number : {-5, 0, 1, put - 16, put - 15, put, put + 1}) {
            frame.AtMs = 7;
            const bool held = number >= 1 && number > put - 16 && number <= put;
            ASSERT_EQ(ring.Take(number, frame), held) << number;
            EXPECT_EQ(frame.AtMs, held ? 100 + number : 7);
        }
    }
}

/// A loop that runs one task at a time, in the order of the posts, however long it was to wait.
struct TaskLoop : NullLoop {
    void Post(std::function<void()> task) override { Tasks.push_back(std::move(task)); }
    void PostIn(std::int64_t delayMs, std::function<void()> task) override {
        DelayMs = delayMs;
        Post(std::move(task));
    }
    void RunOne() {
        ASSERT_FALSE(Tasks.empty());
        std::exchange(Tasks.front(), nullptr)();
        Tasks.pop_front();
    }
    std::deque<std::function<void()>> Tasks;
    std::int64_t DelayMs = 0;
};

TEST(EventRelayTest, DeliversOneEventByATaskAndNoneThatIsOutOfDate) {
    // An event is its letter, its track and its command; what it tells is its place in the row.
    const struct {
        const char* Name;
        EventStamp Expected;
        const char* Raised;
        const char* Told; ///< With a stroke for each task.
    } rows[] = {
        {"in their order", {1, 2}, "t12 s12 l12 p12", "tag=A/B/C/D/E/F |stream=2/2002/1 |length=3 |p4 |"},
        {"a newer place takes the turn of one that waits", {1, 2}, "p12 l12 p22 p12", "p4 |length=2 ||"},
        {"of another track nothing", {2, 0}, "t10 s10 l10 p10 p30 p20", "|||||p6 |"},
        {"after a pause or seek facts, but no place", {1, 3}, "t12 p12 l12", "tag=A/B/C/D/E/F ||length=3 |"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        TaskLoop loop;
        EventLog log;
        const auto relay = std::make_shared<EventRelay>(loop);
        relay->Attach(&log);
        relay->Expect(row.Expected);
        std::istringstream raised(row.Raised);
        Integer n = 0;
        for (std::string word; raised >> word;) {
            const EventStamp stamp{word[1] - '0', word[2] - '0'};
            ++n;
            if (word[0] == 't') relay->Raise(stamp, TagEvent{{u"A", u"B", u"C", u"D", u"E", u"F"}});
            if (word[0] == 's') relay->Raise(stamp, StreamEvent{n, 2000 + n, 1});
            if (word[0] == 'l') relay->Raise(stamp, LengthEvent{n});
            if (word[0] == 'p') relay->Raise(stamp, PositionEvent{n});
        }
        while (!loop.Tasks.empty()) {
            loop.RunOne();
            log.Told += '|';
        }
        EXPECT_EQ(log.Told, row.Told);
        relay->Raise(row.Expected, LengthEvent{1});
        relay->Attach(nullptr);
        loop.RunOne();
        EXPECT_EQ(log.Told, row.Told) << "nobody listens any more";
    }
}

TEST(EventRelayTest, ShowsTheLastFrameThatIsDueAndTheNextAtItsMoment) {
    FakePulse clock;
    TaskLoop loop;
    EventLog log;
    const auto relay = std::make_shared<EventRelay>(loop);
    relay->Attach(&log);
    relay->Expect({2, 2});
    const auto raise = [&](const EventStamp& stamp, Long frame, std::int64_t inUs) {
        relay->RaiseFrame(stamp, frame, clock.NowUs + inUs);
    };
    // The toolkit's timers count in milliseconds, so one is taken for now.
    for (const Long inUs : {-5000, 1000, 1001, 44999})
        raise({2, 2}, inUs, inUs);
    raise({2, 1}, 7, 50000);
    raise({1, 2}, 8, 50000);
    ASSERT_EQ(loop.Tasks.size(), 1U);
    for (const std::int64_t passesUs : {0, 1, 43998}) {
        clock.NowUs += passesUs;
        loop.RunOne();
        EXPECT_EQ(loop.DelayMs, passesUs == 0 ? 1 : 44);
    }
    EXPECT_EQ(log.Frames, (std::vector<Long>{1000, 1001, 44999}));
    ASSERT_TRUE(loop.Tasks.empty());
    raise({2, 2}, 9, 0);
    relay->Attach(nullptr);
    loop.RunOne();
    EXPECT_EQ(log.Frames.size(), 3U) << "nobody looks any more";
}

class SessionTest : public testing::Test {
protected:
    SessionTest() { m_session.SetFacts({{44100, 2}, 7, {}, {}}, 50); }
    ~SessionTest() override { m_session.Quit(); }
    bool Rang() {
        pollfd bell{m_bell->Descriptor(), POLLIN, 0};
        const bool rang = poll(&bell, 1, 0) == 1;
        m_bell->Clear();
        return rang;
    }
    void Push(std::int64_t number, int frames, int serial = 0) {
        m_session.Push(serial, {number, Samples(static_cast<std::size_t>(2 * frames))});
    }
    /// The number of the next chunk; 0 if there is none.
    std::int64_t Take() { return m_session.TakeChunk().value_or(Chunk{}).StartFrame; }
    /// What a reader is told to do, who came from the seek `serial`, after `first` has been done.
    std::string Work(int serial, const std::function<void()>& first = nullptr) {
        auto reader = std::async(std::launch::async, [this, serial] {
            std::optional<SeekRequest> seek;
            if (!m_session.WaitForWork(serial, seek)) return std::string("over");
            return seek ? std::to_string(seek->Serial) + "/" + std::to_string(seek->Frame) : "work";
        });
        if (first) {
            EXPECT_EQ(reader.wait_for(std::chrono::milliseconds(20)), std::future_status::timeout) << "awake";
            first();
        }
        if (reader.wait_for(std::chrono::seconds(20)) == std::future_status::ready) return reader.get();
        m_session.Quit();
        return "asleep";
    }

    std::shared_ptr<Bell> m_bell = std::make_shared<Bell>();
    TrackSession m_session{m_bell};
};

TEST_F(SessionTest, FactsAndScanAreGivenOnceAndRing) {
    EXPECT_TRUE(Rang());
    EXPECT_EQ(m_session.TakeFacts().value().BitrateKbps, 7);
    EXPECT_FALSE(m_session.TakeFacts());
    m_session.SetScan(LengthScan{77, {{3, 5}, 9}});
    EXPECT_TRUE(Rang());
    EXPECT_FALSE(m_session.ScanFailed());
    EXPECT_EQ(m_session.TakeScannedLength(), 77);
    EXPECT_FALSE(m_session.TakeScannedLength());
    EXPECT_EQ(m_session.TakeIndex().value().Step, 9);
    EXPECT_FALSE(m_session.TakeIndex());
    m_session.SetScan(std::nullopt);
    EXPECT_TRUE(m_session.ScanFailed());
}

TEST_F(SessionTest, TheReaderFillsUpAndSleepsUntilHalfIsTakenAndTheBellRingsForWhoFoundNothing) {
    static_cast<void>(Rang());
    EXPECT_EQ(Work(0), "work");
    Push(1, 24);
    EXPECT_TRUE(Rang());
    Push(2, 25);
    EXPECT_EQ(Work(0), "work");
    Push(3, 1);
    EXPECT_FALSE(Rang());
    EXPECT_EQ(Take(), 1);
    EXPECT_EQ(Work(0, [&] { EXPECT_EQ(Take(), 2); }), "work");
    Push(4, 48);
    EXPECT_EQ(Work(0), "work");
    Push(5, 1);
    EXPECT_EQ(Take(), 3);
    EXPECT_EQ(Work(0, [&] { Push(6, 0), Take(), Take(), m_session.RequestSeek(30); }), "1/30");
}

} // namespace
