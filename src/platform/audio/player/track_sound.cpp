// Everything follows from two places in the track, the frame sent last and the frame heard now: a
// seek, a pause, a change of volume or of output only moves what lies between them.
#include "platform/audio/player/track_sound.h"

#include <algorithm>

namespace {

/// How far ahead of what is heard a change of the volume begins, so that it reaches the server in
/// time.
constexpr int kVolumeLeadMs = 20;
constexpr int kRampMs = 10;
/// Never more than this ahead of what is heard, whatever a server asks for: the history has to hold
/// it.
constexpr int kAheadLimitMs = 4000;

} // namespace

void TrackSound::Stop(std::int64_t nowUs) {
    Close(nowUs);
    m_wasAudible = false;
    m_volume.Settle();
}

void TrackSound::Restart(const SoundFormat& format, std::int64_t frame, std::int64_t nowUs) {
    m_format = format;
    m_history.Restart(format, frame);
    m_volume.Settle();
    m_base = m_sent = frame;
    if (m_output) m_output->Drop(nowUs);
}

void TrackSound::Open(SoundOutput& output, const std::string& title, std::int64_t nowUs) {
    m_output = &output;
    m_sent = m_base;
    m_output->Open(m_format, title, nowUs);
}

void TrackSound::Close(std::int64_t nowUs) {
    if (m_output) m_output->Close(nowUs);
    m_output = nullptr;
}

void TrackSound::CloseLost(std::int64_t nowUs) {
    // What was queued lies in the history still, so the next output goes on with it.
    m_base = std::clamp(Heard(nowUs), m_history.First(), m_history.End());
    Close(nowUs);
}

void TrackSound::Poll(std::int64_t nowUs) {
    if (m_output) m_output->Poll(nowUs);
}

void TrackSound::Hold(bool held, std::int64_t nowUs) {
    if (m_output) m_output->Hold(held, nowUs);
}

OutputState TrackSound::State() const {
    return m_output ? m_output->State() : OutputState::Closed;
}

std::optional<std::int64_t> TrackSound::DueUs() const {
    return m_output ? m_output->DueUs() : std::nullopt;
}

void TrackSound::Feed(TrackSession& session, std::int64_t nowUs) {
    const std::int64_t limit = Heard(nowUs) + FramesOfMs(kAheadLimitMs);
    std::int64_t room = std::min(m_output->WritableFrames(nowUs), limit - m_sent);
    while (room > 0) {
        if (IsAllSent()) {
            const std::optional<Chunk> chunk = session.TakeChunk();
            if (!chunk) break;
            Append(chunk->Samples);
        }
        const std::int64_t frames = std::min(room, m_history.End() - m_sent);
        m_output->Write(WithVolume(m_sent, frames), nowUs);
        m_wasAudible = m_output->Sounds();
        m_sent += frames;
        room -= frames;
    }
}

void TrackSound::SetVolume(int percent, std::int64_t nowUs) {
    const std::int32_t factor = VolumeRamp::FactorOf(percent);
    if (!m_output || m_sent == m_base) {
        m_volume.Set(factor);
        return;
    }
    const std::int64_t from =
        std::clamp(Heard(nowUs) + FramesOfMs(kVolumeLeadMs), m_history.First(), m_sent);
    m_volume.Change(from, factor, FramesOfMs(kRampMs));
    m_output->Rewrite(WithVolume(from, m_sent - from));
}

std::int64_t TrackSound::Heard(std::int64_t nowUs) const {
    return m_base + (m_output ? m_output->HeardFrames(nowUs) : 0);
}

std::int64_t TrackSound::LeftUs(std::int64_t nowUs) const {
    return (m_sent - Heard(nowUs)) * 1'000'000 / m_format.RateHz;
}

std::int64_t TrackSound::FramesOfMs(std::int64_t ms) const {
    return ms * m_format.RateHz / 1000;
}

std::span<const std::int16_t> TrackSound::WithVolume(std::int64_t frame, std::int64_t frames) {
    m_scratch.clear();
    for (std::int64_t done = 0; done < frames;) {
        const std::span<const std::int16_t> part = m_history.From(frame + done, frames - done);
        if (part.empty()) break;
        m_scratch.insert(m_scratch.end(), part.begin(), part.end());
        done += static_cast<std::int64_t>(part.size()) / m_format.Channels;
    }
    m_volume.Apply(frame, m_format.Channels, m_scratch);
    return m_scratch;
}
