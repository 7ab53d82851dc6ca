// The event loop as the rest of the system sees it.
#pragma once

#include <cstdint>
#include <functional>

/// The one thread on which everything of the system happens, and its clock.
class Loop {
public:
    virtual ~Loop() = default;

    /// Waits `seconds` with all events going on: mouse, timers, player events. Waits may nest; an
    /// inner one that is longer holds up the outer one. 0 or less deals with what is pending and
    /// returns.
    virtual void Wait(double seconds) = 0;

    /// One turn: deals with what is pending and returns without waiting.
    virtual void Turn() = 0;

    /// Milliseconds on a clock that never jumps; only differences mean something.
    [[nodiscard]] virtual std::int64_t NowMs() const = 0;

    /// Has `task` run on the loop's thread, in the order of the posts, never from inside this call.
    /// The one operation that any thread may call; a task posted while the process ends is dropped.
    virtual void Post(std::function<void()> task) = 0;

    /// The same in `delayMs` milliseconds or as soon as the loop comes to it then. Called on the
    /// loop's thread.
    virtual void PostIn(std::int64_t delayMs, std::function<void()> task) = 0;
};

/// Waits `Seconds` on `loop` with the event loop running. No busy wait: the process sleeps when
/// nothing is pending.
void Delay(Loop& loop, double Seconds);
