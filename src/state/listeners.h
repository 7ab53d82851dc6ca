// The places where a floor that the system knows nothing of may listen. Nobody does unless somebody
// has put a function there; an empty one costs a look.
#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "platform/numbers.h"

/// Where a step through the list goes.
enum class StepDirection { Backward, Forward };

/// Set by whoever listens; all are called on the loop's thread.
struct Listeners {
    /// A step through the list asks where it goes. What is given takes the place of the system's
    /// own neighbour: an entry, 0 for one that starts nothing, or nothing for no step at all.
    std::function<std::optional<Integer>(StepDirection)> ChooseStep;

    /// The user has chosen an entry of the menu that the system has no command for.
    std::function<void(std::string_view name)> MenuChosen;
};
