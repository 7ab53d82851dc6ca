// What a track tells of itself: its facts, its length, the places that are heard and its end.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/audio/decode/mpeg_decoder.h"
#include "platform/audio/player/event_relay.h"

/// Turns frames into the milliseconds of the player's events, and decides when a place is told.
/// Belongs to the player's thread.
class TrackReport {
public:
    explicit TrackReport(EventRelay& relay) : m_relay(relay) {}

    /// A new track, of whose facts nothing is known.
    void Start(const EventStamp& stamp);
    /// The number of the user's last pause or seek.
    void SetCommand(int command) { m_stamp.Command = command; }
    [[nodiscard]] const EventStamp& Stamp() const { return m_stamp; }
    /// An invisible window is told a place once a second instead of five times.
    void SetVisibility(bool window, std::int64_t nowUs);

    /// Tags and stream. The other events need these facts.
    void TellFacts(const TrackFacts& facts);
    void TellLength(std::int64_t frames);
    /// Tells that `frame` is heard, if it is time to. Of a track that has the length `lengthFrames`
    /// the very end isn't told here.
    void TellPlace(std::int64_t frame, std::int64_t lengthFrames, std::int64_t nowUs);
    /// The file can't be played.
    void TellUnplayable();
    /// The very end.
    void TellEnd(std::int64_t lengthFrames);

    /// The next place is told a usual interval from now.
    void DelayPlace(std::int64_t nowUs);
    /// The next place is told even if it is the one that was told last.
    void ForgetPlace() { m_lastToldMs.reset(); }
    /// When the next place is to be told.
    [[nodiscard]] std::int64_t PlaceDueUs() const { return m_tellAtUs; }

private:
    [[nodiscard]] Long MsOf(std::int64_t frame) const;

    EventRelay& m_relay;
    EventStamp m_stamp;
    int m_rateHz = 0;
    bool m_windowVisible = true;
    std::int64_t m_tellAtUs = 0;
    std::optional<Long> m_lastToldMs;
};
