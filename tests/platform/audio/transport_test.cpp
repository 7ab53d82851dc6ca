// The player's core by a clock that the rows move: commands and a reader's work go in, and what the sound
// server is told and the player's events come out. A second has 2,000 frames, and samples are the numbers of
// their frames, so that the journal shows which piece of the track goes where.
#include <functional>
#include <gtest/gtest.h>
#include <sstream>

#include "platform/audio/event_log.h"
#include "platform/audio/fake_pulse.h"
#include "platform/audio/output_finder.h"
#include "platform/audio/transport.h"
#include "platform/null/null_loop.h"

namespace {

struct Row {
    const char* Name;
    const char* Script; ///< Words, some with a number: `seek=3`.
    const char* Journal;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.Script;
}

/// Frames for the scope are shown whenever the loop turns.
struct Loop : NullLoop {
    void PostIn(std::int64_t, std::function<void()> task) override { Later = std::move(task); }
    std::function<void()> Later;
};

class TransportTest : public testing::TestWithParam<Row>, public EventLog {
protected:
    TransportTest() {
        m_relay->Attach(this);
        Begin(true, 1);
    }
    ~TransportTest() override { pa_mainloop_free(m_mainloop); }

    void Do(const std::string& word, int n) {
        // The track, before its facts are there.
        if (word == "frames") m_frames = n;
        if (word == "length") m_facts.LengthFrames = n;
        if (word == "unknown") m_facts.LengthFrames.reset();
        if (word == "kbps") m_facts.BitrateKbps = n;
        if (word == "title") m_facts.Tags.Title = u"Moon";
        if (word == "mono") m_facts.Format.Channels = 1;
        // What a reader does.
        if (word == "facts") SetFacts();
        if (word == "limit") m_limit = n;
        if (word == "scan") m_session->SetScan(LengthScan{n, {}});
        if (word == "noscan") m_session->SetScan(std::nullopt);
        // Commands.
        if (word == "dial") m_server.Connect(m_pulse.NowUs);
        if (word == "clock") Begin(false, n / 10.0);
        if (word == "start") Start();
        if (word == "play") Play(n);
        if (word == "stop") m_track->Stop(m_pulse.NowUs);
        if (word == "pause") m_track->TogglePause(NextCommand(), m_pulse.NowUs);
        if (word == "seek") m_track->Seek(n, NextCommand(), m_pulse.NowUs);
        if (word == "volume") m_track->SetVolume(n, m_pulse.NowUs);
        if (word == "watched") m_track->SetWatched(n != 0, m_pulse.NowUs);
        if (word == "seen") m_ring.SetSeen(n != 0);
        // The server.
        if (word == "deaf") m_pulse.Deaf = n;
        if (word == "slow") m_pulse.Slow = n;
        if (word == "mute") m_pulse.Mute = n;
        if (word == "knows") m_pulse.Knows = n;
        if (word == "refuses") m_pulse.Refuses = n;
        if (word == "details") m_pulse.Details = n;
        if (word == "dies") m_pulse.Context = PA_CONTEXT_FAILED;
        if (word == "dies" || word == "kills") m_pulse.Stream = PA_STREAM_FAILED;
        if (word == "room") m_pulse.RoomFrames = n;
        if (word == "latency") m_pulse.Extra.sink_usec = n * 1000U;
        if (word == "transport") m_pulse.Extra.transport_usec = n * 1000U;
        if (word == "corrupt") m_pulse.Extra.read_index_corrupt = n;
        if (word == "suspend") Change(n != 0, m_pulse.OnSuspended, m_pulse.Streams);
        if (word == "move") Change(false, m_pulse.OnMoved, m_pulse.Streams);
        if (word == "stale") Change(false, m_pulse.OnMoved, 99);
        // Time, and questions.
        if (word == "run") Run(n);
        if (word == "sleep") m_pulse.NowUs += n * 1000;
        if (word == "pump") Pump();
        if (word == "due") NoteDue();
        if (word == "last") Note("last=" + std::to_string(m_pulse.Last.at(2 * n)));
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
        m_pulse.Journal.clear();
    }
    void SetFacts() {
        m_session->SetFacts(m_facts, 1'000'000);
        m_reads = true;
    }
    int NextCommand() {
        ++m_stamp.Command;
        m_relay->Expect(m_stamp);
        return m_stamp.Command;
    }
    void Change(bool suspended, pa_stream_notify_cb_t call, std::uintptr_t stream) {
        m_pulse.Settle();
        m_pulse.Suspended = suspended;
        ASSERT_TRUE(call);
        call(reinterpret_cast<pa_stream*>(stream), m_pulse.Asker);
    }
    /// What a reader would do now, at once. Whether that was anything.
    bool Read() {
        std::optional<SeekRequest> seek;
        if (!m_reads || !m_session->WaitForWork(-9, seek)) return false;
        if (seek->Serial != m_serial) {
            Note("find=" + std::to_string(seek->Frame));
            m_serial = seek->Serial;
            m_at = seek->Frame;
        }
        const std::int64_t before = m_at;
        while (m_at < std::min(m_frames, m_limit)) {
            Chunk chunk{m_at, {}};
            for (int frame = 0; frame < 700 && m_at < std::min(m_frames, m_limit); ++frame, ++m_at)
                for (int channel = 0; channel < m_facts.Format.Channels; ++channel)
                    chunk.Samples.push_back(static_cast<std::int16_t>(m_at + 1 - channel));
            m_session->Push(m_serial, std::move(chunk));
        }
        if (m_at < m_frames || m_at == kEnd) return m_at != before;
        m_at = kEnd;
        m_session->Push(m_serial, {});
        return true;
    }
    /// One turn of the player's thread, until everybody has had his answer.
    void Pump() {
        do {
            m_server.Poll(m_pulse.NowUs);
            m_outputs->PollRest(m_pulse.NowUs);
            m_track->Pump(m_pulse.NowUs);
            if (const auto later = std::exchange(m_loop.Later, nullptr)) later();
            m_loop.Turn();
        } while (m_pulse.Answer() || Read());
    }
    std::optional<std::int64_t> DueUs() {
        std::optional<std::int64_t> due = m_track->DueUs(m_pulse.NowUs);
        for (const auto other : {m_server.DueUs(), m_outputs->RestDueUs()})
            if (other) due = std::min(due.value_or(*other), *other);
        return due;
    }
    void NoteDue() {
        const std::optional<std::int64_t> due = m_track->DueUs(m_pulse.NowUs);
        Note("due=" + (due ? std::to_string(*due - m_pulse.NowUs) : "never"));
    }
    void Run(int ms) {
        const std::int64_t untilUs = m_pulse.NowUs + ms * 1000;
        for (int turns = 0; turns < 300; ++turns) {
            Pump();
            const std::int64_t dueUs = DueUs().value_or(untilUs);
            m_pulse.NowUs = std::clamp(dueUs, m_pulse.NowUs, untilUs);
            if (dueUs >= untilUs) return;
        }
        Note("never sleeps");
    }
    /// The new frames of the scope: their moments, and the middle and the last sample.
    void NoteFrames() {
        SampleFrame frame;
        for (Long number = m_frame + 1, end = number + 40; number < end; ++number)
            if (m_ring.Take(number, frame)) {
                m_frame = number;
                std::string note = std::to_string(frame.AtMs - FakePulse::kStartUs / 1000);
                for (const std::size_t at : {0, 1024, 2047})
                    note += "/" + std::to_string(static_cast<int>(frame.Samples[at] * 65536));
                Note(note);
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
    int m_serial = 0;
    std::int64_t m_at = 0;
    Loop m_loop;
    std::shared_ptr<EventRelay> m_relay = std::make_shared<EventRelay>(m_loop);
    EventStamp m_stamp;
    SampleRing m_ring;
    Long m_frame = 0;
    pa_mainloop* m_mainloop = pa_mainloop_new();
    PulseServer m_server{m_mainloop, "there"};
    std::optional<OutputFinder> m_outputs;
    std::optional<Transport> m_track;
};

TEST_P(TransportTest, GoesAsItsRowSays) {
    std::istringstream script(GetParam().Script);
    for (std::string word; script >> word;) {
        const std::size_t equals = word.find('=');
        Do(word.substr(0, equals), equals == std::string::npos ? 1 : std::stoi(word.substr(equals + 1)));
    }
    EXPECT_EQ(m_pulse.Journal, GetParam().Journal + std::string(" "));
    m_outputs.reset();
    EXPECT_EQ(m_pulse.Operations, 0) << "let go by nobody";
}

const Row kRows[] = {
    {"TellsTagStreamLengthPlacesAndOnceItsEnd",
     "details due start due pump title kbps=0 frames=1300 length=1300 facts run=9000 due",
     "@0 due=never dial due=never open=Moon buffer/-1/24000/4/8000/-1 tag=Moon///// stream=0/2000/2 "
     "length=650 @40 ask @200 ask p200 @400 p400 @600 p600 @651 p650 @1151 cork flush ask @6151 leave "
     "free @9000 due=never"},
    {"APauseHoldsThePlaceAndTellsNothing", "play=500 pause run=1000 due pause run=500",
     "@500 cork ask @1500 due=never uncork ask ask @1700 p700 @1900 p900"},
    {"WhatIsHeldFromItsStartOpensNothing", "start pause facts run=300 due pause run=100",
     "@0 dial tag=///// stream=128/2000/2 length=10000 @300 due=never open=file.mp3 @340 ask"},
    {"ASeekGoesFromTheHeardPlaceAndStaysInTheTrack",
     "play=500 seek=3 run=300 due seek=-1 run=300 seek=-9 run=300",
     "@500 find=7000 cork flush ask w=7001..7700 uncork @540 ask @700 ask p3700 @800 due=100000 "
     "find=5600 cork flush ask w=5601..6300 uncork @840 ask @1000 ask p3000 @1100 find=0 cork flush ask "
     "uncork @1140 ask @1300 ask p200"},
    {"ASeekToAPlaceThatWasJustToldTellsItAgain", "play=250 seek=-9 run=250",
     "@250 find=0 cork flush ask uncork @290 ask @450 ask p200"},
    {"SeeksOfOneMomentAddUp", "play=500 seek=3 seek=2 pump",
     "@500 find=11000 cork flush ask w=11001..11700 uncork"},
    {"SeeksAddUpBeforeTheFacts", "start seek=3 seek=-1 run=100 facts run=300",
     "@0 dial @100 tag=///// stream=128/2000/2 length=10000 find=4000 open=file.mp3 w=4001..4700 @140 "
     "ask @300 ask p2200"},
    {"SeeksAddUpWhileTheReaderLooks",
     "play=450 limit=0 seek=3 pump queued seek=2 run=300 queued due limit=99999 run=300",
     "@450 find=6900 queued=6800 find=10900 @750 queued=6800 due=4450000 cork flush ask w=10901..11600 "
     "uncork @790 ask @950 ask p5650"},
    {"ASeekWhileHeldStaysHeldAndGoesOnFromThere", "play=500 pause seek=3 run=500 due pause run=300",
     "@500 cork ask find=7000 cork flush ask w=7001..7700 @1000 due=never uncork ask @1040 ask @1200 ask "
     "p3700"},
    {"ASeekBehindTheEndEndsAndOneBackPlaysOn", "play=300 seek=100 run=300 due seek=-1 run=1700",
     "@300 cork flush ask p10000 @600 due=never find=18000 name=file.mp3 cork flush ask w=18001..18700 "
     "uncork @640 ask @800 ask p9200 @1000 p9400 @1200 p9600 @1400 p9800 @1600 p10000 @2100 cork flush "
     "ask"},
    {"ASeekToTheVeryEndEnds", "play=0 seek=10 run=100", "cork flush ask p10000"},
    {"ASeekBehindTheEndWhileHeldTellsTheEndWhenItGoesOn", "play=300 pause seek=100 run=300 due pause run=300",
     "@300 cork ask cork flush ask @600 due=never p10000"},
    {"AfterTheEndASeekOnAndAPauseTellTheEndAgain",
     "frames=1300 length=1300 play=700 seek=5 run=100 volume=50 pause run=100 pause run=100",
     "@700 cork flush ask p650 @900 p650"},
    {"PlacesWaitForTheScannedLength", "unknown play=500 scan=20000 run=300",
     "@500 length=10000 p500 @600 p600"},
    {"AnEndThatWasSoughtWaitsForTheScan",
     "unknown play=300 seek=100 run=300 due scan=20000 run=100 pump seek=-2 run=300",
     "@300 find=200600 cork flush ask @600 due=never length=10000 p10000 @700 find=16000 name=file.mp3 "
     "cork flush ask w=16001..16700 uncork @740 ask @900 ask p8200"},
    {"AnEndThatWasSoughtIsToldWhenTheScanFails", "unknown play=300 seek=100 run=100 noscan run=100",
     "@300 find=200600 cork flush ask @400 length=3240 p3240"},
    {"ASeekBeforeTheScanGoesFromTheEndThatWasPlayed", "unknown play=300 seek=100 run=300 seek=-2 run=300",
     "@300 find=200600 cork flush ask @600 find=2480 name=file.mp3 cork flush ask w=2481..3180 uncork "
     "@640 ask @840 ask"},
    {"AHoldAtTheLastMomentHoldsTheEnd",
     "frames=1300 length=1300 play=640 sleep=10 pause run=700 pause run=100",
     "@650 cork ask @1350 uncork ask p650 ask"},
    {"WhatWasPlayedToItsEndHasALength", "unknown frames=1300 play=600 run=900",
     "@651 length=650 p650 @1151 cork flush ask"},
    {"AFileLongerThanItsTagSaysEndsWithTheTagsLength", "length=700 frames=1300 play=100 run=700",
     "@100 ask @200 p200 @400 p349 @651 p350"},
    {"AFileShorterThanItsTagSaysEndsWithTheTagsLength", "length=5000 frames=1300 play=500 run=300",
     "@600 p600 @651 p2500"},
    {"ATrackOfNoLengthTellsItsBeginning", "length=0 frames=900 play=0 run=500",
     "@40 ask @200 ask p0 @451 p0"},
    {"AKilledStreamComesBackAfterASecond", "play=500 kills run=1500",
     "@500 leave free @1500 open=file.mp3 w=1001..7000 @1540 ask @1700 ask p700 @1900 p900"},
    {"ADeadServerIsWaitedFor", "play=500 dies deaf run=4500 due deaf=0 run=500",
     "@500 leave free @1500 hangup forget dial @3500 hangup forget @4500 dial @5000 due=never "
     "open=file.mp3 w=1001..7000 @5040 ask @5200 ask p700 @5400 p900"},
    {"AServerThatDiesWhileHeldIsWaitedForWhenItGoesOn", "play=500 pause dies run=1500 due pause run=300",
     "@500 cork ask leave free @2000 due=never hangup forget dial open=file.mp3 w=1001..7000 @2040 ask "
     "@2200 ask p700"},
    {"AServerThatDiesWhileTheReaderLooksIsWaitedFor",
     "play=500 limit=0 seek=3 pump dies run=1500 due limit=99999 run=300",
     "@500 find=7000 leave free @2000 due=never hangup forget dial open=file.mp3 w=7001..7700 @2040 ask "
     "@2200 ask p3700"},
    {"AStreamThatIsKilledAfterTheEndMakesNoNoise",
     "frames=1300 length=1300 play=700 kills run=1000 due seek=-1 run=300",
     "@700 leave free @1700 due=never find=0 open=file.mp3 @1740 ask @1900 ask p200"},
    {"AServerThatNeverAnswersIsGivenUpForTheSilentClock", "deaf start facts run=2500 stop run=100",
     "@0 dial tag=///// stream=128/2000/2 length=10000 @2000 hangup forget @2200 p200 @2400 p400"},
    {"AServerThatRefusesLeavesTheSilentClock", "refuses start facts run=300",
     "@0 dial tag=///// stream=128/2000/2 length=10000 @200 p200"},
    {"AStreamThatNeverOpensIsGivenUpForTheSilentClock", "slow start facts run=2500",
     "@0 dial tag=///// stream=128/2000/2 length=10000 open=file.mp3 @2000 leave free @2200 p200 @2400 "
     "p400"},
    {"AStreamThatIsRefusedLeavesTheSilentClock", "dial pump refuses start facts run=300",
     "@0 dial open=file.mp3 tag=///// stream=128/2000/2 length=10000 leave free @200 p200"},
    {"AStopWhileAStreamOpensEndsIt", "slow start facts run=100 stop run=100",
     "@0 dial tag=///// stream=128/2000/2 length=10000 open=file.mp3 @100 leave free"},
    {"AConnectionIsMadeOnce", "deaf dial run=100 dial deaf=0 run=100 dial run=100", "@0 dial"},
    {"NeverMoreThanFourSecondsAreQueued", "room=100000 play=0 queued run=300 queued",
     "queued=8000 @40 ask @200 ask p200 @300 queued=8400"},
    {"OneFrameIsWorthWriting", "room=1 play=0 queued run=50 queued", "queued=1 @40 ask @50 queued=4"},
    {"AServerThatTellsNoRoomGetsNothing", "room=-2 play=100 room=-1 run=50 queued",
     "@140 ask @150 queued=6080"},
    {"TheQueueIsFilledAcrossTheMemorysEnd",
     "watched=0 play=3900 queued volume=50 last=0 last=1080 queued run=200 queued",
     "@3900 queued=12000 w=7841..6000/-4160 last=7841 last=4461 queued=6000 p3900 @4100 queued=6900"},
    {"ATrackThatRunsDryStandsAndGoesOn", "limit=900 play=500 run=500 due limit=99999 run=500",
     "@600 p450 @1000 due=0 @1040 ask @1200 ask p650 @1400 p850"},
    {"TheVolumeBeforeTheFirstSoundIsThere", "start volume=50 facts run=100 queued",
     "@0 dial tag=///// stream=128/2000/2 length=10000 open=file.mp3 @40 ask @100 queued=3040"},
    {"TheVolumeBeforeAStreamIsOpenIsThere", "slow play=100 volume=50 slow=0 run=100 queued",
     "@140 ask @200 queued=3040"},
    {"TheVolumeIsWrittenAnewShortlyBehindWhatIsHeard",
     "play=500 volume=50 last=0 last=10 last=20 last=21 run=300 room=500 seek=-9 pump queued",
     "@500 w=1041..3400/-5760 last=1041 last=788 last=531 last=531 @600 p600 @800 find=0 cork flush ask "
     "uncork queued=500"},
    {"TheVolumeLastsOverTracks", "play=500 volume=50 room=500 start facts pump queued",
     "@500 w=1041..3400/-5760 cork flush ask quit name=file.mp3 cork flush ask tag=///// "
     "stream=128/2000/2 length=10000 uncork queued=250"},
    {"UnwatchedThePlaceIsToldOnceASecond", "watched=0 play=0 run=2600 watched=1 run=100 watched=1 run=200",
     "@40 ask @240 ask @1000 p1000 @2000 p2000 @2600 p2600 @2800 p2800"},
    {"UnwatchedAPlaceGoesAlongWithWhateverWakes", "watched=0 play=1100 sleep=399 pump sleep=1 pump due",
     "@1500 p1500 due=1000000"},
    {"AfterALateWakingPlacesKeepTheirDistance", "play=100 sleep=170 pump due sleep=310 pump due",
     "@270 ask p270 due=130000 @580 p580 due=100000"},
    {"TheScopeIsGivenFramesAheadOfTheirMoments",
     "seen play=10 run=90 frames? seen=0 run=250 due seen=1 pump frames?",
     "@33 vis=2 @40 ask @100 0/0/0/0 33/0/1/2047 66/0/265/2311 99/0/397/2443 132/0/529/2575 "
     "165/0/661/2707 198/0/793/2839 231/0/925/2971 264/0/1057/3103 297/0/1189/3235 ask vis=4 @200 vis=7 "
     "p200 @350 due=50000 vis=11 350/0/1401/3447 383/0/1533/3579 416/0/1665/3711 449/0/1797/3843 "
     "482/0/1929/3975 515/13/2061/4107 548/145/2193/4239 581/277/2325/4371"},
    {"TheScopeTakesOneChannelAsItIs", "clock=10 mono seen play=40 frames?",
     "@40 0/0/0/0 33/0/134/2180 66/0/266/2312 99/0/398/2444 132/0/530/2576 165/0/662/2708 198/0/794/2840 "
     "231/0/926/2972"},
    {"AfterASeekTheScopeSeesNothingOlder", "seen play=100 frames? seek=3 run=20 frames?",
     "@100 0/0/0/0 33/0/1/2047 66/0/265/2311 99/0/397/2443 132/0/529/2575 165/0/661/2707 198/0/793/2839 "
     "231/0/925/2971 264/0/1057/3103 297/0/1189/3235 ask find=6200 cork flush ask w=6201..6900 uncork "
     "vis=11 @120 100/0/12401/14447"},
    {"AfterAPauseTheScopeGoesOnAtOnce", "seen play=100 frames? pause run=100 due pause run=20 frames?",
     "@100 0/0/0/0 33/0/1/2047 66/0/265/2311 99/0/397/2443 132/0/529/2575 165/0/661/2707 198/0/793/2839 "
     "231/0/925/2971 264/0/1057/3103 297/0/1189/3235 cork ask @200 due=never uncork ask vis=11 ask @220 "
     "200/0/401/2447 233/0/533/2579 266/0/665/2711 299/0/797/2843 332/0/929/2975 365/0/1061/3107 "
     "398/0/1193/3239 431/0/1325/3371"},
    {"TheNextTracksScopeBeginsAtOnce", "seen play=100 frames? start facts run=10 frames?",
     "@100 0/0/0/0 33/0/1/2047 66/0/265/2311 99/0/397/2443 132/0/529/2575 165/0/661/2707 198/0/793/2839 "
     "231/0/925/2971 264/0/1057/3103 297/0/1189/3235 cork flush ask quit name=file.mp3 cork flush ask "
     "vis=11 tag=///// stream=128/2000/2 length=10000 uncork @110 100/0/0/0"},
    {"WhatIsNotDecodedYetWaitsForItsMoment", "limit=1400 seen play=150 frames?",
     "@150 0/0/0/0 33/0/1/2047 66/0/265/2311 99/0/397/2443 132/0/529/2575 165/0/661/2707"},
    {"AtTheSilentClockTimeStandsWhileHeld",
     "clock=10 play=300 pause run=100 due pause run=300 seek=2 run=300",
     "@400 due=never @600 p500 @700 find=5200 @900 p2800"},
    {"TheSilentClockWakesHalfAsOftenAsItsQueueIsLong", "clock=10 unknown play=100 due run=1500 due",
     "@100 due=1400000 @1600 due=1400000"},
    {"TheSilentClockPlaysToTheEnd", "clock=10 watched=0 play=0 run=10700 due",
     "@1000 p1000 @1500 p1500 @2500 p2500 @3000 p3000 @4000 p4000 @4500 p4500 @5500 p5500 @6000 p6000 "
     "@7000 p7000 @7500 p7500 @8500 p8500 @9000 p9000 @10000 p10000 @10700 due=never"},
    {"TheSilentClockBeginsAnewWithEachTrack", "clock=10 play=300 pause stop run=500 start facts run=250",
     "@800 quit tag=///// stream=128/2000/2 length=10000 @1000 p200"},
    {"AFastClockPlaysTheSameInLessTime", "clock=40 frames=9000 length=9000 play=100 run=1700 due",
     "@200 p800 @400 p1600 @600 p2400 @800 p3200 @1000 p4000 @1125 p4500 @1800 due=never"},
    {"TheSilentClockStandsWhereItRunsDry", "clock=10 limit=900 play=0 run=1000 limit=99999 run=500",
     "@200 p200 @400 p400 @600 p450 @1200 p650 @1400 p850"},
    {"WhatTheSinkHoldsIsNotHeardYet", "latency=100 play=0 run=500", "@40 ask @200 ask p100 @400 p300"},
    {"TheEndComesWhenTheSinkHasPlayedTheRest", "latency=100 frames=1300 length=1300 play=0 run=2000",
     "@40 ask @200 ask p100 @400 p300 @600 p500 @751 p650 @1251 cork flush ask"},
    {"AnAnswerIsAsOldAsItsWay", "transport=30 play=0 run=300", "@40 ask @200 ask p230"},
    {"ADamagedAnswerIsNone", "corrupt play=0 run=300 corrupt=0 run=350",
     "@40 ask @200 p0 @240 ask @440 ask @600 ask p600"},
    {"AFailedAnswerIsNone", "knows=0 play=0 run=300 knows=1 run=350",
     "@40 ask @200 p0 @240 ask @440 ask @600 ask p600"},
    {"WithoutAnAnswerNothingIsHeard", "mute play=0 run=500 mute=0 run=200",
     "@40 ask @200 p0 @240 ask @440 ask @500 ask @600 p600"},
    {"AHeldPlaceIsKnownBeforeTheServerTellsIt", "play=450 mute pause seek=3 pump",
     "@450 cork ask find=6900 cork flush ask w=6901..7600"},
    {"ASuspendedSinkStands", "play=300 suspend run=500 suspend=0 run=500",
     "@300 ask @400 p300 @800 ask @1000 ask p500 @1200 p700"},
    {"AMovedStreamIsAskedSoon", "play=300 move run=100 stale run=100", "@300 ask @400 p400"},
    {"AnswersFromBeforeASeekDoNotCount", "play=300 mute seek=3 run=300 seek=1 run=300 mute=0 run=300",
     "@300 find=6600 cork flush ask w=6601..7300 uncork @340 ask @500 p3300 @540 ask @600 find=8600 cork "
     "flush ask w=8601..9300 uncork @640 ask @800 p4300 @840 ask @900 ask @1000 p4700"},
    {"TheNextTrackTakesTheStreamThatRests", "play=250 stop due run=1000 title start facts run=250",
     "@250 cork flush ask due=never @1250 quit name=Moon cork flush ask tag=Moon///// stream=128/2000/2 "
     "length=10000 uncork @1290 ask @1450 ask p200"},
    {"AStreamThatDiesAtRestIsLetGo", "play=100 stop run=100 kills run=100 start facts run=100",
     "@100 cork flush ask @200 leave free @300 quit open=file.mp3 tag=///// stream=128/2000/2 "
     "length=10000 @340 ask"},
    {"AnotherFormatTakesAnotherStream", "play=100 stop mono start facts run=250 queued",
     "@100 cork flush ask quit leave free open=file.mp3 tag=///// stream=128/2000/1 length=10000 @140 "
     "ask @300 ask p200 @350 queued=6400"},
    {"AHeldTrackLeavesItsStreamFreeForTheNext", "play=100 pause stop pump start facts run=250",
     "@100 cork ask cork flush ask quit name=file.mp3 cork flush ask tag=///// stream=128/2000/2 "
     "length=10000 uncork @140 ask @300 ask p200"},
    {"AHoldBeforeTheNewPlaceIsQueuedStaysHeld",
     "play=300 room=0 seek=3 pump pause run=100 pause run=100 room=-1 run=300",
     "@300 find=6600 cork flush ask cork ask @400 ask @500 w=6601..7300 uncork @540 ask @600 ask p3400"},
    {"WhatTheServerDoesNotTakeIsNotHeard", "play=300 refuses run=300 refuses=0 run=300",
     "@400 p400 @600 p600 @800 p800"},
    {"ANewTrackDoesNotWaitForTheServerOfTheOldOne", "play=300 kills pump stop due start facts run=250",
     "@300 leave free due=never quit open=file.mp3 tag=///// stream=128/2000/2 length=10000 @340 ask "
     "@500 ask p200"},
    {"NothingOfATrackIsLeftForTheNext",
     "play=300 limit=0 seek=3 pump pause start limit=99999 facts run=250 seek=4 unknown start facts "
     "run=250",
     "@300 find=6600 cork ask cork flush ask quit name=file.mp3 cork flush ask tag=///// "
     "stream=128/2000/2 length=10000 uncork @340 ask @500 ask p200 @550 cork flush ask quit "
     "name=file.mp3 cork flush ask tag=///// stream=128/2000/2 uncork @590 ask @790 ask"},
    {"AStoppedTrackIsGone", "play=100 stop due run=100 pause seek=3 run=100 due start stop facts run=100 due",
     "@100 cork flush ask due=never @300 due=never quit @400 due=never"},
};

INSTANTIATE_TEST_SUITE_P(Rows, TransportTest, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.Name); });

} // namespace
