// What keys and media controls ask of the track, by the procedures of the hand.
#pragma once

#include "comforts/context.h"
#include "comforts/list_way.h"

/// Holds a track that plays, or with `goOn` one that is held goes on.
void PauseTrack(ComfortContext& context);
void GoOnWithTrack(ComfortContext& context);

/// Starts the present entry, or goes on with a track that is held. Without an entry that can be
/// played nothing happens.
void PlayTrack(ComfortContext& context, ListWay& way);

/// Stops what is heard, or held.
void StopHeardTrack(ComfortContext& context);

/// By milliseconds from the place that is heard. Nothing happens in `Stopped`.
void SeekInTrack(ComfortContext& context, Long milliseconds);

/// To the next step of the volume, up or down.
void StepVolume(ComfortContext& context, int direction);
