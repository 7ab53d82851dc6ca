// Places are sums of numbers out of skin files, so they are worked out wide and clamped.
#include "state/stack.h"

#include <algorithm>
#include <limits>

namespace {

std::int32_t Clamp(std::int64_t number) {
    constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::clamp(number, -kMost, kMost));
}

// The rectangle of `control`, with its container's corner at (`left`, `top`). No control has a size
// below 0.
Rect PlaceOf(const Control& control, std::int64_t left, std::int64_t top) {
    const std::int64_t right = left + control.Left + std::max(control.Width, Long{0});
    const std::int64_t bottom = top + control.Top + std::max(control.Height, Long{0});
    return {Clamp(left + control.Left), Clamp(top + control.Top), Clamp(right), Clamp(bottom)};
}

bool Shows(const Control& control, ControlKind kind) {
    return control.Visible &&
           (kind != ControlKind::Shape || static_cast<const Shape&>(control).Exists);
}

} // namespace

Rect ClientArea(const Form& form) {
    const std::int64_t widthPx = PixelsOfTwips(form.Width) - kFrameLeftPx - kFrameRightPx;
    const std::int64_t heightPx = PixelsOfTwips(form.Height) - kFrameTopPx - kFrameBottomPx;
    return {0, 0, Clamp(std::max<std::int64_t>(widthPx, 1)),
            Clamp(std::max<std::int64_t>(heightPx, 1))};
}

std::vector<StackedControl> ControlStack(const Form& form) {
    std::vector<StackedControl> stack;
    const PictureBox& surface = form.picBackground;
    if (!surface.Visible) return stack;
    // A full skin's, in one piece: this is done for each picture of the spectrum.
    stack.reserve(32);
    const Rect place = PlaceOf(surface, 0, 0);
    const Rect clip = Intersection(place, ClientArea(form));
    stack.push_back({&ControlTable().front(), &surface, place, clip});
    const std::span<const ControlRow> table = ControlTable();
    for (auto row = table.rbegin(); row != table.rend(); ++row) {
        if (row->Parent != Container::picBackground) continue;
        for (Integer number = row->Elements; number-- > 0;) {
            const Control& control = row->Element(form, number);
            if (Shows(control, row->Kind))
                stack.push_back(
                    {&*row, &control, PlaceOf(control, surface.Left, surface.Top), clip});
        }
    }
    return stack;
}

const Control* ControlAt(const Form& form, int xPx, int yPx) {
    const std::vector<StackedControl> stack = ControlStack(form);
    for (auto row = stack.rbegin(); row != stack.rend(); ++row)
        if (row->Row->Kind != ControlKind::Shape && row->Place.Holds(xPx, yPx) &&
            row->Clip.Holds(xPx, yPx))
            return row->Source;
    return nullptr;
}
