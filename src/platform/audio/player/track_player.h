// Playing one track: what is read goes to the output, and what is heard is told.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/audio/decode/track_session.h"
#include "platform/audio/output/sound_output.h"
#include "platform/audio/output/volume_ramp.h"
#include "platform/audio/player/event_relay.h"
#include "platform/audio/player/play_history.h"
#include "platform/audio/scope/sample_ring.h"

/// Belongs to the player's thread; the time comes from outside, in microseconds. After each command
/// and whenever anything happened `Pump` is called, and again when `DueUs` says.
class TrackPlayer {
public:
    TrackPlayer(OutputChooser& outputs, EventRelay& relay, SampleRing& ring);

    /// Plays what a reader brings into `session`. `fileName` names the stream of a track without a
    /// title.
    void Start(std::shared_ptr<TrackSession> session, const EventStamp& stamp, std::string fileName,
               std::int64_t nowUs);
    void Stop(std::int64_t nowUs);
    void TogglePause(int command, std::int64_t nowUs);
    void Seek(Long seconds, int command, std::int64_t nowUs);
    void SetVolume(int percent, std::int64_t nowUs);
    /// Whether the window can be seen. Unseen, the position is told once a second instead of five
    /// times.
    void SetVisibility(bool watched, std::int64_t nowUs);

    void Pump(std::int64_t nowUs);
    /// When `Pump` has something to do although nothing happens; nothing while nothing plays.
    [[nodiscard]] std::optional<std::int64_t> DueUs(std::int64_t nowUs) const;

private:
    [[nodiscard]] bool IsSounding() const;
    [[nodiscard]] std::int64_t HeardFrame(std::int64_t nowUs) const;
    [[nodiscard]] std::int64_t FramesOfMs(std::int64_t ms) const;
    [[nodiscard]] Long PositionMs(std::int64_t frame) const;
    void TakeFacts();
    void TakeLength();
    void SetLength(std::int64_t frames);
    void SeekPending(std::int64_t nowUs);
    void TakeSeekResult(std::int64_t nowUs);
    void ManageOutput(std::int64_t nowUs);
    void LoseOutput(std::int64_t nowUs);
    void Feed(std::int64_t nowUs);
    void WriteFrames(std::int64_t frames, std::int64_t nowUs);
    std::vector<std::int16_t>& Prepared(std::int64_t frame, std::int64_t frames);
    void NoticeEnd(std::int64_t nowUs);
    void JumpToEnd(std::int64_t nowUs);
    void TellPosition(std::int64_t nowUs);
    void TellEnd();
    void FillScope(std::int64_t nowUs);
    void PutScopeFrame(std::int64_t middle, std::int64_t atUs);

    OutputChooser& m_outputs;
    EventRelay& m_relay;
    SampleRing& m_ring;

    std::shared_ptr<TrackSession> m_session;
    EventStamp m_stamp;
    std::string m_streamName;
    std::optional<TrackFacts> m_facts;
    std::optional<std::int64_t> m_length; ///< In frames.
    bool m_watched = true;
    bool m_held = false;
    bool m_ended = false;
    bool m_endTold = false;

    SoundOutput* m_output = nullptr; ///< The null pointer while none is open.
    bool m_mustSound = false;        ///< Some of it was heard: it waits for a server that is gone.
    std::int64_t m_base = 0;         ///< The track's frame that is the output's frame 0.
    std::int64_t m_sent = 0;         ///< The track's frame behind the last one written.
    std::int64_t m_place = 0;        ///< What is heard while no output is open.
    PlayHistory m_history;
    VolumeRamp m_volume;
    std::vector<std::int16_t> m_scratch;

    std::optional<std::int64_t> m_seekToUs; ///< Asked for before the facts were known.
    std::optional<std::int64_t> m_seekTo;   ///< The frame that the reader is looking for.

    std::int64_t m_tellAtUs = 0;
    std::int64_t m_scopeAtUs = 0; ///< The moment of the next frame for the scope.
    std::int64_t m_closeAtUs = 0; ///< When the output of an ended track is let go.
    std::optional<Long> m_lastToldMs;
};
