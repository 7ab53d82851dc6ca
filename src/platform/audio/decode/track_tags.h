// The texts that a media file carries about itself.
#pragma once

#include "platform/text.h"

struct mpg123_handle_struct;

/// Empty where the file has none. Each at most 65,536 characters.
struct TrackTags {
    Text Title;
    Text Artist;
    Text Album;
    Text Year;
    Text Comment;
    Text Genre; ///< The text of an ID3v2 tag, or the number of an ID3v1 tag in decimal.
};

/// The tags that the decoder has met so far: ID3v2 before ID3v1, field by field. Of two ID3v2 texts
/// of one kind it keeps the last.
[[nodiscard]] TrackTags ReadTags(mpg123_handle_struct* decoder);
