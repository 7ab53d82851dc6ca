// The player's core by a clock that the rows move: commands and a reader's work go in, and what the
// sound server is told and the player's events come out. A second has 2,000 frames, and samples are
// the numbers of their frames, so that the journal shows which piece of the track goes where.
#include <numeric>
#include <poll.h>
#include <regex>
#include <sstream>

#include "platform/audio/fake_pulse.h"
#include "platform/audio/output/output_finder.h"
#include "platform/audio/player/track_player.h"
#include "platform/audio/player_fixture.h"
#include "platform/deadline.h"

namespace {

struct Row {
    const char* Name;
    const char* Script; ///< Words, some with a number: `seek=3`.
    const char* Journal;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.Script;
}

/// Its one timer goes by the clock of the rows.
struct Loop : NullLoop {
    void PostIn(std::int64_t delayMs, std::function<void()> task) override {
        Later = std::move(task);
        LaterUs = FakePulse::Present->NowUs + 1000 * delayMs;
    }
    std::function<void()> Later;
    std::optional<std::int64_t> LaterUs;
};

class TrackPlayerTest : public testing::TestWithParam<Row>, public EventLog {
protected:
    TrackPlayerTest() {
        m_relay->Attach(this);
        Begin(true, 1);
    }
    ~TrackPlayerTest() override { pa_mainloop_free(m_mainloop); }

    void Do(const std::string& word, int n) {
        // The track, before its facts are there.
        if (word == "frames") m_frames = n;
        if (word == "length") m_facts.LengthFrames = n;
        if (word == "unknown") m_facts.LengthFrames.reset();
        if (word == "kbps") m_facts.BitrateKbps = n;
        if (word == "title") m_facts.Tags = {u"Moon", u"Sun", u"Sky", u"1999", u"None", u"Folk"};
        if (word == "mono") m_facts.Format.Channels = 1;
        // What a reader does.
        if (word == "facts") SetFacts();
        if (word == "limit") m_limit = n;
        if (word == "scan") SetScan(LengthScan{n, {}});
        if (word == "noscan") SetScan(std::nullopt);
        // Commands.
        if (word == "dial") m_server.Connect();
        if (word == "clock") Begin(false, n / 10.0);
        if (word == "start") Start();
        if (word == "play") Play(n);
        if (word == "stop") m_track->Stop(m_pulse.NowUs);
        if (word == "pause") m_track->TogglePause(NextCommand(), m_pulse.NowUs);
        if (word == "seek") m_track->Seek(n, NextCommand(), m_pulse.NowUs);
        if (word == "volume") m_track->SetVolume(n, m_pulse.NowUs);
        if (word == "window") m_track->SetVisibility(n != 0, m_pulse.NowUs);
        if (word == "scope") m_ring.SetVisibility(n != 0);
        if (word == "busy") m_busy = n != 0;
        // The server.
        if (word == "deaf") m_pulse.Deaf = n;
        if (word == "slow") m_pulse.Slow = n;
        if (word == "mute") m_pulse.Mute = n;
        if (word == "knows") m_pulse.Knows = n;
        if (word == "refuses") m_pulse.Refuses = n;
        if (word == "details") m_pulse.Details = n;
        if (word == "dies") m_pulse.Context = PA_CONTEXT_FAILED;
        if (word == "dies" || word == "kills") m_pulse.Kill();
        if (word == "room") m_pulse.RoomFrames = n;
        if (word == "latency") m_pulse.Extra.sink_usec = static_cast<pa_usec_t>(n) * 1000;
        if (word == "transport") m_pulse.Extra.transport_usec = static_cast<pa_usec_t>(n) * 1000;
        if (word == "corrupt") m_pulse.Extra.read_index_corrupt = n;
        if (word == "suspend") m_pulse.Suspend(n != 0);
        // Time, and questions.
        if (word == "run") Run(n);
        if (word == "sleep") m_pulse.NowUs += n;
        if (word == "pump") Pump();
        if (word == "due") NoteDue();
        if (word == "sum")
            Note("sum=" + std::to_string(std::reduce(m_pulse.Last.begin(), m_pulse.Last.end(), 0)));
        if (word == "queued") Note("queued=" + std::to_string(m_pulse.Queued));
        if (word == "frames?") NoteFrames();
    }
    void Begin(bool useServer, double speed) {
        m_track.reset();
        m_outputs.emplace(m_server, useServer, speed);
        m_track.emplace(*m_outputs, *m_relay, m_ring);
    }
    void Note(const std::string& what) override { m_pulse.Note(what); }
    void OnVisData(Long frame) override { Note("vis=" + std::to_string(frame)); }

    void Start() {
        m_stamp = {m_stamp.Track + 1, 0};
        m_relay->Expect(m_stamp);
        const auto before = std::exchange(m_session, std::make_shared<TrackSession>(m_bell));
        m_track->Start(m_session, m_stamp, "file.mp3", m_pulse.NowUs);
        if (before && *before->QuitFlag()) Note("quit");
        m_reads = false;
        m_serial = 0;
        m_at = 0;
    }
    /// The beginning of most rows, of which nothing is noted.
    void Play(int ms) {
        Start();
        SetFacts();
        Run(ms);
        NoteFrames();
        m_pulse.Journal.clear();
    }
    void SetFacts() {
        m_session->SetFacts(m_facts, 1'000'000);
        m_reads = Rang();
    }
    void SetScan(std::optional<LengthScan> scan) {
        m_session->SetScan(std::move(scan));
        if (!Rang()) Note("no bell");
    }
    bool Rang() {
        pollfd bell{m_bell->Descriptor(), POLLIN, 0};
        const bool rang = poll(&bell, 1, 0) == 1;
        m_bell->Clear();
        return rang;
    }
    int NextCommand() {
        ++m_stamp.Command;
        m_relay->Expect(m_stamp);
        return m_stamp.Command;
    }
    /// What a reader would do now, at once.
    void Read() {
        std::optional<SeekRequest> seek;
        if (!m_reads || !m_session->WaitForWork(-9, seek)) return;
        if (seek->Serial != m_serial) {
            Note("find=" + std::to_string(seek->Frame));
            m_serial = seek->Serial;
            m_at = seek->Frame;
        }
        while (m_at < std::min(m_frames, m_limit)) {
            Chunk chunk{m_at, {}};
            for (int frame = 0; frame < 700 && m_at < std::min(m_frames, m_limit); ++frame, ++m_at)
                for (int channel = 0; channel < m_facts.Format.Channels; ++channel)
                    chunk.Samples.push_back(static_cast<std::int16_t>(m_at + 1 - channel));
            m_session->Push(m_serial, std::move(chunk));
        }
        if (m_at < m_frames || m_at == kEnd) return;
        m_at = kEnd;
        m_session->Push(m_serial, {});
    }
    /// One turn of the player's thread, until everybody has had his answer.
    void Pump() {
        bool goesOn = true;
        while (goesOn) {
            m_outputs->PollRest(m_pulse.NowUs);
            m_track->Pump(m_pulse.NowUs);
            if (m_loop.LaterUs.value_or(m_pulse.NowUs + 1) <= m_pulse.NowUs) {
                m_loop.LaterUs.reset();
                std::exchange(m_loop.Later, nullptr)();
            }
            if (!m_busy) m_loop.Turn();
            goesOn = m_pulse.Answer();
            Read();
            goesOn |= Rang();
        }
    }
    void NoteDue() {
        const std::optional<std::int64_t> due = m_track->DueUs(m_pulse.NowUs);
        Note("due=" + (due ? std::to_string(*due - m_pulse.NowUs) : "never"));
    }
    void Run(int ms) {
        const std::int64_t untilUs = m_pulse.NowUs + ms * 1000;
        for (int turns = 0; turns < 300; ++turns) {
            Pump();
            const std::int64_t dueUs =
                Earliest({m_track->DueUs(m_pulse.NowUs), m_outputs->RestDueUs(), m_loop.LaterUs})
                    .value_or(untilUs);
            m_pulse.NowUs = std::clamp(dueUs, m_pulse.NowUs, untilUs);
            if (dueUs >= untilUs) return;
        }
        Note("never sleeps");
    }
    /// The new frames of the scope: their moments, and the sum of their samples.
    void NoteFrames() {
        SampleFrame frame;
        for (Long number = m_frame + 1, end = number + 40; number < end; ++number)
            if (m_ring.Take(number, frame)) {
                m_frame = number;
                const double sum = std::reduce(frame.Samples.begin(), frame.Samples.end(), 0.0);
                Note(std::to_string(frame.AtMs - FakePulse::kStartUs / 1000) + ":" +
                     std::to_string(std::llround(sum * 65536)));
                EXPECT_EQ(frame.RateHz, 2000);
            }
    }

    static constexpr std::int64_t kEnd = 1'000'000;

    FakePulse m_pulse;
    TrackFacts m_facts{{2000, 2}, 128, {}, 20000};
    std::int64_t m_frames = 20000;
    std::int64_t m_limit = kEnd;
    std::shared_ptr<Bell> m_bell = std::make_shared<Bell>();
    std::shared_ptr<TrackSession> m_session;
    bool m_reads = false;
    bool m_busy = false; ///< The loop doesn't turn.
    int m_serial = 0;
    std::int64_t m_at = 0;
    Loop m_loop;
    std::shared_ptr<EventRelay> m_relay = std::make_shared<EventRelay>(m_loop);
    EventStamp m_stamp;
    SampleRing m_ring;
    Long m_frame = -1;
    pa_mainloop* m_mainloop = pa_mainloop_new();
    PulseServer m_server{m_mainloop, "there"};
    std::optional<OutputFinder> m_outputs;
    std::optional<TrackPlayer> m_track;
};

TEST_P(TrackPlayerTest, GoesAsItsRowSays) {
    std::istringstream script(GetParam().Script);
    for (std::string word; script >> word;) {
        const std::size_t equals = word.find('=');
        Do(word.substr(0, equals),
           equals == std::string::npos ? 1 : std::stoi(word.substr(equals + 1)));
    }
    const std::regex facts("tag=/{5} stream=128/2000/2 length=10000");
    const std::string journal = std::regex_replace(m_pulse.Journal, facts, "facts");
    EXPECT_EQ(std::regex_replace(journal, std::regex("\\bcork flush ask"), "drop"),
              GetParam().Journal + std::string(" "));
    m_outputs.reset();
    EXPECT_EQ(m_pulse.Operations, 0) << "let go by nobody";
    m_pulse.Deaf = m_pulse.Slow = false;
    m_pulse.Answer();
    EXPECT_EQ(m_pulse.OnServer, 0) << "left on the server";
}

TEST(TrackStateTest, EveryMomentHasOneState) {
    // By stage and, the second four, held; of the output by its state. A letter is a state's first.
    std::string states;
    for (int at = 0; at < 40; ++at)
        states += "-RLSsFfOoPpEe"[static_cast<int>(
            StateOf(TrackStage(at / 8), at % 8 > 3, OutputState(at % 4)))];
    EXPECT_EQ(states, "--------RRRRRRRRFOPLfopLSSSLsssLEEELeeeL");
}

const Row kRows[] = {
    {"TellsTagStreamLengthPlacesAndOnceItsEnd",
     "details due start due pump title kbps=0 frames=1300 length=1300 facts run=9000 due",
     "@0 due=never dial due=never open=Moon buffer/-1/24000/4/8000/-1 "
     "tag=Moon/Sun/Sky/1999/None/Folk stream=0/2000/2 length=650 uncork @40 ask @240 ask p240 "
     "@480 p480 @651 p650 @1151 drop @6151 leave free @9000 due=never"},
    {"APauseHoldsThePlaceAndTellsNothing", "play=500 pause run=1000 due pause run=500",
     "@500 cork ask @1500 due=never uncork ask ask @1740 p740 @1980 p980"},
    {"ASeekToAPlaceThatWasJustToldTellsItAgain", "play=250 seek=-9 run=250",
     "@250 find=0 drop uncork @290 ask @490 ask p240"},
    {"SeeksAddUpAlsoWhileOneGoesOn", "play=450 limit=0 seek=2 seek=1 pump queued seek=2 pump due",
     "@450 find=6900 queued=6480 find=10900 due=1040000"},
    {"ASeekWhileHeldStaysHeldAndGoesOnFromThere", "play=500 pause seek=3 run=400 due pause run=300",
     "@500 cork ask find=7000 drop w=7001..7700 @900 due=never uncork ask @940 ask @1140 ask "
     "p3740"},
    {"ASeekToTheVeryEndEnds", "play=0 seek=10 run=100", "drop p10000"},
    {"AfterTheEndASeekOnAndAPauseTellTheEndAgain",
     "frames=1300 length=1300 play=700 seek=5 run=100 volume=50 pause run=100 pause run=100",
     "@700 drop p650 @900 p650"},
    {"PlacesWaitForTheScannedLength", "unknown play=500 scan=20000 run=300",
     "@500 length=10000 p500 @740 p740"},
    {"ASoughtEndWaitsForTheScan", "unknown play=300 seek=100 run=300 due scan=20000 run=100",
     "@300 find=200600 drop @600 due=never length=10000 p10000"},
    {"ASoughtEndIsToldWhenTheScanFails", "unknown play=300 seek=100 run=100 noscan run=100",
     "@300 find=200600 drop @400 length=3240 p3240"},
    {"APauseRightBeforeTheEndHoldsIt", "frames=1300 length=1300 play=640 sleep=10000 pause run=700",
     "@650 cork ask"},
    {"WhatWasPlayedToItsEndHasALength", "unknown frames=1300 play=600 run=900",
     "@651 length=650 p650 @1151 drop"},
    {"AFileLongerThanItsTagSaysEndsWithTheTagsLength", "length=700 frames=1300 play=100 run=700",
     "@100 ask @240 p240 @480 p349 @651 p350"},
    {"ADeadServerIsWaitedFor", "play=500 dies deaf run=4500 due deaf=0 run=500",
     "@500 leave free @1500 hangup forget dial @5000 due=never open=file.mp3 w=1001..7000 uncork "
     "@5040 ask @5240 ask p740 @5480 p980"},
    {"AServerThatNeverAnswersIsGivenUpForTheSilentClock", "deaf start facts run=2500 stop run=100",
     "@0 dial facts @2240 p240 @2480 p480"},
    {"AServerThatComesLateIsHeardFromThePlaceThatIsShown",
     "deaf start facts run=2500 slow deaf=0 run=300 slow=0 run=300",
     "@0 dial facts @2240 p240 @2480 p480 @2500 open=file.mp3 @2740 p740 @2800 name=file.mp3 drop "
     "w=1601..7600 uncork @2840 ask @3040 ask p1040"},
    {"AStreamThatComesLateIsHeardFromThePlaceThatIsShown",
     "slow start facts run=2500 slow=0 run=500",
     "@0 dial facts open=file.mp3 @2240 p240 @2480 p480 @2500 name=file.mp3 drop w=1001..7000 "
     "uncork @2540 ask @2740 ask p740 @2980 p980"},
    {"WhatHasNotComeIsNotWaitedForAgain", "slow start facts run=2500 start facts run=250",
     "@0 dial facts open=file.mp3 @2240 p240 @2480 p480 @2500 quit facts @2740 p240"},
    {"ARestingStreamOfAServerThatHangsIsLeftForTheSilentClock",
     "play=100 stop mute start facts run=2500 mute=0 run=300",
     "@100 drop quit name=file.mp3 drop facts @2340 p240 @2580 p480 @2600 name=file.mp3 drop "
     "w=1001..7000 uncork @2640 ask @2840 ask p740"},
    {"ASeekWhoseAnswerFailsIsFoundByTheNextOne", "play=300 knows=0 seek=3 run=300 knows=1 run=400",
     "@300 find=6600 drop w=6601..7300 uncork @340 ask @540 ask p3300 @740 ask @940 ask p3940"},
    {"APauseWhileTheStreamOpensHoldsIt",
     "slow start facts run=100 pause slow=0 run=4000 pause run=300",
     "@0 dial facts open=file.mp3 @4100 uncork ask @4140 ask @4340 ask p240"},
    {"AStreamThatIsStoppedWhileItOpensLeaves", "slow play=100 stop run=100 slow=0 run=6000",
     "@5200 leave free"},
    {"AStreamThatASeekEndsWhileItOpensLeaves", "slow play=100 seek=99 run=100 slow=0 run=6000",
     "@100 p10000 @5200 leave free"},
    {"TheNextTrackTakesTheStreamThatStillOpens", "slow play=100 start facts run=100 slow=0 run=300",
     "@100 quit facts @200 name=file.mp3 uncork @240 ask @340 ask p140"},
    {"AStreamOfAnotherFormatLeavesAsSoonAsItIsUp",
     "slow play=100 mono start facts run=100 slow=0 run=100",
     "@100 quit free open=file.mp3 tag=///// stream=128/2000/1 length=10000 @200 leave uncork "
     "@240 ask"},
    {"AServerThatHangsIsNotRunAheadOfAndWhatItDidNotPlayIsHeard",
     "window=0 play=900 mute run=2900 due dies run=1300",
     "@900 p900 @1490 ask p1490 @2490 p1740 @3800 due=690000 leave free @4800 hangup forget dial "
     "open=file.mp3 w=3481..9480 uncork @4840 ask"},
    {"AnAnswerToAPauseThatComesLateDoesNotMoveThePlace",
     "play=450 mute pause run=1000 pause run=250 mute=0 run=250",
     "@450 cork ask @1450 uncork ask @1690 p450 @1700 ask @1930 p930"},
    {"ARefusalLeavesTheSilentClock", "refuses start facts run=300", "@0 dial facts @240 p240"},
    {"AStreamThatNeverOpensIsGivenUpForTheSilentClock", "slow start facts run=2500",
     "@0 dial facts open=file.mp3 @2240 p240 @2480 p480"},
    {"NeverMoreThanFourSecondsAreQueued", "room=100000 play=0 queued run=300 queued",
     "queued=8000 @40 ask @240 ask p240 @300 queued=8480"},
    {"OneFrameIsWorthWritingButNotWhenNoRoomIsTold",
     "room=1 play=0 queued run=50 queued room=-2 run=100 queued",
     "queued=1 @40 ask @50 queued=4 @150 queued=4"},
    {"TheQueueGoesRoundTheMemory", "window=0 play=3900 queued volume=33 sum queued run=200 queued",
     "@3900 queued=12000 w=7841..3960/-4160 sum=27346903 queued=3960 w=3960..4158 w=4158..4389 "
     "w=4389..4554 p3900 @4100 queued=4554"},
    {"ATrackThatRunsDryStandsAndGoesOn", "limit=900 play=500 run=500 due limit=99999 run=500",
     "@1000 due=200000 @1040 ask @1200 ask p650 @1440 p890"},
    {"TheVolumeBeforeAStreamIsOpenIsThere",
     "slow play=100 volume=-3 volume=107 volume=50 slow=0 run=100 queued",
     "@100 uncork @140 ask @200 queued=3040"},
    {"TheVolumeIsWrittenAnewShortlyBehindWhatIsHeard",
     "play=500 volume=57 sum run=300 room=500 seek=-9 pump sum",
     "@500 w=1041..3967/-5920 sum=27004996 @720 p720 @800 find=0 drop uncork sum=290703"},
    {"TheVolumeLastsOverTracks", "play=500 volume=50 room=500 start facts pump queued",
     "@500 w=1041..3480/-5920 drop quit name=file.mp3 drop facts uncork queued=250"},
    {"OfAnInvisibleWindowThePlaceIsToldOnceASecond",
     "window=0 play=0 run=2600 window=1 run=100 window=1 run=200",
     "@40 ask @240 ask @1000 p1000 @2000 p2000 @2600 p2600 @2840 p2840"},
    {"AfterALateWakeUpPlacesKeepApart", "play=100 sleep=170000 pump due sleep=310000 pump due",
     "@270 ask p270 due=240000 @580 p580 due=240000"},
    {"TheScopeGetsFramesAheadOfTheirMoments", "scope play=370 scope=0 run=250 scope=1 pump frames?",
     "@400 vis=13 @434 vis=14 @467 vis=15 @500 vis=16 p500 @534 vis=17 @567 vis=18 @600 vis=19 "
     "@620 633:5181440 666:5455872 699:5726208 733:6000640 766:6275072 799:6545408 833:6819840 "
     "866:7094272"},
    {"ABusyLoopIsToldTheFactsAndTheLastPlace", "busy play=900 busy=0 run=10", "@900 facts p900"},
    {"APlaceFromBeforeAPauseIsNotTold", "busy play=300 pause busy=0 pump", "@300 cork ask facts"},
    {"NothingIsToldOfATrackThatIsGone", "busy play=300 start facts run=250 busy=0 pump",
     "@300 drop quit name=file.mp3 drop uncork @340 ask @540 ask @550 facts p240"},
    {"AFrameIsShownUpToAMillisecondEarly", "scope play=60 sleep=40500 pump run=60",
     "@100+ ask vis=4 @133+ vis=5"},
    {"TheScopeTakesOneChannelAsItIs", "clock=10 mono scope start facts run=60 frames?",
     "@0 tag=///// stream=128/2000/1 length=10000 vis=1 @34 vis=2 @60 0:0 33:1189190 66:1339806 "
     "99:1496952 133:1665390 166:1842806 199:2026352 233:2221590 266:2425806"},
    {"AfterASeekTheScopeSeesNothingElse",
     "scope play=100 seek=3 run=40 frames? limit=6900 seek=0 run=20 frames?",
     "ask find=6199 drop w=6200..6899 uncork vis=11 @133+ vis=12 @140 100:13744128 133:13744128 "
     "ask find=6199 drop w=6200..6899 uncork vis=13 @160 140:9182399"},
    {"AfterAPauseTheScopeGoesOnAtOnce", "scope play=100 pause run=100 due pause run=20 frames?",
     "cork ask @200 due=never uncork ask vis=11 ask @220 200:1495729 233:1661521 266:1838736 "
     "299:2022084 333:2217121 366:2421136 399:2630884 433:2852721"},
    {"TheNextTracksScopeBeginsAtOnce", "scope play=100 start facts run=10 frames?",
     "drop quit name=file.mp3 drop facts uncork vis=11 @110 100:1048576"},
    {"WhatIsNotDecodedYetWaitsForItsMoment", "limit=1400 scope start facts run=150 frames?",
     "@0 dial facts open=file.mp3 uncork vis=1 @33+ vis=2 @40 ask @67 vis=3 @100 ask vis=4 @134 "
     "vis=5 @150 0:1048576 33:1048576 66:1336336 99:1493284 133:1661521 166:1838736"},
    {"AtTheSilentClockTimeStandsWhileHeld",
     "clock=10 play=300 pause run=100 due pause run=300 seek=2 run=300",
     "@400 due=never @640 p540 @700 find=5200 @940 p2840"},
    {"TheClockBeginsAnewWithEachTrack", "clock=10 play=300 pause stop run=500 start facts run=250",
     "@800 quit facts @1040 p240"},
    {"AFastClockPlaysTheSameInLessTime", "clock=40 frames=9000 length=9000 play=100 run=1700 due",
     "@240 p960 @480 p1920 @720 p2880 @960 p3840 @1125 p4500 @1800 due=never"},
    {"TheSilentClockStandsWhereItRunsDry", "clock=10 limit=900 play=0 run=1000 limit=99999 run=500",
     "@240 p240 @480 p450 @1200 p650 @1440 p890"},
    {"TheEndComesWhenTheSinkHasPlayedAll", "latency=100 frames=1300 length=1300 play=0 run=2000",
     "@40 ask @240 ask p140 @480 p380 @720 p620 @751 p650 @1251 drop"},
    {"AnAnswerIsAsOldAsItsWay", "transport=30 play=0 run=300", "@40 ask @240 ask p270"},
    {"ABadOrFailedAnswerIsNone", "corrupt play=0 run=300 corrupt=0 knows=0 run=200 knows=1 run=400",
     "@40 ask @240 ask p0 @440 ask @640 ask @840 ask p840"},
    {"AHeldPlaceIsKnownBeforeTheServerTellsIt", "play=450 mute pause seek=3 pump",
     "@450 cork ask find=6900 drop w=6901..7600"},
    {"ASuspendedSinkStands", "play=300 suspend run=500 suspend=0 run=500",
     "@300 ask @480 p300 @800 ask @960 ask p460 @1200 p700"},
    {"AnswersBeforeASeekDoNotCount", "play=300 mute seek=3 run=300 seek=1 run=300 mute=0 run=300",
     "@300 find=6600 drop w=6601..7300 uncork @540 p3300 @600 find=8600 drop w=8601..9300 uncork "
     "@840 p4300 @900 ask @1080 ask p4780"},
    {"AnotherFormatTakesAnotherStream", "play=100 stop mono start facts run=250 queued",
     "@100 drop quit leave free open=file.mp3 tag=///// stream=128/2000/1 length=10000 uncork "
     "@140 ask @340 ask p240 @350 queued=6480"},
    {"AHoldBeforeTheNewPlaceIsQueuedStaysHeld",
     "play=300 room=0 seek=3 pump pause run=100 pause run=100 room=-1 run=300",
     "@300 find=6600 drop cork ask @400 ask @500 w=6601..7300 uncork @540 ask @640 ask p3440"},
    {"ARestingStreamThatDiesGoes", "play=100 stop kills pump", "@100 drop leave free"},
    {"ANewTrackDoesNotWaitForTheOldOnesServer", "play=300 kills pump stop due start facts run=250",
     "@300 leave free due=never quit open=file.mp3 facts uncork @340 ask @540 ask p240"},
    {"NothingOfATrackIsLeftForTheNext",
     "play=300 limit=0 seek=3 pump pause start limit=99999 facts run=250 seek=4 unknown start "
     "facts run=250",
     "@300 find=6600 cork ask drop quit name=file.mp3 drop facts uncork @340 ask @540 ask p240 "
     "@550 drop quit name=file.mp3 drop tag=///// stream=128/2000/2 uncork @590 ask @790 ask"},
};

INSTANTIATE_TEST_SUITE_P(Rows, TrackPlayerTest, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.Name); });

} // namespace
