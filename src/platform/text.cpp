// Conversions are by ICU's C macros and tables: they depend on no locale.
#include "platform/text.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

namespace {

constexpr char32_t kReplacement = 0xFFFD;

// The half of Windows-1252 that differs from the first 256 characters of Unicode: bytes 0x80 to
// 0x9F.
constexpr char16_t kWindows1252[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// Decodes the letter at `at` and moves `at` behind it; half of a pair is a letter of its own.
char32_t NextLetter(TextView text, std::size_t& at) {
    char32_t letter = 0;
    U16_NEXT(text.data(), at, text.size(), letter);
    return letter;
}

bool IsPair(char16_t first, char16_t second) {
    return U16_IS_LEAD(first) && U16_IS_TRAIL(second);
}

} // namespace

std::int32_t NextUtf8(std::string_view bytes, std::size_t& at) {
    UChar32 letter = 0;
    U8_NEXT(bytes.data(), at, bytes.size(), letter);
    return letter;
}

std::size_t ByteOrderMarkLength(std::string_view bytes) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    return bytes.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
}

bool IsUtf8(std::string_view bytes) {
    for (std::size_t at = 0; at < bytes.size();)
        if (NextUtf8(bytes, at) < 0) return false;
    return true;
}

Text TextFromBytes(std::string_view bytes) {
    Text text;
    text.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        const std::int32_t letter = NextUtf8(bytes, at);
        if (letter < 0) {
            text.clear();
            break;
        }
        AppendUtf16(text, static_cast<char32_t>(letter));
    }
    if (!text.empty()) return text;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        text.push_back(code >= 0x80 && code < 0xA0 ? kWindows1252[code - 0x80] : char16_t(code));
    }
    return text;
}

std::string Utf8(TextView text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char32_t letter = NextLetter(text, at);
        char buffer[U8_MAX_LENGTH];
        int length = 0;
        U8_APPEND_UNSAFE(buffer, length, U_IS_SURROGATE(letter) ? kReplacement : letter);
        bytes.append(buffer, static_cast<std::size_t>(length));
    }
    return bytes;
}

void AppendUtf16(Text& text, char32_t letter) {
    if (letter <= 0xFFFF) {
        text.push_back(static_cast<char16_t>(letter));
        return;
    }
    text.push_back(U16_LEAD(letter));
    text.push_back(U16_TRAIL(letter));
}

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

TextView StartOf(TextView text, std::size_t most) {
    if (text.size() <= most) return text;
    const bool cutsPair = most > 0 && IsPair(text[most - 1], text[most]);
    return text.substr(0, most - (cutsPair ? 1 : 0));
}

char32_t NextLowerLetter(TextView text, std::size_t& at) {
    return static_cast<char32_t>(u_tolower(static_cast<UChar32>(NextLetter(text, at))));
}

Text LowerCase(TextView text) {
    Text lower;
    lower.reserve(text.size());
    for (std::size_t at = 0; at < text.size();)
        AppendUtf16(lower, NextLowerLetter(text, at));
    return lower;
}

bool EqualIgnoringCase(TextView left, TextView right) {
    if (left.size() != right.size()) return false;
    for (std::size_t leftAt = 0, rightAt = 0; leftAt < left.size();)
        if (NextLowerLetter(left, leftAt) != NextLowerLetter(right, rightAt)) return false;
    return true;
}

Text Decimal(std::int64_t number) {
    const std::string digits = std::to_string(number);
    return Text(digits.begin(), digits.end());
}
