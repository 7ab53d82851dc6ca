// What a maker would want to know about a skin: it is put onto a form as in the program, and then
// looked over.
#pragma once

#include <optional>

#include "maker/finding.h"
#include "maker/measure_text.h"

/// The findings on the skin file at `path` and on the shape file of its lights, in the order of the
/// sections; those on the shape file come last. Nothing if the file can't be read. Of `parts` the
/// pictures are asked, the player and the system are told of a track and of its sound.
[[nodiscard]] std::optional<std::vector<Finding>>
CheckSkin(const PlatformParts& parts, const MeasureText& measure, const Text& path);
