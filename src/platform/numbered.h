// Arrays whose elements count from 1, as the system numbers its entries, records and lights.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/numbers.h"

/// The elements 1 to `Last`. Element 0 stands before them and isn't one of them: it stays empty, or
/// it is the pattern of a control array.
///
/// A number may be any that a file states: one outside 0 to `Last` gives element 0. So a look at an
/// element that isn't there finds an empty one; before a write `Has` is asked, unless the number is
/// known to be right.
template<typename Element, Integer Last>
class Numbered {
public:
    static constexpr Integer kLast = Last;

    /// Whether the number is one of 1 to `Last`.
    [[nodiscard]] static constexpr bool Has(std::int64_t number) {
        return number >= 1 && number <= Last;
    }

    [[nodiscard]] Element& operator[](std::int64_t number) { return m_elements[Place(number)]; }
    [[nodiscard]] const Element& operator[](std::int64_t number) const {
        return m_elements[Place(number)];
    }

    /// All elements in their order, element 0 first.
    [[nodiscard]] auto begin() { return m_elements.begin(); }
    [[nodiscard]] auto end() { return m_elements.end(); }
    [[nodiscard]] auto begin() const { return m_elements.begin(); }
    [[nodiscard]] auto end() const { return m_elements.end(); }

private:
    static constexpr std::size_t Place(std::int64_t number) {
        return Has(number) ? static_cast<std::size_t>(number) : 0;
    }

    std::array<Element, std::size_t{Last} + 1> m_elements{};
};
