// Seeking by a held button: while it is down it blinks and collects a distance, and the release
// moves the player once. The sound goes on meanwhile.
#pragma once

#include "state/velora.h"

/// Whether a press begins a seek: shift alone, and a track that plays. Any mouse button will do.
[[nodiscard]] bool StartsSeek(Integer Shift, PlayerState state);

/// Begins a seek backward or forward: `SeekOffset` is 0 again, and the button's timer runs.
void StartSeekBackward(Velora& velora);
void StartSeekForward(Velora& velora);

/// Ends it: the button shows, the track plays on from `SeekOffset` seconds further.
void EndSeekBackward(Velora& velora);
void EndSeekForward(Velora& velora);

/// Ends the blinking that a seek has left behind. A step that was under way when the seek began has
/// started its track meanwhile, so `PlayerState` no longer tells of the seek. Nothing happens while
/// `timer` is off.
void EndBlinking(PictureBox& button, Timer& timer);

/// A tick hides the button, the next one shows it and adds a step of 10 seconds. One that would
/// leave the range of an Integer is skipped.
void tmrSeekBackward_Timer(Velora& velora);
void tmrSeekForward_Timer(Velora& velora);
