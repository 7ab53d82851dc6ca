// A rectangle of whole pixels; right and bottom edges are outside.
#pragma once

#include <algorithm>
#include <cstdint>

struct Rect {
    std::int32_t Left = 0;
    std::int32_t Top = 0;
    std::int32_t Right = 0;
    std::int32_t Bottom = 0;

    bool operator==(const Rect&) const = default;
    [[nodiscard]] constexpr bool IsEmpty() const { return Left >= Right || Top >= Bottom; }
    [[nodiscard]] constexpr bool Holds(std::int32_t x, std::int32_t y) const {
        return x >= Left && x < Right && y >= Top && y < Bottom;
    }
};

/// The smallest rectangle around both; an empty one adds nothing to it.
[[nodiscard]] constexpr Rect Enclosing(const Rect& first, const Rect& second) {
    if (first.IsEmpty()) return second;
    if (second.IsEmpty()) return first;
    return {std::min(first.Left, second.Left), std::min(first.Top, second.Top),
            std::max(first.Right, second.Right), std::max(first.Bottom, second.Bottom)};
}

/// What both rectangles cover; an empty rectangle if that is nothing.
[[nodiscard]] constexpr Rect Intersection(const Rect& first, const Rect& second) {
    const Rect common{std::max(first.Left, second.Left), std::max(first.Top, second.Top),
                      std::min(first.Right, second.Right), std::min(first.Bottom, second.Bottom)};
    return common.IsEmpty() ? Rect{} : common;
}
