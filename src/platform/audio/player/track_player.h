// Plays one track after the other: what is read goes to the output, and what is heard is told.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/audio/decode/track_session.h"
#include "platform/audio/output/output_finder.h"
#include "platform/audio/player/scope_feed.h"
#include "platform/audio/player/track_end.h"
#include "platform/audio/player/track_report.h"
#include "platform/audio/player/track_sound.h"
#include "platform/audio/player/track_state.h"

/// Belongs to the player's thread; the time comes from outside, in microseconds. After each command
/// and whenever anything happened `Pump` is called, and again when `DueUs` says. Without a track,
/// pause and seek do nothing; volume and visibility always stay for the next track.
class TrackPlayer {
public:
    /// All of them must stay as long as the player.
    TrackPlayer(OutputFinder& outputs, EventRelay& relay, SampleRing& ring);

    /// Plays what a reader brings into `session`, instead of the track before. `fileName` names the
    /// stream of a track without a title.
    void Start(std::shared_ptr<TrackSession> session, const EventStamp& stamp, std::string fileName,
               std::int64_t nowUs);
    void Stop(std::int64_t nowUs);
    /// `command`: the number of this command, for the events that follow.
    void TogglePause(int command, std::int64_t nowUs);
    /// Several seeks before a place is found add up.
    void Seek(Long seconds, int command, std::int64_t nowUs);
    void SeekBy(std::int64_t milliseconds, int command, std::int64_t nowUs);
    void SetVolume(int percent, std::int64_t nowUs);
    /// Whether the window can be seen.
    void SetVisibility(bool window, std::int64_t nowUs);

    void Pump(std::int64_t nowUs);
    /// When `Pump` has something to do although nothing happens; nothing while nothing plays.
    [[nodiscard]] std::optional<std::int64_t> DueUs(std::int64_t nowUs) const;

private:
    /// All that belongs to one track alone.
    struct Track {
        std::shared_ptr<TrackSession> Session;
        std::string StreamName;
        TrackStage Stage = TrackStage::Empty;
        bool Held = false;
        /// Where the user wants to go; the next `Pump` asks the reader for it.
        std::optional<std::int64_t> SeekToUs;
        std::int64_t SeekToFrame = 0; ///< `Seeking`: what the reader looks for.
        TrackEnd End;
    };

    [[nodiscard]] TrackState State() const;
    [[nodiscard]] std::int64_t GoalUs(std::int64_t nowUs) const;
    [[nodiscard]] std::optional<std::int64_t> EndDueUs(std::int64_t nowUs) const;
    void TakeFacts(std::int64_t nowUs);
    void TakeLength();
    void SetLength(std::int64_t frames);
    void AskForPlace(std::int64_t nowUs);
    void TakePlace(std::int64_t nowUs);
    void SeeToOutput(std::int64_t nowUs);
    void SeeToEnd(std::int64_t nowUs);
    void NoticeEnd(std::int64_t nowUs);
    void TellEnd();
    void ReachEnd(std::int64_t closeAtUs);

    OutputFinder& m_outputs;
    TrackReport m_report;
    ScopeFeed m_scope;
    TrackSound m_sound;
    Track m_track;
};
