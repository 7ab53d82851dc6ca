// Places keep their distance even after a late wake-up, and none is told twice.
#include "platform/audio/player/track_report.h"

#include <algorithm>
#include <limits>

namespace {

/// Places go along with whatever else wakes the thread, if that is early by no more than this. With
/// the server's requests that makes five a second.
constexpr std::int64_t kTellUs = 240'000, kTellEarlyUs = 80'000;
constexpr std::int64_t kTellInvisibleUs = 1'000'000, kTellInvisibleEarlyUs = 500'000;

Integer ClampToInteger(int number) {
    return static_cast<Integer>(std::clamp<int>(number, 0, std::numeric_limits<Integer>::max()));
}

} // namespace

void TrackReport::Start(const EventStamp& stamp) {
    m_stamp = stamp;
    ForgetPlace();
}

void TrackReport::SetVisibility(bool window, std::int64_t nowUs) {
    if (window && !m_windowVisible) m_tellAtUs = nowUs;
    m_windowVisible = window;
}

void TrackReport::TellFacts(const TrackFacts& facts) {
    m_rateHz = facts.Format.RateHz;
    m_relay.Raise(m_stamp, TagEvent{facts.Tags});
    m_relay.Raise(m_stamp, StreamEvent{ClampToInteger(facts.BitrateKbps), facts.Format.RateHz,
                                       ClampToInteger(facts.Format.Channels)});
}

void TrackReport::TellLength(std::int64_t frames) {
    m_relay.Raise(m_stamp, LengthEvent{MsOf(frames)});
}

void TrackReport::TellPlace(std::int64_t frame, std::int64_t lengthFrames, std::int64_t nowUs) {
    if (nowUs < m_tellAtUs - (m_windowVisible ? kTellEarlyUs : kTellInvisibleEarlyUs)) return;
    m_tellAtUs = nowUs + (m_windowVisible ? kTellUs : kTellInvisibleUs);
    // The length itself is kept for the end.
    const Long ms = std::min<Long>(MsOf(frame), std::max<Long>(0, MsOf(lengthFrames) - 1));
    if (m_lastToldMs == ms) return;
    m_lastToldMs = ms;
    m_relay.Raise(m_stamp, PositionEvent{ms});
}

void TrackReport::TellUnplayable() {
    m_relay.Raise(m_stamp, UnplayableEvent{});
}

void TrackReport::TellEnd(std::int64_t lengthFrames) {
    m_relay.Raise(m_stamp, PositionEvent{MsOf(lengthFrames)});
}

void TrackReport::DelayPlace(std::int64_t nowUs) {
    m_tellAtUs = nowUs + kTellUs;
}

Long TrackReport::MsOf(std::int64_t frame) const {
    const std::int64_t ms = MsOfFrames(frame, m_rateHz);
    return static_cast<Long>(std::clamp<std::int64_t>(ms, 0, std::numeric_limits<Long>::max()));
}
