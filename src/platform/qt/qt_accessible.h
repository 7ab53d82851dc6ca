// The bridge to screen readers: the window's controls as children that the toolkit knows nothing
// of.
#pragma once

#include <functional>
#include <vector>

#include "state/accessible.h"

class QtWindow;

/// What the bridge asks of the program.
struct SpokenSource {
    std::function<std::vector<AccessibleControl>()> Controls;
    /// Has the left button pressed and released at a point of the client area, as a hand would,
    /// later.
    std::function<void(int xPx, int yPx)> Press;
};

/// Lets the toolkit know that a `QtWindow` has an interface of its own. Nothing of it is made until
/// a screen reader asks. Called once.
void InstallAccessibility();

/// Tells a screen reader, if one listens, how `now` differs from `before`.
void AnnounceChanges(QtWindow& window, const std::vector<AccessibleControl>& before,
                     const std::vector<AccessibleControl>& now);
