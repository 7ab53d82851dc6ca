// The states in which a skin can be seen, each brought about by the program's own procedures.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "maker/trial.h"
#include "state/scene.h"

/// The names of all states: "rest", those of the pressed buttons, "playing", "paused", and those of
/// the seven volumes.
[[nodiscard]] std::vector<std::string_view> StateNames();

/// The skin at `path` in one of those states. Nothing if the skin hasn't got it, as with the press
/// of a button that it doesn't place, or isn't shown at all.
[[nodiscard]] std::optional<Scene> SceneInState(const PlatformParts& parts, const Text& path,
                                                std::string_view state);
