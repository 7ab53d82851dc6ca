// The notes are made before a call goes on: who hears of it may look at them.
#include "comforts/player_ear.h"

#include <algorithm>

namespace {

// A minimised window is told a place once a second.
constexpr std::int64_t kLongestGuessMs = 1500;

} // namespace

Long PlaceAt(const TrackNotes& notes, std::int64_t nowMs) {
    if (!notes.Loaded || !notes.IsHeard || notes.Held || notes.AtEnd) return notes.PlaceMs;
    const std::int64_t passedMs =
        std::clamp<std::int64_t>(nowMs - notes.PlaceAtMs, 0, kLongestGuessMs);
    const std::int64_t placeMs = notes.PlaceMs + passedMs;
    return static_cast<Long>(notes.LengthMs > 0 ? std::min<std::int64_t>(placeMs, notes.LengthMs)
                                                : placeMs);
}

void PlayerEar::NotePlace(std::int64_t placeMs) {
    const std::int64_t lastMs =
        m_notes.LengthMs > 0 ? m_notes.LengthMs : std::numeric_limits<Long>::max();
    m_notes.PlaceMs = static_cast<Long>(std::clamp<std::int64_t>(placeMs, 0, lastMs));
    m_notes.PlaceAtMs = m_loop.NowMs();
}

void PlayerEar::NoteJump(std::int64_t milliseconds) {
    if (!m_notes.Loaded || milliseconds == 0) return;
    NotePlace(PlaceAt(m_notes, m_loop.NowMs()) + milliseconds);
    m_notes.AtEnd = false;
    ++m_notes.Jumps;
}

void PlayerEar::Play() {
    TrackNotes fresh;
    fresh.Starts = m_notes.Starts + 1;
    fresh.Turns = m_notes.Turns + 1;
    fresh.Jumps = m_notes.Jumps;
    fresh.Told = m_notes.Told + 1;
    fresh.Loaded = true;
    fresh.VolumePercent = m_notes.VolumePercent;
    m_notes = fresh;
    m_player.Play();
}

void PlayerEar::Stop() {
    ++m_notes.Turns;
    m_notes.Loaded = m_notes.Held = false;
    m_notes.PlaceMs = 0;
    m_player.Stop();
}

void PlayerEar::TogglePause() {
    if (m_notes.Loaded) {
        NotePlace(PlaceAt(m_notes, m_loop.NowMs()));
        m_notes.Held = !m_notes.Held;
    }
    m_player.TogglePause();
}

void PlayerEar::Seek(Long seconds) {
    NoteJump(std::int64_t{seconds} * 1000);
    m_player.Seek(seconds);
}

void PlayerEar::SeekBy(Long milliseconds) {
    NoteJump(milliseconds);
    m_player.SeekBy(milliseconds);
}

void PlayerEar::SetVolume(Integer& percent) {
    m_notes.VolumePercent = std::clamp<Integer>(percent, 0, 100);
    ++m_notes.Told;
    m_player.SetVolume(percent);
}

void PlayerEar::OnStreamInfo(Integer Bitrate, Long SampleRate, Integer Channels) {
    m_events->OnStreamInfo(Bitrate, SampleRate, Channels);
}

void PlayerEar::OnTagInfo(const Text& Title, const Text& Artist, const Text& Album,
                          const Text& Year, const Text& Comment, const Text& Genre) {
    m_notes.Title = Title;
    m_notes.Artist = Artist;
    m_notes.Album = Album;
    ++m_notes.Told;
    m_events->OnTagInfo(Title, Artist, Album, Year, Comment, Genre);
}

void PlayerEar::OnTrackLength(Long Length) {
    m_notes.LengthMs = Length;
    ++m_notes.Told;
    m_events->OnTrackLength(Length);
}

void PlayerEar::OnPosition(Long Position) {
    NotePlace(Position);
    m_notes.IsHeard = true;
    m_notes.AtEnd = m_notes.Loaded && Position >= m_notes.LengthMs;
    if (m_notes.AtEnd && Ended && Ended()) return;
    m_events->OnPosition(Position);
}

void PlayerEar::OnUnplayable() {
    m_notes.AtEnd = true;
    m_events->OnUnplayable();
    if (Unplayable) Unplayable();
}
