// The player: what the system asks of it, and the events with which it talks back.
#pragma once

#include <vector>

#include "platform/numbers.h"
#include "platform/text.h"

/// What a player reports. Each call comes on the loop's thread, from the loop, never from inside
/// one of the player's operations. For a track the order is: `OnTagInfo`, `OnStreamInfo`,
/// `OnTrackLength`, each once, then `OnPosition` about five times a second, or once while the
/// window isn't visible; a file that can't be played raises `OnUnplayable` alone. Events of a track
/// that has been stopped don't arrive any more.
class PlayerEvents {
public:
    virtual ~PlayerEvents() = default;

    /// `Bitrate` in kbit/s (of a variable rate the average that the file's tag gives, else the
    /// first frame's), `SampleRate` in Hz. `Channels`, 1 or 2, is used by nobody.
    virtual void OnStreamInfo(Integer Bitrate, Long SampleRate, Integer Channels) = 0;

    /// The file's tags, ID3v2 before ID3v1 field by field, empty where it has none.
    virtual void OnTagInfo(const Text& Title, const Text& Artist, const Text& Album,
                           const Text& Year, const Text& Comment, const Text& Genre) = 0;

    /// The exact length of the track in milliseconds.
    virtual void OnTrackLength(Long Length) = 0;

    /// `VisData` names a frame of samples in the ring that player and scope share. About 30 times a
    /// second, and only while the scope is visible.
    virtual void OnVisData(Long VisData) = 0;

    /// The place that is heard, in milliseconds. `Length` itself comes last, when a track has
    /// played to its end; the track stays loaded then.
    virtual void OnPosition(Long Position) = 0;

    /// The file can't be played, and nothing else is raised for it. Nobody needs to listen.
    virtual void OnUnplayable() {}
};

/// Plays one file at a time. No operation waits for a file, a sound server or another thread, and
/// none reports a failure by itself: what can't be played tells so by an event.
class Player {
public:
    virtual ~Player() = default;

    /// The directories in which the player looks for a file whose path is relative, in this order.
    /// Called before `TrackFile`.
    virtual void LookIn(const std::vector<Text>& directories) = 0;

    /// The path of the next file to play, as the media list holds it. Written after `Stop`, before
    /// `Play`.
    virtual void TrackFile(const Text& path) = 0;

    /// Starts the file of `TrackFile` from its beginning and returns at once.
    virtual void Play() = 0;

    /// Ends playing. Harmless when nothing plays.
    virtual void Stop() = 0;

    /// Holds the track, or goes on from the same place if it is held.
    virtual void TogglePause() = 0;

    /// Moves the playing place by `seconds` from the place that is heard, clamped to the track. 0
    /// does nothing.
    virtual void Seek(Long seconds) = 0;

    /// The same by milliseconds.
    virtual void SeekBy(Long milliseconds) = 0;

    /// The amplitude in percent, 0 to 100; other values are clamped. It lasts over tracks. Starts
    /// at 100.
    virtual void SetVolume(Integer& percent) = 0;
};
