// Commands from outside, one after the other: a step takes half a second with events going on, and
// a flood of requests must not pile up in each other.
#pragma once

#include <deque>
#include <functional>

#include "platform/loop.h"

/// Belongs to the loop's thread.
class CommandQueue {
public:
    explicit CommandQueue(Loop& loop) : m_loop(loop) {}

    /// Has `command` run on the loop once those before it have returned. If too many wait already
    /// it is dropped.
    void Add(std::function<void()> command);
    /// The same for a command of our own, which is never dropped.
    void AddOwn(std::function<void()> command);

    static constexpr std::size_t kMostWaiting = 8;

private:
    void Run();

    Loop& m_loop;
    std::deque<std::function<void()>> m_waiting;
    bool m_runs = false; ///< Or is about to.
};
