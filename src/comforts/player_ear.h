// Stands between the system and the player, passes on all that goes either way, and notes what it
// hears.
#pragma once

#include <functional>

#include "platform/loop.h"
#include "platform/player.h"

/// What was heard of the track that was started last.
struct TrackNotes {
    int Starts = 0;       ///< How often a track was started,
    int Turns = 0;        ///< and started or stopped.
    int Jumps = 0;        ///< How often a place was sought.
    int Told = 0;         ///< How often title, length or volume came.
    bool Loaded = false;  ///< A track was started and not stopped.
    bool Held = false;    ///< It is paused.
    bool AtEnd = false;   ///< It was played to its end.
    bool IsHeard = false; ///< It has told a place.
    Text Title, Artist, Album;
    Long LengthMs = 0;          ///< 0 while it isn't known.
    Long PlaceMs = 0;           ///< As told last,
    std::int64_t PlaceAtMs = 0; ///< and when, by the loop's clock.
    Integer VolumePercent = 100;
};

/// The place that is heard at `nowMs`, a moment of the loop's clock. It goes on for a second and a
/// half at most without being told anew, and never beyond the end.
[[nodiscard]] Long PlaceAt(const TrackNotes& notes, std::int64_t nowMs);

/// A player to the system, a listener to the player.
class PlayerEar : public Player, public PlayerEvents {
public:
    PlayerEar(Player& player, Loop& loop) : m_player(player), m_loop(loop) {}

    /// Who is told of the events after it. Called before the first.
    void Attach(PlayerEvents& events) { m_events = &events; }
    [[nodiscard]] const TrackNotes& Notes() const { return m_notes; }

    /// Called when a track was played to its end, before anybody else hears of that. True keeps
    /// that last place from the others.
    std::function<bool()> Ended;
    /// Called when a track can't be played.
    std::function<void()> Unplayable;

    void LookIn(const std::vector<Text>& directories) override { m_player.LookIn(directories); }
    void TrackFile(const Text& path) override { m_player.TrackFile(path); }
    void Play() override;
    void Stop() override;
    void TogglePause() override;
    void Seek(Long seconds) override;
    void SeekBy(Long milliseconds) override;
    void SetVolume(Integer& percent) override;

    void OnStreamInfo(Integer Bitrate, Long SampleRate, Integer Channels) override;
    void OnTagInfo(const Text& Title, const Text& Artist, const Text& Album, const Text& Year,
                   const Text& Comment, const Text& Genre) override;
    void OnTrackLength(Long Length) override;
    void OnVisData(Long VisData) override { m_events->OnVisData(VisData); }
    void OnPosition(Long Position) override;
    void OnUnplayable() override;

private:
    void NotePlace(std::int64_t placeMs);
    void NoteJump(std::int64_t milliseconds);

    Player& m_player;
    Loop& m_loop;
    PlayerEvents* m_events = nullptr;
    TrackNotes m_notes;
};
