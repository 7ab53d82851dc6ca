// The digits are read by from_chars, which knows no locale; what it takes beyond a number is kept
// out first.
#include "platform/number_text.h"

#include <charconv>
#include <string>

namespace {

constexpr std::string_view kBlanks = " \t";

// `text` without the blanks around it, if it is nothing but ASCII; otherwise the empty text, which
// is no number.
std::string TrimmedAscii(TextView text) {
    std::string ascii;
    for (const char16_t letter : text) {
        if (letter >= 0x80) return {};
        ascii.push_back(static_cast<char>(letter));
    }
    return std::string(Trimmed(std::string_view(ascii), kBlanks));
}

// An exponent below 0 makes a number that is out of range a very small one.
bool HasNegativeExponent(std::string_view digits) {
    const std::size_t exponent = digits.find_first_of("eE");
    return exponent != std::string_view::npos && digits.substr(exponent + 1).starts_with('-');
}

} // namespace

std::optional<double> DecimalNumber(TextView text) {
    const std::string ascii = TrimmedAscii(text);
    std::string_view digits = ascii;
    const bool negative = digits.starts_with('-');
    if (negative || digits.starts_with('+')) digits.remove_prefix(1);
    // Keeps out a second sign, "inf" and "nan".
    if (digits.empty() ||
        std::string_view("0123456789.").find(digits.front()) == std::string_view::npos)
        return std::nullopt;
    double number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    if (stop != end) return std::nullopt;
    if (error == std::errc::result_out_of_range && HasNegativeExponent(digits)) return 0.0;
    if (error != std::errc()) return std::nullopt;
    return negative ? -number : number;
}

std::optional<std::int64_t> HexadecimalNumber(TextView text, int bitCount) {
    const std::string ascii = TrimmedAscii(text);
    if (!ascii.starts_with("&H") && !ascii.starts_with("&h")) return std::nullopt;
    std::uint32_t bits = 0;
    const char* const end = ascii.data() + ascii.size();
    const auto [stop, error] = std::from_chars(ascii.data() + 2, end, bits, 16);
    if (stop != end || error != std::errc()) return std::nullopt;
    if (bitCount == 32) return static_cast<std::int32_t>(bits);
    if (bits > 0xFFFF) return std::nullopt;
    return static_cast<std::int16_t>(bits);
}

std::optional<bool> TruthValue(TextView text) {
    const TextView word = Trimmed(text, TextView(u" "));
    if (EqualIgnoringCase(word, u"True")) return true;
    if (EqualIgnoringCase(word, u"False")) return false;
    if (const auto bits = HexadecimalNumber(text, 32)) return *bits != 0;
    const std::optional<double> number = DecimalNumber(text);
    return number ? std::optional(*number != 0) : std::nullopt;
}
