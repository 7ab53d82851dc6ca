// Numbers and truth values as ini files write them. No locale has a say: the decimal sign is a
// point.
//
// A number is an optional sign, decimal digits, a fraction, an exponent (at least one digit before
// or behind the point); or `&H` and hexadecimal digits, which are the bits of the wanted type, so
// `&HFFFF` is -1 as an Integer and 65535 as a Long, and more bits than the type has don't fit.
// Blanks may stand around it. Nothing else is a number: no other sign, no thousands, no decimal
// comma, no text before or behind.
#pragma once

#include <optional>

#include "platform/numbers.h"
#include "platform/text.h"

/// The decimal number that `text` is. Nothing if it is none or beyond the range of a Double.
[[nodiscard]] std::optional<double> DecimalNumber(TextView text);

/// The bits that `text` gives in hexadecimal, as a signed number of `bitCount` bits (16 or 32).
/// Nothing if it isn't such a number or needs more bits.
[[nodiscard]] std::optional<std::int64_t> HexadecimalNumber(TextView text, int bitCount);

/// The whole number that `text` is, a fraction rounded to the nearest one, the exact half to the
/// even neighbour. Nothing if it is no number or doesn't fit.
template<typename Whole>
[[nodiscard]] std::optional<Whole> RoundedNumber(TextView text) {
    if (const auto bits = HexadecimalNumber(text, 8 * int{sizeof(Whole)}))
        return FitInto<Whole>(*bits);
    const std::optional<double> number = DecimalNumber(text);
    return number ? RoundToEven<Whole>(*number) : std::nullopt;
}

/// The same with a fraction cut downward: 12.9 is 12 and -0.5 is -1.
template<typename Whole>
[[nodiscard]] std::optional<Whole> FlooredNumber(TextView text) {
    if (const auto bits = HexadecimalNumber(text, 8 * int{sizeof(Whole)}))
        return FitInto<Whole>(*bits);
    const std::optional<double> number = DecimalNumber(text);
    return number ? RoundToEven<Whole>(std::floor(*number)) : std::nullopt;
}

/// True or False in any case, or a number, of which 0 alone is false. Nothing for any other text.
[[nodiscard]] std::optional<bool> TruthValue(TextView text);
