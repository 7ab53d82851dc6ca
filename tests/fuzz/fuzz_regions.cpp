// Regions of any numbers and any combinations of them, against a bitmap.
#include <array>
#include <bitset>
#include <cstdint>
#include <cstdlib>

#include "platform/regions.h"

namespace {

constexpr Rect kOuter{0, 0, 48, 32};
using Bitmap = std::bitset<48 * 32>;

void Require(bool holds) {
    if (!holds) std::abort();
}

class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : m_data(data), m_left(size) {}
    [[nodiscard]] bool Empty() const { return m_left == 0; }
    std::uint8_t Byte() {
        if (Empty()) return 0;
        --m_left;
        return *m_data++;
    }
    // Mostly small numbers, sometimes any.
    Long Number() {
        const std::uint8_t first = Byte();
        if (first < 250) return first - 100;
        std::uint32_t bits = 0;
        for (int count = 0; count < 4; ++count)
            bits = bits << 8 | Byte();
        return static_cast<Long>(bits);
    }

private:
    const std::uint8_t* m_data;
    std::size_t m_left;
};

Bitmap PixelsOf(const Region& region) {
    Bitmap pixels;
    for (std::size_t at = 0; at < pixels.size(); ++at)
        pixels[at] = region.Holds(static_cast<std::int32_t>(at % 48), static_cast<std::int32_t>(at / 48));
    return pixels;
}

Bitmap PixelsOfRectangles(const Region& region) {
    Bitmap pixels;
    for (const Rect& part : region.Rectangles(kOuter))
        for (std::int32_t y = part.Top; y < part.Bottom; ++y)
            for (std::int32_t x = part.Left; x < part.Right; ++x) {
                const auto at = static_cast<std::size_t>(y * 48 + x);
                Require(!pixels[at]);
                pixels[at] = true;
            }
    return pixels;
}

Bitmap Combined(const Bitmap& first, const Bitmap& second, Long mode) {
    switch (mode) {
    case 1:
        return first & second;
    case 2:
        return first | second;
    case 3:
        return first ^ second;
    case 4:
        return first & ~second;
    default:
        return first;
    }
}

Long Create(Input& input, RegionTable& table) {
    const std::uint8_t kind = input.Byte();
    Rect sides;
    for (std::int32_t* side : {&sides.Left, &sides.Top, &sides.Right, &sides.Bottom})
        *side = input.Number();
    if (kind % 3 == 0) return CreateRectRgn(table, kOuter, sides);
    if (kind % 3 == 1) return CreateEllipticRgn(table, kOuter, sides);
    const Long width = input.Number();
    return CreateRoundRectRgn(table, kOuter, sides, width, input.Number());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    RegionTable table;
    std::array<Bitmap, 20> model;
    Long made = 0;
    for (int step = 0; step < 60 && !input.Empty(); ++step) {
        if (input.Byte() % 3 == 0 && made < 20) {
            Require(Create(input, table) == ++made);
            model[std::size_t(made - 1)] = PixelsOf(*FindRegion(table, made));
            continue;
        }
        const Long dest = input.Byte() % 22, one = input.Byte() % 22, two = input.Byte() % 22;
        const Long mode = input.Byte() % 7;
        const auto known = [&](Long handle) { return handle >= 1 && handle <= made; };
        const bool possible = known(dest) && known(one) && known(two) && mode >= 1 && mode <= 5;
        Require(CombineRgn(table, dest, one, two, mode) == possible);
        if (possible)
            model[std::size_t(dest - 1)] =
                Combined(model[std::size_t(one - 1)], model[std::size_t(two - 1)], mode);
    }
    for (Long handle = 1; handle <= made; ++handle) {
        const auto region = FindRegion(table, handle);
        Require(PixelsOf(*region) == model[std::size_t(handle - 1)]);
        Require(PixelsOfRectangles(*region) == model[std::size_t(handle - 1)]);
        Require(region->IsEmpty() == model[std::size_t(handle - 1)].none());
    }
    return 0;
}
