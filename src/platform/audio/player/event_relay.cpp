// The event leaves the queue before its handler runs, so a handler that waits doesn't hold up or
// repeat any.
#include "platform/audio/player/event_relay.h"

#include <algorithm>
#include <utility>

#include "platform/audio/output/audio_clock.h"
#include "platform/audio/player/overloaded.h"

namespace {

bool IsPassing(const PlayerEvent& event) {
    return std::holds_alternative<PositionEvent>(event);
}

// The toolkit's timers count in milliseconds.
constexpr std::int64_t kEarlyUs = 1000;

void Tell(PlayerEvents& events, const PlayerEvent& event) {
    std::visit(Overloaded{
                   [&](const TagEvent& told) {
                       const TrackTags& tags = told.Tags;
                       events.OnTagInfo(tags.Title, tags.Artist, tags.Album, tags.Year,
                                        tags.Comment, tags.Genre);
                   },
                   [&](const StreamEvent& told) {
                       events.OnStreamInfo(told.Bitrate, told.SampleRate, told.Channels);
                   },
                   [&](const LengthEvent& told) { events.OnTrackLength(told.LengthMs); },
                   [&](const PositionEvent& told) { events.OnPosition(told.PositionMs); },
                   [&](const UnplayableEvent&) { events.OnUnplayable(); },
               },
               event);
}

} // namespace

void EventRelay::Raise(const EventStamp& stamp, PlayerEvent event) {
    {
        const std::lock_guard lock(m_mutex);
        if (IsPassing(event)) {
            const auto same =
                std::find_if(m_waiting.begin(), m_waiting.end(), [&](const Waiting& waiting) {
                    return waiting.Stamp.Track == stamp.Track &&
                           waiting.Event.index() == event.index();
                });
            if (same != m_waiting.end()) {
                *same = {stamp, std::move(event)};
                return;
            }
        }
        const bool rides = m_framesRun && IsPassing(event);
        m_waiting.push_back({stamp, std::move(event)});
        if (rides) {
            ++m_riding;
            return;
        }
    }
    m_loop.Post([relay = shared_from_this()] { relay->DeliverOne(); });
}

void EventRelay::RaiseFrame(const EventStamp& stamp, Long frame, std::int64_t atUs) {
    {
        const std::lock_guard lock(m_mutex);
        m_frames.push_back({stamp, frame, atUs});
        if (std::exchange(m_framesRun, true)) return;
    }
    m_loop.Post([relay = shared_from_this()] { relay->DeliverFrame(); });
}

std::optional<Long> EventRelay::TakeDueFrame(std::optional<std::int64_t>& nextUs) {
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_frames, [this](const WaitingFrame& waiting) {
        return waiting.Stamp.Track != m_expected.Track ||
               waiting.Stamp.Command != m_expected.Command;
    });
    // Of several that are due only the last is still of use.
    std::optional<Long> due;
    const std::int64_t nowUs = NowUs();
    while (!m_frames.empty() && m_frames.front().AtUs <= nowUs + kEarlyUs) {
        due = m_frames.front().Frame;
        m_frames.pop_front();
    }
    m_framesRun = !m_frames.empty();
    if (m_framesRun) nextUs = m_frames.front().AtUs - nowUs;
    return due;
}

void EventRelay::DeliverRiding() {
    int riding = 0;
    {
        const std::lock_guard lock(m_mutex);
        riding = std::exchange(m_riding, 0);
    }
    for (; riding > 0; --riding)
        m_loop.Post([relay = shared_from_this()] { relay->DeliverOne(); });
}

void EventRelay::DeliverFrame() {
    std::optional<std::int64_t> nextUs;
    const std::optional<Long> due = TakeDueFrame(nextUs);
    // Before the handler, which may wait. Nobody rides once no frame is on its way.
    DeliverRiding();
    if (nextUs)
        m_loop.PostIn((*nextUs + 999) / 1000,
                      [relay = shared_from_this()] { relay->DeliverFrame(); });
    if (due && m_events) m_events->OnVisData(*due);
}

bool EventRelay::IsWanted(const Waiting& waiting) const {
    if (!m_events || waiting.Stamp.Track != m_expected.Track) return false;
    return !IsPassing(waiting.Event) || waiting.Stamp.Command == m_expected.Command;
}

void EventRelay::DeliverOne() {
    std::optional<Waiting> first;
    {
        const std::lock_guard lock(m_mutex);
        if (m_waiting.empty()) return;
        first = std::move(m_waiting.front());
        m_waiting.pop_front();
    }
    if (IsWanted(*first)) Tell(*m_events, first->Event);
}
