// Which file a reader opens, and how.
#pragma once

#include <functional>
#include <vector>

#include "platform/files.h"
#include "platform/text.h"

/// Opens a file of the media list for reading, or gives an empty handle. Called on the reading
/// threads; may take any time.
using MediaOpener = std::function<FileHandle(const Text& path)>;

/// The file of one track.
struct TrackSource {
    Text Path;
    std::vector<Text> Directories; ///< Where a relative path is looked for, in this order.
    MediaOpener Open;
};
