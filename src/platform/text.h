// Text as the system counts it: its ways in and out, cutting by characters, lower case. Whatever
// has to know how UTF-16 and UTF-8 put a letter together is here.
//
// A letter above U+FFFF takes two places of a text, which are a surrogate pair. One half of a pair
// without the other half counts as a character of its own.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// UTF-16. The system cuts and counts characters; bytes of UTF-8 would not be that.
using Text = std::u16string;
using TextView = std::u16string_view;

/// Bytes from outside as text: valid UTF-8 as UTF-8, anything else as Windows-1252 (the five bytes
/// that this code page leaves out become the control characters of the same number). NULs are kept.
[[nodiscard]] Text TextFromBytes(std::string_view bytes);

/// Whether `bytes` are valid UTF-8: no overlong form, no surrogate, nothing above U+10FFFF.
[[nodiscard]] bool IsUtf8(std::string_view bytes);

/// Decodes one letter of UTF-8 at `at` and moves `at` behind it; below 0 for bytes that are none.
[[nodiscard]] std::int32_t NextUtf8(std::string_view bytes, std::size_t& at);

/// Whether a byte of UTF-8 belongs to the letter that began before it.
[[nodiscard]] constexpr bool ContinuesUtf8(char byte) {
    return (byte & 0xC0) == 0x80;
}

/// How many bytes at the start of a file are the byte order mark of UTF-8: 3, or 0 without one.
[[nodiscard]] std::size_t ByteOrderMarkLength(std::string_view bytes);

/// `text` in UTF-8. Half of a surrogate pair without the other half becomes U+FFFD.
[[nodiscard]] std::string Utf8(TextView text);

/// Adds one letter, as a surrogate pair if it needs two places.
void AppendUtf16(Text& text, char32_t letter);

/// How many places the first character takes: 2 for a surrogate pair, 0 in an empty text, else 1.
[[nodiscard]] std::size_t FirstCharacterLength(TextView text);

/// `text` without its first character; the empty text stays.
[[nodiscard]] TextView WithoutFirstCharacter(TextView text);

/// `text` without its last character; the empty text stays.
[[nodiscard]] TextView WithoutLastCharacter(TextView text);

/// The first `most` places of `text`, or one less where they would end between two halves of a
/// pair; all of a shorter text.
[[nodiscard]] TextView StartOf(TextView text, std::size_t most);

/// `text`, bytes or UTF-16, without those of `characters` that stand at its two ends. The result
/// always lies in `text`, even when it is empty.
template<typename View>
[[nodiscard]] constexpr View Trimmed(View text, View characters) {
    const std::size_t first = text.find_first_not_of(characters);
    if (first == View::npos) return text.substr(0, 0);
    return text.substr(first, text.find_last_not_of(characters) - first + 1);
}

/// Decodes the letter at `at` in lower case, as `LowerCase` does, and moves `at` behind it.
[[nodiscard]] char32_t NextLowerLetter(TextView text, std::size_t& at);

/// `text` in lower case by the one-to-one mapping of Unicode, whatever the locale. The number of
/// characters stays.
[[nodiscard]] Text LowerCase(TextView text);

/// Whether two texts are equal without regard to case, by `LowerCase`.
[[nodiscard]] bool EqualIgnoringCase(TextView left, TextView right);

/// `number` in plain decimal.
[[nodiscard]] Text Decimal(std::int64_t number);
