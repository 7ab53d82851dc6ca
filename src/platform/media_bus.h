// The desktop's media controls: what they are told of the player, and what they ask of it. The
// interface behind is the one that desktops call MPRIS 2, `org.mpris.MediaPlayer2`.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "platform/numbers.h"
#include "platform/text.h"

/// What the desktop shows of the player's state.
enum class MediaStatus { Playing, Paused, Stopped };

/// What the desktop is told of the player, but for the place in the track.
struct MediaFacts {
    MediaStatus Status = MediaStatus::Stopped;
    bool Repeat = false, Shuffle = false;
    Integer Track =
        0; ///< The entry started last, 0 before the first; then the next five are empty.
    Text Title, Artist, Album;
    std::string Address;         ///< Of the file, as a URI.
    Long LengthMs = 0;           ///< 0 while it isn't known.
    Integer VolumePercent = 100; ///< As it was sent to the player.
    bool CanStep = false;        ///< There is a next entry, and one before.
    bool CanPlay = false;        ///< There is something to play, and to hold.
    bool CanSeek = false;

    bool operator==(const MediaFacts&) const = default;
};

/// The properties that change.
enum class MediaProperty {
    PlaybackStatus,
    LoopStatus,
    Shuffle,
    Metadata,
    Volume,
    CanGoNext,
    CanGoPrevious,
    CanPlay,
    CanPause,
    CanSeek,
};

/// How a request was taken.
enum class MediaAnswer {
    Done,
    Invalid,      ///< What was given means nothing here.
    NotSupported, ///< It means something that the player doesn't do.
    Full,         ///< There is no room for it.
};

/// What the desktop asks for. Each call comes on the loop's thread and returns soon: what takes
/// time is done later, in the order of the requests.
class MediaRequests {
public:
    virtual ~MediaRequests() = default;
    virtual void OnRaise() = 0;     ///< The window to the front.
    virtual void OnQuit() = 0;      ///< The end of the program.
    virtual void OnNext() = 0;      ///< A step, as by the hand; also from a standstill.
    virtual void OnPrevious() = 0;  ///< The same backwards.
    virtual void OnPause() = 0;     ///< Holds what plays; else nothing.
    virtual void OnPlayPause() = 0; ///< Holds what plays; else as `OnPlay`.
    virtual void OnStop() = 0;      ///< Stops what plays or is held; else nothing.
    /// Goes on with what is held, or starts the present entry, or the first; what plays, plays on.
    virtual void OnPlay() = 0;
    /// By `distanceUs` from the place that is heard.
    virtual void OnSeek(std::int64_t distanceUs) = 0;
    /// To a place of entry `track`, if that is the present one.
    virtual void OnSetPosition(Integer track, std::int64_t placeUs) = 0;
    /// Enters the file, or the lines of the playlist, and starts the first.
    [[nodiscard]] virtual MediaAnswer OnOpenUri(const std::string& address) = 0;
    virtual void OnRepeat(bool repeat) = 0;   ///< For this run.
    virtual void OnShuffle(bool shuffle) = 0; ///< For this run.
    /// 1 is full; what lies outside 0 to 1 counts as the nearer end.
    [[nodiscard]] virtual MediaAnswer OnVolume(double volume) = 0;
    /// As they are now; what the desktop wasn't told yet is told first.
    [[nodiscard]] virtual const MediaFacts& Facts() = 0;
    /// The place in the track, 0 where nothing plays or is held.
    [[nodiscard]] virtual std::int64_t PositionUs() const = 0;
};

/// The player's appearance on the bus.
class MediaBus {
public:
    virtual ~MediaBus() = default;
    /// Appears on the bus, and passes on to `requests` what is asked there. Nothing happens without
    /// a bus.
    virtual void Appear(MediaRequests& requests) = 0;
    virtual void Disappear() = 0; ///< Nothing happens if it isn't there.
    /// Tells that these properties have changed, to what `MediaRequests::Facts` has now.
    virtual void TellChanged(std::span<const MediaProperty> changed) = 0;
    /// Tells that the place has jumped.
    virtual void TellSeeked(std::int64_t placeUs) = 0;
};
