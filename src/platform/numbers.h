// The widths in which the system counts, and the conversions into them that can fail.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <type_traits>

using Integer = std::int16_t;
using Long = std::int32_t;
using Single = float;

/// A truth value as records hold it: 16 bits wide, -1 for true and 0 for false.
struct Boolean {
    Integer Value = 0;

    constexpr Boolean() = default;
    constexpr Boolean(bool truth) : Value(truth ? -1 : 0) {}
    constexpr operator bool() const { return Value != 0; }
};

/// `number` rounded to the nearest whole number of type `Whole`, the exact half to the even
/// neighbour. Nothing if `number` is no number or the result doesn't fit.
template<typename Whole>
[[nodiscard]] std::optional<Whole> RoundToEven(double number) {
    static_assert(std::is_integral_v<Whole>);
    const double rounded = std::nearbyint(number);
    if (!(rounded >= static_cast<double>(std::numeric_limits<Whole>::min()) &&
          rounded <= static_cast<double>(std::numeric_limits<Whole>::max())))
        return std::nullopt;
    return static_cast<Whole>(rounded);
}

/// A whole number brought into `Whole`, or nothing if it doesn't fit.
template<typename Whole>
[[nodiscard]] std::optional<Whole> FitInto(std::int64_t number) {
    if (number < std::numeric_limits<Whole>::min() || number > std::numeric_limits<Whole>::max())
        return std::nullopt;
    return static_cast<Whole>(number);
}

/// Twips to a skin's pixel, both ways; the outer size of the form and the mouse on the volume use
/// it.
constexpr int kTwipsPerPixel = 15;

/// The nearest whole pixel to a length in twips, the exact half away from zero.
[[nodiscard]] constexpr std::int64_t PixelsOfTwips(std::int64_t twips) {
    const std::int64_t half = twips < 0 ? -(kTwipsPerPixel / 2) : kTwipsPerPixel / 2;
    return (twips + half) / kTwipsPerPixel;
}
