// What the track that is played needs at this moment.
#pragma once

#include "platform/audio/output/sound_output.h"

/// How far the reader and the player have come with a track.
enum class TrackStage {
    Empty,   ///< There is no track.
    Reading, ///< The reader hasn't told yet what the file is.
    Ready,   ///< Samples come, or are there.
    Seeking, ///< The reader looks for another place in the file.
    Ended,   ///< All was heard, or the user went to the end. A seek can lead back from here.
};

/// The one state of a moment. The names with `Held` are the same moments while the track is paused.
enum class TrackState {
    Empty,   ///< Nothing to do.
    Reading, ///< Nothing to do until the reader tells something.
    Lost,    ///< The output is gone: it is closed, and the place that was heard is kept.

    Seeking, ///< Nothing is sent until the reader has found the place.
    SeekingHeld,

    Finding,     ///< No output is open: the next one is looked for.
    FindingHeld, ///< No output is looked for until the user goes on.

    Opening,     ///< The output takes nothing yet. When that takes too long the clock stands in.
    OpeningHeld, ///< It will come up held.

    Playing, ///< Samples are sent, and places, the scope's frames and the end are told.
    Held,    ///< Samples are sent, as far as there is room, and nothing is told.

    Ended,     ///< The end is told, once, and the output is closed.
    EndedHeld, ///< The output is closed; the end is told when the user goes on.
};

/// `held`: whether the user has paused the track. `output`: `Closed` if there is none.
[[nodiscard]] TrackState StateOf(TrackStage stage, bool held, OutputState output);
