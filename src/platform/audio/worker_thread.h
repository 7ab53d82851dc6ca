// Threads that no signal interrupts: signals belong to the window's thread.
#pragma once

#include <functional>
#include <optional>
#include <thread>

/// Runs `work` on a thread of its own. `name` shows in a process list, at most 15 letters. Nothing
/// if the system grants no thread.
[[nodiscard]] std::optional<std::thread> StartThread(const char* name, std::function<void()> work);

/// The same for a thread that nobody waits for. False if the system grants none.
[[nodiscard]] bool StartDetached(const char* name, std::function<void()> work);
