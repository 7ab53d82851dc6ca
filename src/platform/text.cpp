// Conversions are by ICU's C macros and tables: they depend on no locale.
#include "platform/text.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

namespace {

constexpr char32_t kReplacement = 0xFFFD;

// The half of Windows-1252 that differs from the first 256 characters of Unicode: bytes 0x80 to 0x9F.
constexpr char16_t kWindows1252[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                       0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                       0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                       0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// Gives each code point of `text` to `take`; half of a pair comes as U+FFFD.
template<typename Take>
void ForEachCodePoint(TextView text, Take take) {
    const auto length = static_cast<std::int64_t>(text.size());
    std::int64_t at = 0;
    while (at < length) {
        char32_t letter = 0;
        U16_NEXT(text.data(), at, length, letter);
        take(U_IS_SURROGATE(letter) ? kReplacement : letter);
    }
}

void AppendUtf16(Text& text, char32_t letter) {
    if (letter <= 0xFFFF) {
        text.push_back(static_cast<char16_t>(letter));
        return;
    }
    text.push_back(U16_LEAD(letter));
    text.push_back(U16_TRAIL(letter));
}

// Decodes one letter of UTF-8 at `at` and moves `at` behind it; below 0 for bytes that are none.
UChar32 NextUtf8(std::string_view bytes, std::int64_t& at) {
    UChar32 letter = 0;
    const auto length = static_cast<std::int64_t>(bytes.size());
    U8_NEXT(bytes.data(), at, length, letter);
    return letter;
}

} // namespace

bool IsUtf8(std::string_view bytes) {
    std::int64_t at = 0;
    while (at < static_cast<std::int64_t>(bytes.size()))
        if (NextUtf8(bytes, at) < 0) return false;
    return true;
}

Text TextFromBytes(std::string_view bytes) {
    Text text;
    text.reserve(bytes.size());
    std::int64_t at = 0;
    while (at < static_cast<std::int64_t>(bytes.size())) {
        const UChar32 letter = NextUtf8(bytes, at);
        if (letter < 0) {
            text.clear();
            break;
        }
        AppendUtf16(text, static_cast<char32_t>(letter));
    }
    if (!text.empty() || bytes.empty()) return text;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        text.push_back(code >= 0x80 && code < 0xA0 ? kWindows1252[code - 0x80] : char16_t(code));
    }
    return text;
}

std::string Utf8(TextView text) {
    std::string bytes;
    bytes.reserve(text.size());
    ForEachCodePoint(text, [&](char32_t letter) {
        char buffer[U8_MAX_LENGTH];
        int length = 0;
        U8_APPEND_UNSAFE(buffer, length, letter);
        bytes.append(buffer, static_cast<std::size_t>(length));
    });
    return bytes;
}

Text LowerCase(TextView text) {
    Text lower;
    lower.reserve(text.size());
    const auto length = static_cast<std::int64_t>(text.size());
    std::int64_t at = 0;
    while (at < length) {
        char32_t letter = 0;
        U16_NEXT(text.data(), at, length, letter);
        AppendUtf16(lower, static_cast<char32_t>(u_tolower(static_cast<UChar32>(letter))));
    }
    return lower;
}

bool EqualIgnoringCase(TextView left, TextView right) {
    return LowerCase(left) == LowerCase(right);
}

Text Decimal(std::int64_t number) {
    const std::string digits = std::to_string(number);
    return Text(digits.begin(), digits.end());
}
