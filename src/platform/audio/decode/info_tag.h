// What an encoder wrote about the whole file into the frame before the first sound.
#pragma once

#include <cstdint>
#include <optional>

class MediaFile;

/// No MPEG frame is longer.
constexpr std::int64_t kLongestFrameBytes = 2881;

/// Read from a Xing, Info or VBRI tag; 0 for a number that isn't there.
struct InfoTag {
    std::int64_t Frames = 0; ///< MPEG frames.
    std::int64_t Bytes = 0;  ///< Of all of them.
    std::int64_t At = 0;     ///< Where in the file the tag's frame begins.
    bool IsVbri = false; ///< A kind that the decoder doesn't know: it plays the tag's frame, too.
};

/// The tag in the frame that begins at `framePosition`, the first that the decoder takes for sound,
/// or else in the nearest frame before it, at most `kLongestFrameBytes` away.
[[nodiscard]] std::optional<InfoTag> FindInfoTag(MediaFile& file, std::int64_t framePosition);
