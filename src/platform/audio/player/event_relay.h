// The way of the player's events from its thread to the loop's.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <variant>

#include "platform/audio/decode/track_tags.h"
#include "platform/loop.h"
#include "platform/player.h"

struct TagEvent {
    TrackTags Tags;
};
struct StreamEvent {
    Integer Bitrate = 0;
    Long SampleRate = 0;
    Integer Channels = 0;
};
struct LengthEvent {
    Long LengthMs = 0;
};
struct PositionEvent {
    Long PositionMs = 0;
};
struct UnplayableEvent {};
using PlayerEvent =
    std::variant<TagEvent, StreamEvent, LengthEvent, PositionEvent, UnplayableEvent>;

/// How old an event is: the number of its track, and of the last pause or seek before it.
struct EventStamp {
    int Track = 0;
    int Command = 0;
};

/// One task delivers one event; a position goes along with the next frame, where one is on its way,
/// so that the loop's thread needn't wake up for it. An event is dropped at its delivery if its
/// track is no longer the present one, and a position or frame of samples also if it was raised
/// before the last pause or seek.
class EventRelay : public std::enable_shared_from_this<EventRelay> {
public:
    explicit EventRelay(Loop& loop) : m_loop(loop) {}

    // The player's thread.

    /// Leaves an event for the loop and returns. A position that still waits is replaced by a newer
    /// one.
    void Raise(const EventStamp& stamp, PlayerEvent event);

    /// Frame number `frame` of the scope, to be shown when the clock (`NowUs`) comes to `atUs`.
    /// Frames come some time ahead, in the order of their moments, so that the player's thread
    /// needn't wake up for each.
    void RaiseFrame(const EventStamp& stamp, Long frame, std::int64_t atUs);

    // The loop's thread.

    /// Who is told from now on; null: nobody.
    void Attach(PlayerEvents* events) { m_events = events; }
    /// Which events are delivered from now on; others are dropped.
    void Expect(const EventStamp& stamp) { m_expected = stamp; }
    [[nodiscard]] const EventStamp& Expected() const { return m_expected; }

private:
    struct Waiting {
        EventStamp Stamp;
        PlayerEvent Event;
    };

    struct WaitingFrame {
        EventStamp Stamp;
        Long Frame = 0;
        std::int64_t AtUs = 0;
    };

    void DeliverOne();
    void DeliverFrame();
    [[nodiscard]] std::optional<Long> TakeDueFrame(std::optional<std::int64_t>& nextUs);
    void DeliverRiding();
    [[nodiscard]] bool IsWanted(const Waiting& waiting) const;

    Loop& m_loop;
    PlayerEvents* m_events = nullptr;
    EventStamp m_expected;
    std::mutex m_mutex;
    std::deque<Waiting> m_waiting;
    std::deque<WaitingFrame> m_frames;
    /// Whether a task is on its way that delivers frames, and leads to the next such task.
    bool m_framesRun = false;
    int m_riding = 0; ///< How many of `m_waiting` have no task, and go along with that one.
};
