// The media list: what can be played in this run. It only grows, and a bare name stands in it once.
#pragma once

#include "state/velora.h"

/// The kinds of file. Only the first three are ever played.
enum MediaType : Long {
    kNoMediaType = 0,
    kMp1Media = 1,
    kMp2Media = 2,
    kMp3Media = 3,
    kMpegVideoMedia = 4,
    kWavMedia = 5,
    kWmaMedia = 7,
    kWmvMedia = 8,
};

/// The extension that decides the kind of a file: the last three characters, dot or no dot, or
/// "mpeg" where the name ends in ".mpeg". A shorter name is its own extension.
[[nodiscard]] TextView MediaExtension(TextView fileName);

/// The kind of an extension in any case; 0 for one that isn't known.
[[nodiscard]] Long MediaTypeOf(TextView Extension);

/// The entry whose `File` equals `FileName` without regard to case, 0 if there is none.
[[nodiscard]] Integer FindMedia(Velora& velora, TextView FileName);

/// Fills the element behind the last one, whatever the kind of file. Its index, or 0 if the array
/// is full.
Integer AppendMedia(Velora& velora, Text path, Text file, Integer flag);

/// Adds the file to the list and gives its index, or that of the entry with the same name. Without
/// a `FileName` the user is asked for a file; the dialog opens in `Directory`. 0 if the list is
/// full, the user cancels or the kind isn't known; the first and the last of these are told by a
/// message. Whether the file exists isn't asked. `FileName` becomes the name of the file that is
/// meant, and `Directory` its directory unless the name is in the list already.
[[nodiscard]] Integer AddMedia(Velora& velora, Integer Flag, Text& Directory, Text& FileName);
