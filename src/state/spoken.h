// What a screen reader is told of the form: from the same records that are shown, by one table of
// names.
#pragma once

#include <string_view>
#include <vector>

#include "platform/rect.h"
#include "state/velora.h"

enum class SpokenRole { Button, Slider, ProgressBar, Words };

/// A visible control in words. The thirteen lights are one.
struct SpokenControl {
    std::string_view ControlName; ///< As the record has it: stays the same while the words change.
    SpokenRole Role = SpokenRole::Button;
    Text Name;     ///< "Play", "Volume", ...; of a text what it says.
    Text Help;     ///< The tool tip.
    int Value = 0; ///< Of a slider or a progress bar, from 0 to `Most`.
    int Most = 0;
    Rect Place; ///< On the client area, in skin pixels.

    bool operator==(const SpokenControl&) const = default;
};

/// The visible controls from front to back. Empty while the surface is hidden.
[[nodiscard]] std::vector<SpokenControl> SpokenControls(const Velora& velora);
