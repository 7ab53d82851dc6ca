// Commands only note what is wanted and move the sound; `Pump` does what the state of the moment
// asks for.
#include "platform/audio/player/track_player.h"

#include <algorithm>
#include <utility>

#include "platform/deadline.h"

namespace {

/// What the output may still hold when by its own account all has been heard.
constexpr std::int64_t kCloseUs = 500'000;
/// Waking only then, the end is heard for certain.
constexpr std::int64_t kBehindEndUs = 1000;
constexpr std::size_t kStreamNameLimit = 200;

} // namespace

TrackPlayer::TrackPlayer(OutputFinder& outputs, EventRelay& relay, SampleRing& ring)
    : m_outputs(outputs), m_report(relay), m_scope(relay, ring) {}

TrackState TrackPlayer::State() const {
    return StateOf(m_track.Stage, m_track.Held, m_sound.State());
}

void TrackPlayer::Start(std::shared_ptr<TrackSession> session, const EventStamp& stamp,
                        std::string fileName, std::int64_t nowUs) {
    Stop(nowUs);
    m_track.Session = std::move(session);
    m_track.StreamName = std::move(fileName);
    m_track.Stage = TrackStage::Reading;
    m_report.Start(stamp);
    m_outputs.Begin();
}

void TrackPlayer::Stop(std::int64_t nowUs) {
    m_sound.Stop(nowUs);
    if (m_track.Session) m_track.Session->Quit();
    m_track = {};
}

void TrackPlayer::TogglePause(int command, std::int64_t nowUs) {
    if (m_track.Stage == TrackStage::Empty) return;
    m_report.SetCommand(command);
    m_track.Held = !m_track.Held;
    // The pause may have dropped the end's event on its way.
    m_track.End.TellAgain();
    m_sound.Hold(m_track.Held, nowUs);
    m_report.DelayPlace(nowUs);
    m_scope.Restart(nowUs);
}

void TrackPlayer::Seek(Long seconds, int command, std::int64_t nowUs) {
    SeekBy(std::int64_t{seconds} * 1000, command, nowUs);
}

void TrackPlayer::SeekBy(std::int64_t milliseconds, int command, std::int64_t nowUs) {
    if (m_track.Stage == TrackStage::Empty) return;
    m_report.SetCommand(command);
    m_track.SeekToUs = std::max<std::int64_t>(0, GoalUs(nowUs) + milliseconds * 1000);
}

/// Where the track is, or will be when the seeks that go on are done.
std::int64_t TrackPlayer::GoalUs(std::int64_t nowUs) const {
    if (m_track.SeekToUs) return *m_track.SeekToUs;
    std::int64_t frame = 0;
    switch (m_track.Stage) {
    case TrackStage::Empty:
    case TrackStage::Reading:
        return 0;
    case TrackStage::Ready:
        frame = m_sound.Heard(nowUs);
        break;
    case TrackStage::Seeking:
        frame = m_track.SeekToFrame;
        break;
    case TrackStage::Ended:
        frame = m_track.End.Length().value_or(m_sound.Sent());
        break;
    }
    return frame * 1'000'000 / m_sound.Format().RateHz;
}

void TrackPlayer::SetVolume(int percent, std::int64_t nowUs) {
    m_sound.SetVolume(percent, nowUs);
}

void TrackPlayer::SetVisibility(bool window, std::int64_t nowUs) {
    m_report.SetVisibility(window, nowUs);
}

void TrackPlayer::Pump(std::int64_t nowUs) {
    if (m_track.Stage == TrackStage::Reading) TakeFacts(nowUs);
    if (m_track.Stage == TrackStage::Empty || m_track.Stage == TrackStage::Reading) return;
    TakeLength();
    AskForPlace(nowUs);
    TakePlace(nowUs);
    SeeToOutput(nowUs);
    if (const TrackState state = State(); state == TrackState::Playing || state == TrackState::Held)
        m_sound.Feed(*m_track.Session, nowUs);
    SeeToEnd(nowUs);
    if (State() != TrackState::Playing) return;
    if (const std::optional<std::int64_t> length = m_track.End.Length())
        m_report.TellPlace(m_sound.Heard(nowUs), *length, nowUs);
    m_scope.Fill(m_sound, m_report.Stamp(), nowUs);
}

void TrackPlayer::TakeFacts(std::int64_t nowUs) {
    const std::optional<TrackFacts> facts = m_track.Session->TakeFacts();
    if (!facts) {
        if (m_track.Session->TakeRefusal()) m_report.TellUnplayable();
        return;
    }
    m_track.Stage = TrackStage::Ready;
    m_sound.Restart(facts->Format, 0, nowUs);
    if (!facts->Tags.Title.empty())
        m_track.StreamName = Utf8(TextView(facts->Tags.Title).substr(0, kStreamNameLimit));
    m_report.TellFacts(*facts);
    if (facts->LengthFrames) SetLength(*facts->LengthFrames);
}

void TrackPlayer::TakeLength() {
    if (m_track.End.Length()) return;
    if (const std::optional<std::int64_t> frames = m_track.Session->TakeScannedLength())
        SetLength(*frames);
}

void TrackPlayer::SetLength(std::int64_t frames) {
    m_track.End.SetLength(frames);
    m_report.TellLength(frames);
}

void TrackPlayer::AskForPlace(std::int64_t nowUs) {
    if (!m_track.SeekToUs) return;
    const std::int64_t frame = *m_track.SeekToUs * m_sound.Format().RateHz / 1'000'000;
    m_track.SeekToUs.reset();
    if (m_track.End.IsAt(frame)) {
        ReachEnd(nowUs);
        return;
    }
    m_track.Stage = TrackStage::Seeking;
    m_track.SeekToFrame = frame;
    m_track.Session->RequestSeek(frame);
}

void TrackPlayer::TakePlace(std::int64_t nowUs) {
    if (m_track.Stage != TrackStage::Seeking) return;
    const std::optional<Chunk> first = m_track.Session->TakeChunk();
    if (!first) {
        if (m_track.Session->AtEnd()) ReachEnd(nowUs);
        return;
    }
    m_track.Stage = TrackStage::Ready;
    m_sound.Restart(m_sound.Format(), first->StartFrame, nowUs);
    m_sound.Append(first->Samples);
    m_report.ForgetPlace();
    m_report.DelayPlace(nowUs);
    m_scope.Restart(nowUs);
}

void TrackPlayer::SeeToOutput(std::int64_t nowUs) {
    m_sound.Poll(nowUs);
    if (State() == TrackState::Lost) {
        m_sound.CloseLost(nowUs);
        m_outputs.NoteLost(nowUs);
    }
    if (m_track.Stage == TrackStage::Ended && nowUs >= m_track.End.CloseAtUs())
        m_sound.Close(nowUs);
    if (State() == TrackState::Opening && m_outputs.GivesUp(m_sound.WasAudible(), nowUs))
        m_sound.Close(nowUs);
    if (State() == TrackState::Playing && m_outputs.HasCome()) m_sound.CloseLost(nowUs);
    if (State() != TrackState::Finding) return;
    SoundOutput* output = m_outputs.Choose(m_sound.WasAudible(), nowUs);
    if (!output) return;
    m_sound.Open(*output, m_track.StreamName, nowUs);
    m_report.DelayPlace(nowUs);
    m_scope.Restart(nowUs);
}

void TrackPlayer::SeeToEnd(std::int64_t nowUs) {
    if (State() == TrackState::Playing) NoticeEnd(nowUs);
    if (State() == TrackState::Ended) TellEnd();
}

void TrackPlayer::NoticeEnd(std::int64_t nowUs) {
    if (!m_sound.IsAllSent() || m_sound.LeftUs(nowUs) > 0 || !m_track.Session->AtEnd()) return;
    // The scan may still take its time; what was played to its end has a length all the same.
    if (!m_track.End.Length()) SetLength(m_sound.Sent());
    ReachEnd(nowUs + kCloseUs);
}

void TrackPlayer::ReachEnd(std::int64_t closeAtUs) {
    m_track.Stage = TrackStage::Ended;
    m_track.End.Reach(closeAtUs);
}

void TrackPlayer::TellEnd() {
    if (m_track.End.IsTold()) return;
    if (!m_track.End.Length()) {
        if (!m_track.Session->ScanFailed()) return;
        SetLength(m_sound.Sent());
    }
    m_report.TellEnd(*m_track.End.Length());
    m_track.End.NoteTold();
}

std::optional<std::int64_t> TrackPlayer::DueUs(std::int64_t nowUs) const {
    switch (State()) {
    case TrackState::Finding:
    case TrackState::Opening:
        return m_outputs.DueUs(m_sound.WasAudible());
    case TrackState::Lost:
    case TrackState::Seeking:
        return m_sound.DueUs();
    case TrackState::Playing: {
        std::optional<std::int64_t> placeUs;
        if (m_track.End.Length()) placeUs = m_report.PlaceDueUs();
        return Earliest({m_sound.DueUs(), placeUs, m_scope.DueUs(), EndDueUs(nowUs)});
    }
    case TrackState::Ended:
    case TrackState::EndedHeld:
        if (m_sound.State() == OutputState::Closed) return std::nullopt;
        return m_track.End.CloseAtUs();
    default:
        return std::nullopt;
    }
}

/// When the end will have been heard; nothing while more may follow.
std::optional<std::int64_t> TrackPlayer::EndDueUs(std::int64_t nowUs) const {
    if (!m_sound.IsAllSent() || !m_track.Session->AtEnd()) return std::nullopt;
    // While it stands, only an answer of the server leads on.
    if (m_sound.Pace() == 0) return std::nullopt;
    return nowUs + m_sound.LeftUs(nowUs) + kBehindEndUs;
}
