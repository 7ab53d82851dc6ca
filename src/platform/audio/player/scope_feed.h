// The scope's frames of samples, cut out of what is played.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/audio/player/event_relay.h"
#include "platform/audio/player/track_sound.h"
#include "platform/audio/scope/sample_ring.h"

/// Thirty frames a second, while the scope can be seen. They are given ahead of their moments, so
/// that they don't wake the player's thread. Belongs to that thread.
class ScopeFeed {
public:
    ScopeFeed(EventRelay& relay, SampleRing& ring) : m_relay(relay), m_ring(ring) {}

    /// The place that is heard has changed: the next frame is given at once.
    void Restart(std::int64_t nowUs) { m_atUs = nowUs; }
    /// Gives the frames of the next moments. Only while `sound` plays.
    void Fill(const TrackSound& sound, const EventStamp& stamp, std::int64_t nowUs);
    /// When `Fill` has something to do; nothing while the scope can't be seen.
    [[nodiscard]] std::optional<std::int64_t> DueUs() const;

private:
    [[nodiscard]] Long Put(const TrackSound& sound, std::int64_t middle);

    EventRelay& m_relay;
    SampleRing& m_ring;
    std::int64_t m_atUs = 0; ///< The moment of the next frame.
};
