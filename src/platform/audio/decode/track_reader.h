// The threads that read a media file: one that decodes it and, where its length has to be found, a
// second.
#pragma once

#include <memory>

#include "platform/audio/decode/track_session.h"
#include "platform/audio/decode/track_source.h"

/// Starts to read into `session`, until that is told to quit. A relative path that isn't in any of
/// the directories is opened as it is. A file that can't be opened or holds no sound leaves the
/// session without facts.
void StartReading(TrackSource source, std::shared_ptr<TrackSession> session);
