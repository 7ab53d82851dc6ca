// How large words are on a label, which only who paints them can tell.
#pragma once

#include <functional>

#include "platform/rect.h"
#include "platform/text.h"

/// The place that words take, in pixels from the label's corner. `fontPx` as in a `Label`.
using MeasureText = std::function<Rect(const Text& words, int fontPx)>;
