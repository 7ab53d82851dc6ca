// Nothing here clears what an earlier track has left: each value is what was said last.
#include "playback/player_events.h"

#include "display/progress.h"
#include "display/ticker.h"

void PlayerHandlers::OnStreamInfo(Integer Bitrate, Long SampleRate, Integer) {
    m_velora.TrackBitrate = Bitrate;
    m_velora.TrackSampleRate = SampleRate;
    UpdateTicker(m_velora);
}

void PlayerHandlers::OnTagInfo(const Text& Title, const Text& Artist, const Text&, const Text&,
                               const Text&, const Text&) {
    m_velora.TrackTitle = Title;
    m_velora.TrackArtist = Artist;
}

void PlayerHandlers::OnTrackLength(Long Length) {
    m_velora.TrackLength = Length;
}

void PlayerHandlers::OnVisData(Long VisData) {
    m_velora.VFmp3scope.ShowVisData(VisData);
}

void PlayerHandlers::OnPosition(Long Position) {
    if (m_velora.PlayerState == PlayerState::Playing)
        UpdateProgress(m_velora, Position, m_velora.TrackLength);
}
