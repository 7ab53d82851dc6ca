// What all comforts share.
#pragma once

#include "comforts/command_queue.h"
#include "comforts/player_ear.h"
#include "comforts/settings.h"
#include "state/velora.h"

/// The system, the ear at its player, and what the settings say now.
struct ComfortContext {
    Velora& State;
    PlayerEar& Ear;
    ComfortSettings Settings;
    CommandQueue Queue;
};

/// The user holds a seek button: what is asked of the track meanwhile is let be.
[[nodiscard]] inline bool IsSeeking(const Velora& velora) {
    return velora.PlayerState == PlayerState::SeekingForward ||
           velora.PlayerState == PlayerState::SeekingBackward;
}

/// The last piece of a track: the display has stopped, the sound hasn't.
[[nodiscard]] inline bool IsInTail(const ComfortContext& context) {
    const TrackNotes& notes = context.Ear.Notes();
    return context.State.PlayerState == PlayerState::Stopped && notes.Loaded && !notes.AtEnd;
}
