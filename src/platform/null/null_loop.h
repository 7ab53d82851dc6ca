// A loop without a display: a clock that a test moves, timers of the form, and tasks from other
// threads.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <mutex>

#include "platform/loop.h"
#include "state/form_events.h"
#include "state/timers.h"

/// Runs posted tasks and the form's timers on the caller's thread. Its clock stands still but for
/// `Wait`, which moves it from one due timer to the next and to its end, at once: no test waits for
/// a second.
class NullLoop : public Loop {
public:
    /// The form whose timers tick and who is told; without one no timer runs.
    void Attach(const Form& form, FormEvents& events);

    void Wait(double seconds) override;
    void Turn() override;
    [[nodiscard]] std::int64_t NowMs() const override { return m_nowMs; }
    void Post(std::function<void()> task) override;
    /// In real time, as it is for parts with threads of their own.
    void PostIn(std::int64_t delayMs, std::function<void()> task) override;

    /// For tests of parts with threads of their own: runs tasks as they are posted, sleeping in
    /// between, until `done` says so. False if `limitMs` of real time pass first.
    [[nodiscard]] bool RunUntil(const std::function<bool()>& done, int limitMs);

    /// Called after each task and tick, as a window layer would show the form.
    std::function<void()> AfterEvent;

private:
    using Moment = std::chrono::steady_clock::time_point;

    bool RunOneTask();
    void TakeDueTasks();
    void TickDueTimers();

    const Form* m_form = nullptr;
    FormEvents* m_events = nullptr;
    std::int64_t m_nowMs = 0;
    TimerSchedule m_schedule;
    std::mutex m_mutex;
    std::condition_variable m_posted;
    std::deque<std::function<void()>> m_tasks;
    std::multimap<Moment, std::function<void()>> m_later;
};
