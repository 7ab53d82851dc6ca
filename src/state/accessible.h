// What a screen reader is told of the form: from the same records that are shown, with the names of
// the table of controls.
#pragma once

#include <string_view>
#include <vector>

#include "platform/rect.h"
#include "state/velora.h"

/// A visible control as a screen reader is told of it. The thirteen lights are one.
struct AccessibleControl {
    std::string_view ControlName; ///< As the record has it: stays the same while the words change.
    AccessibleRole Role = AccessibleRole::Button;
    Text Name;     ///< "Play", "Volume", ...; of a text what it says.
    Text Help;     ///< The tool tip.
    int Value = 0; ///< Of a slider or a progress bar, from 0 to `Most`.
    int Most = 0;
    Rect Place; ///< On the client area, in skin pixels.

    bool operator==(const AccessibleControl&) const = default;
};

/// The visible controls from front to back. Empty while the surface is hidden.
[[nodiscard]] std::vector<AccessibleControl> AccessibleControls(const Velora& velora);
