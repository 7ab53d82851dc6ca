// The threads that read a media file: one that decodes it and, where its length has to be found, a
// second.
#pragma once

#include <memory>
#include <vector>

#include "platform/audio/audio_player.h"
#include "platform/audio/track_session.h"

/// Which file, and how to get at it.
struct TrackSource {
    Text Path;
    std::vector<Text> Directories; ///< Where a relative path is looked for, in this order.
    MediaOpener Open;
};

/// Starts reading into `session` until that is told to quit. A file that can't be opened or holds
/// no sound leaves the session without facts.
void StartReading(TrackSource source, std::shared_ptr<TrackSession> session);
