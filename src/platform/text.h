// Text as the system counts it, and its ways in and out: bytes, lower case, numbers written in
// decimal.
#pragma once

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

/// `text` in UTF-8. Half of a surrogate pair without the other half becomes U+FFFD.
[[nodiscard]] std::string Utf8(TextView text);

/// Adds one letter, as two halves if it needs them.
void AppendUtf16(Text& text, char32_t letter);

/// Decodes the letter at `at` in lower case, as `LowerCase` does, and moves `at` behind it.
[[nodiscard]] char32_t NextLowerLetter(TextView text, std::size_t& at);

/// `text` in lower case by the one-to-one mapping of Unicode, whatever the locale. The number of
/// characters stays.
[[nodiscard]] Text LowerCase(TextView text);

/// Whether two texts are equal without regard to case, by `LowerCase`.
[[nodiscard]] bool EqualIgnoringCase(TextView left, TextView right);

/// `number` in plain decimal.
[[nodiscard]] Text Decimal(std::int64_t number);
