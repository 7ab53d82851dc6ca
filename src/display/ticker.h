// The text that runs through the title label. The label's caption is all the state that there is:
// scrolling turns it round by a character.
#pragma once

#include "state/velora.h"

/// What the line tells of the track that plays.
struct PlayingTrack {
    ::PlayerState State = ::PlayerState::Stopped;
    TextView Title, Artist; ///< Used only if neither is empty.
    TextView File;          ///< The name of the file that plays.
    Integer Bitrate = 0;    ///< Kilobits a second.
    Long SampleRate = 0;    ///< Hertz.
};

/// The line for the track that plays; empty in every state but `Playing`.
[[nodiscard]] Text TickerLine(const PlayingTrack& track);

/// Puts the line of the current track on the label, from its beginning.
void UpdateTicker(Velora& velora);

/// Moves the title by one whole character. An empty title stays.
void tmrScrollFiletitle_Timer(Velora& velora);
