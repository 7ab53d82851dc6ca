// The signals by which a desktop ends a program, brought onto the loop.
#pragma once

#include <functional>

/// Has `ended` called, on the loop's thread, when SIGTERM, SIGHUP or SIGINT arrives, also inside a
/// wait or a dialog. Called once; false if the machine refuses.
[[nodiscard]] bool WatchEndSignals(std::function<void()> ended);
