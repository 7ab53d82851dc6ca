// What the player reports becomes state and display here.
#pragma once

#include "state/velora.h"

class PlayerHandlers : public PlayerEvents {
public:
    explicit PlayerHandlers(Velora& velora) : m_velora(velora) {}

    /// Keeps the numbers and puts the long line on the ticker.
    void OnStreamInfo(Integer Bitrate, Long SampleRate, Integer Channels) override;
    /// Keeps title and artist. The ticker shows them with the next `OnStreamInfo`.
    void OnTagInfo(const Text& Title, const Text& Artist, const Text& Album, const Text& Year,
                   const Text& Comment, const Text& Genre) override;
    void OnTrackLength(Long Length) override;
    /// Goes on to the scope in every state.
    void OnVisData(Long VisData) override;
    /// Counts only in `Playing`, so the display stands still while a track is held or sought in.
    void OnPosition(Long Position) override;

private:
    Velora& m_velora;
};
