// Everything is derived from two places in the track, the frame sent last and the frame heard now;
// a seek, a pause, a change of volume or of output only moves what lies between them.
#include "platform/audio/player/track_player.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {

constexpr std::int64_t kTellUs = 200'000;
constexpr std::int64_t kTellUnwatchedUs = 1'000'000;
/// A position that nobody watches goes along with whatever else woke the thread.
constexpr std::int64_t kTellEarlyUs = 500'000;
constexpr std::int64_t kScopeUs = 33'000;
/// Beyond the next position, so that the frames need no wake-up of their own.
constexpr std::int64_t kScopeAheadUs = 260'000;
/// What the output may still hold when by its own account all has been heard.
constexpr std::int64_t kCloseUs = 500'000;
/// How far ahead of what is heard a change of the volume begins, so that the server can still take
/// it in.
constexpr int kVolumeLeadMs = 20;
constexpr int kRampMs = 10;
/// Never more than this ahead of what is heard, whatever a server asks for: the history has to hold
/// it.
constexpr int kAheadLimitMs = 4000;

Integer ClampToInteger(int number) {
    return static_cast<Integer>(std::clamp<int>(number, 0, std::numeric_limits<Integer>::max()));
}

} // namespace

TrackPlayer::TrackPlayer(OutputChooser& outputs, EventRelay& relay, SampleRing& ring)
    : m_outputs(outputs), m_relay(relay), m_ring(ring) {}

void TrackPlayer::Start(std::shared_ptr<TrackSession> session, const EventStamp& stamp,
                        std::string fileName, std::int64_t nowUs) {
    Stop(nowUs);
    m_session = std::move(session);
    m_stamp = stamp;
    m_streamName = std::move(fileName);
    m_outputs.Begin(nowUs);
}

void TrackPlayer::Stop(std::int64_t nowUs) {
    if (m_output) m_output->Close(nowUs);
    if (m_session) m_session->Quit();
    m_output = nullptr;
    m_session = nullptr;
    m_facts.reset();
    m_length.reset();
    m_held = m_ended = m_endTold = m_mustSound = false;
    m_base = m_sent = m_place = 0;
    m_volume.Settle();
    m_seekToUs.reset();
    m_seekTo.reset();
    m_lastToldMs.reset();
}

bool TrackPlayer::IsSounding() const {
    return m_output && m_output->State() == OutputState::Running && !m_held && !m_ended &&
           !m_seekTo;
}

std::int64_t TrackPlayer::HeardFrame(std::int64_t nowUs) const {
    return m_output ? m_base + m_output->HeardFrames(nowUs) : m_place;
}

std::int64_t TrackPlayer::FramesOfMs(std::int64_t ms) const {
    return ms * m_facts->Format.RateHz / 1000;
}

Long TrackPlayer::PositionMs(std::int64_t frame) const {
    const std::int64_t ms = MsOfFrames(frame, m_facts->Format.RateHz);
    return static_cast<Long>(std::clamp<std::int64_t>(ms, 0, std::numeric_limits<Long>::max()));
}

void TrackPlayer::TogglePause(int command, std::int64_t nowUs) {
    m_stamp.Command = command;
    if (!m_session) return;
    m_held = !m_held;
    // The hold may have dropped the end's event on its way.
    m_endTold = false;
    if (m_output) m_output->Hold(m_held, nowUs);
    m_tellAtUs = nowUs + kTellUs;
    m_scopeAtUs = nowUs;
}

void TrackPlayer::Seek(Long seconds, int command, std::int64_t nowUs) {
    m_stamp.Command = command;
    if (!m_session) return;
    const std::int64_t distanceUs = static_cast<std::int64_t>(seconds) * 1'000'000;
    std::int64_t fromUs = m_seekToUs.value_or(0);
    if (m_facts && !m_seekToUs) {
        const std::int64_t frame =
            m_ended ? m_length.value_or(m_sent) : m_seekTo.value_or(HeardFrame(nowUs));
        fromUs = frame * 1'000'000 / m_facts->Format.RateHz;
    }
    m_seekToUs = std::max<std::int64_t>(0, fromUs + distanceUs);
}

void TrackPlayer::SeekPending(std::int64_t nowUs) {
    if (!m_seekToUs) return;
    const std::int64_t frame = *m_seekToUs * m_facts->Format.RateHz / 1'000'000;
    m_seekToUs.reset();
    if (m_length && frame >= *m_length) {
        JumpToEnd(nowUs);
        return;
    }
    m_ended = m_endTold = false;
    m_seekTo = frame;
    m_session->RequestSeek(frame);
}

void TrackPlayer::TakeSeekResult(std::int64_t nowUs) {
    if (!m_seekTo) return;
    const std::optional<Chunk> first = m_session->TakeChunk();
    if (!first) {
        if (m_session->AtEnd()) JumpToEnd(nowUs);
        return;
    }
    m_seekTo.reset();
    m_history.Restart(m_facts->Format, first->StartFrame);
    m_history.Append(first->Samples);
    m_volume.Settle();
    m_base = m_sent = m_place = first->StartFrame;
    if (m_output) m_output->Drop(nowUs);
    m_lastToldMs.reset();
    m_tellAtUs = nowUs + kTellUs;
    m_scopeAtUs = nowUs;
}

void TrackPlayer::JumpToEnd(std::int64_t nowUs) {
    m_seekTo.reset();
    m_ended = true;
    m_endTold = false;
    m_closeAtUs = nowUs;
}

void TrackPlayer::SetVolume(int percent, std::int64_t nowUs) {
    const std::int32_t factor = VolumeRamp::FactorOf(percent);
    if (!m_output || m_sent == m_base) {
        m_volume.Set(factor);
        return;
    }
    const std::int64_t from =
        std::clamp(HeardFrame(nowUs) + FramesOfMs(kVolumeLeadMs), m_history.Begin(), m_sent);
    m_volume.Change(from, factor, FramesOfMs(kRampMs));
    m_output->Rewrite(Prepared(from, m_sent - from));
}

void TrackPlayer::SetVisibility(bool watched, std::int64_t nowUs) {
    if (watched && !m_watched) m_tellAtUs = nowUs;
    m_watched = watched;
}

std::vector<std::int16_t>& TrackPlayer::Prepared(std::int64_t frame, std::int64_t frames) {
    m_scratch.clear();
    for (std::int64_t done = 0; done < frames;) {
        const std::span<const std::int16_t> part = m_history.From(frame + done, frames - done);
        if (part.empty()) break;
        m_scratch.insert(m_scratch.end(), part.begin(), part.end());
        done += static_cast<std::int64_t>(part.size()) / m_facts->Format.Channels;
    }
    m_volume.Apply(frame, m_facts->Format.Channels, m_scratch);
    return m_scratch;
}

void TrackPlayer::Pump(std::int64_t nowUs) {
    if (!m_session) return;
    TakeFacts();
    if (!m_facts) return;
    TakeLength();
    SeekPending(nowUs);
    TakeSeekResult(nowUs);
    ManageOutput(nowUs);
    Feed(nowUs);
    NoticeEnd(nowUs);
    TellPosition(nowUs);
    FillScope(nowUs);
}

void TrackPlayer::TakeFacts() {
    if (m_facts) return;
    m_facts = m_session->TakeFacts();
    if (!m_facts) return;
    m_history.Restart(m_facts->Format, 0);
    if (!m_facts->Tags.Title.empty())
        m_streamName = Utf8(TextView(m_facts->Tags.Title).substr(0, 200));
    m_relay.Raise(m_stamp, TagEvent{m_facts->Tags});
    m_relay.Raise(m_stamp, StreamEvent{ClampToInteger(m_facts->BitrateKbps), m_facts->Format.RateHz,
                                       ClampToInteger(m_facts->Format.Channels)});
    if (m_facts->LengthFrames) SetLength(*m_facts->LengthFrames);
}

void TrackPlayer::TakeLength() {
    if (m_length) return;
    if (const std::optional<std::int64_t> length = m_session->TakeScannedLength())
        SetLength(*length);
}

void TrackPlayer::SetLength(std::int64_t frames) {
    m_length = frames;
    m_relay.Raise(m_stamp, LengthEvent{PositionMs(frames)});
}

void TrackPlayer::ManageOutput(std::int64_t nowUs) {
    if (m_output) m_output->Poll(nowUs);
    if (m_output && m_output->State() == OutputState::Lost) LoseOutput(nowUs);
    if (m_output && m_ended && nowUs >= m_closeAtUs) {
        m_output->Close(nowUs);
        m_output = nullptr;
    }
    if (m_output || m_held || m_ended || m_seekTo) return;
    m_output = m_outputs.Choose(m_mustSound, nowUs);
    if (!m_output) return;
    m_base = m_sent = m_place;
    m_output->Open(m_facts->Format, m_streamName, nowUs);
    m_tellAtUs = nowUs + kTellUs;
    m_scopeAtUs = nowUs;
}

void TrackPlayer::LoseOutput(std::int64_t nowUs) {
    // What was queued lies in the history still, so the next output goes on with it.
    m_place = std::clamp(HeardFrame(nowUs), m_history.Begin(), m_history.End());
    m_output->Close(nowUs);
    m_output = nullptr;
    m_outputs.NoteLost(nowUs);
}

void TrackPlayer::Feed(std::int64_t nowUs) {
    if (!m_output || m_output->State() != OutputState::Running || m_seekTo) return;
    const std::int64_t limit = HeardFrame(nowUs) + FramesOfMs(kAheadLimitMs);
    std::int64_t room = std::min(m_output->WritableFrames(nowUs), limit - m_sent);
    while (room > 0) {
        if (m_sent == m_history.End()) {
            const std::optional<Chunk> chunk = m_session->TakeChunk();
            if (!chunk) break;
            m_history.Append(chunk->Samples);
        }
        const std::int64_t frames = std::min(room, m_history.End() - m_sent);
        WriteFrames(frames, nowUs);
        room -= frames;
    }
}

void TrackPlayer::WriteFrames(std::int64_t frames, std::int64_t nowUs) {
    m_output->Write(Prepared(m_sent, frames), nowUs);
    m_sent += frames;
    m_mustSound = m_output->Sounds();
}

void TrackPlayer::NoticeEnd(std::int64_t nowUs) {
    if (m_ended) {
        TellEnd();
        return;
    }
    if (!IsSounding() || m_sent < m_history.End() || HeardFrame(nowUs) < m_sent) return;
    if (!m_session->AtEnd()) return;
    m_ended = true;
    m_closeAtUs = nowUs + kCloseUs;
    // The scan may still take its time; what was played to its end has a length all the same.
    if (!m_length) SetLength(m_sent);
    TellEnd();
}

void TrackPlayer::TellEnd() {
    if (m_endTold || m_held) return;
    if (!m_length) {
        if (!m_session->ScanFailed()) return;
        SetLength(m_sent);
    }
    m_endTold = true;
    m_relay.Raise(m_stamp, PositionEvent{PositionMs(*m_length)});
}

void TrackPlayer::TellPosition(std::int64_t nowUs) {
    if (!m_length || !IsSounding() || nowUs < m_tellAtUs - (m_watched ? 0 : kTellEarlyUs)) return;
    m_tellAtUs =
        m_watched ? std::max(m_tellAtUs + kTellUs, nowUs + kTellUs / 2) : nowUs + kTellUnwatchedUs;
    // `Length` itself is kept for the end.
    const Long ms =
        std::min<Long>(PositionMs(HeardFrame(nowUs)), std::max<Long>(0, PositionMs(*m_length) - 1));
    if (m_lastToldMs == ms) return;
    m_lastToldMs = ms;
    m_relay.Raise(m_stamp, PositionEvent{ms});
}

void TrackPlayer::FillScope(std::int64_t nowUs) {
    if (!IsSounding() || !m_ring.IsVisible()) return;
    const double pace = m_output->Pace();
    const std::int64_t heard = HeardFrame(nowUs);
    m_scopeAtUs = std::max(m_scopeAtUs, nowUs);
    while (m_scopeAtUs <= nowUs + (pace > 0 ? kScopeAheadUs : 0)) {
        const double ahead = static_cast<double>(m_scopeAtUs - nowUs) / 1e6 * pace;
        const std::int64_t middle = heard + static_cast<std::int64_t>(ahead);
        // What isn't decoded yet can wait until its moment.
        if (m_scopeAtUs > nowUs && middle + SampleFrame::kCount / 2 > m_history.End()) break;
        PutScopeFrame(middle, m_scopeAtUs);
        m_scopeAtUs += kScopeUs;
    }
}

void TrackPlayer::PutScopeFrame(std::int64_t middle, std::int64_t atUs) {
    SampleFrame frame;
    frame.RateHz = m_facts->Format.RateHz;
    frame.AtMs = atUs / 1000;
    const int channels = m_facts->Format.Channels;
    const std::int64_t first = middle - SampleFrame::kCount / 2;
    std::int64_t at = std::max(first, m_history.Begin());
    while (at < first + SampleFrame::kCount) {
        const std::span<const std::int16_t> part =
            m_history.From(at, first + SampleFrame::kCount - at);
        if (part.empty()) break;
        for (std::size_t i = 0; i + static_cast<std::size_t>(channels) <= part.size();
             i += static_cast<std::size_t>(channels), ++at) {
            const int sum = channels == 2 ? part[i] + part[i + 1] : 2 * part[i];
            frame.Samples[static_cast<std::size_t>(at - first)] =
                static_cast<float>(sum) / 65536.0F;
        }
    }
    m_relay.RaiseFrame(m_stamp, m_ring.Put(frame), atUs);
}

std::optional<std::int64_t> TrackPlayer::DueUs(std::int64_t nowUs) const {
    if (!m_session) return std::nullopt;
    std::optional<std::int64_t> due;
    const auto wants = [&due](std::optional<std::int64_t> atUs) {
        if (atUs && (!due || *atUs < *due)) due = atUs;
    };
    if (m_ended) {
        if (m_output) wants(m_closeAtUs);
        return due;
    }
    if (m_held) return std::nullopt;
    if (!m_output) {
        if (!m_seekTo) wants(m_outputs.DueUs());
        return due;
    }
    wants(m_output->DueUs());
    if (!IsSounding()) return due;
    if (m_length) wants(m_tellAtUs);
    if (m_ring.IsVisible()) wants(m_scopeAtUs);
    if (m_sent == m_history.End() && m_session->AtEnd()) {
        const std::int64_t left = m_sent - HeardFrame(nowUs);
        wants(nowUs + left * 1'000'000 / m_facts->Format.RateHz + 1000);
    }
    return due;
}
