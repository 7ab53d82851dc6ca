// A way to a name in the media list that doesn't walk the list: long playlists look up every line.
#pragma once

#include <cstdint>
#include <unordered_map>

#include "platform/numbers.h"

/// The entries 1 to `Indexed` of the media list by a hash of their lower-case names. It never holds
/// the names themselves, since they can be as long as a file.
struct MediaIndex {
    std::unordered_multimap<std::uint64_t, Integer> Places;
    Integer Indexed = 0;
};
