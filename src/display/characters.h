// Cutting texts by characters. A character outside the basic plane takes two places of a text and
// is never cut in two.
#pragma once

#include <cstddef>

#include "platform/text.h"

/// How many places the first character takes: 2 for a surrogate pair, 0 in an empty text, else 1.
[[nodiscard]] std::size_t FirstCharacterLength(TextView text);

/// `text` without its first character; the empty text stays.
[[nodiscard]] TextView WithoutFirstCharacter(TextView text);

/// `text` without its last character; the empty text stays.
[[nodiscard]] TextView WithoutLastCharacter(TextView text);
