// The signals that ask the program to end, as calls on the loop's thread.
#pragma once

#include <functional>

/// From now on SIGTERM, SIGHUP and SIGINT call `ended` on the loop's thread, also while a handler
/// waits or a dialog is open. Called once, after the application object was made. False if the
/// kernel refuses.
[[nodiscard]] bool WatchEndSignals(std::function<void()> ended);
