// Half of a pair without the other half counts as a character of its own.
#include "display/characters.h"

namespace {

bool IsPair(char16_t lead, char16_t trail) {
    return (lead & 0xFC00) == 0xD800 && (trail & 0xFC00) == 0xDC00;
}

} // namespace

std::size_t FirstCharacterLength(TextView text) {
    if (text.empty()) return 0;
    return text.size() > 1 && IsPair(text[0], text[1]) ? 2 : 1;
}

TextView WithoutFirstCharacter(TextView text) {
    return text.substr(FirstCharacterLength(text));
}

TextView WithoutLastCharacter(TextView text) {
    if (text.empty()) return text;
    const bool pair = text.size() > 1 && IsPair(text[text.size() - 2], text.back());
    return text.substr(0, text.size() - (pair ? 2 : 1));
}
