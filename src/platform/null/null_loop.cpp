// Time passes here only inside `Wait`, from one due tick to the next.
#include "platform/null/null_loop.h"

#include <algorithm>

#include "state/timers.h"

void NullLoop::Attach(const Form& form, FormEvents& events) {
    m_form = &form;
    m_events = &events;
}

void NullLoop::Turn() {
    while (RunOneTask()) {
    }
    TickDueTimers();
}

void NullLoop::Wait(double seconds) {
    const std::int64_t endMs =
        m_nowMs + static_cast<std::int64_t>(std::max(0.0, seconds) * 1000 + 0.5);
    for (;;) {
        Turn();
        // A nested wait may have moved the clock past the end of this one.
        if (m_nowMs >= endMs) return;
        const std::optional<std::int64_t> dueMs =
            m_form ? m_schedule.NextDue(*m_form, m_nowMs) : std::nullopt;
        m_nowMs = std::clamp(dueMs.value_or(endMs), m_nowMs, endMs);
    }
}

void NullLoop::Post(std::function<void()> task) {
    const std::lock_guard lock(m_mutex);
    m_tasks.push_back(std::move(task));
    m_posted.notify_one();
}

void NullLoop::PostIn(std::int64_t delayMs, std::function<void()> task) {
    const std::lock_guard lock(m_mutex);
    m_later.emplace(std::chrono::steady_clock::now() + std::chrono::milliseconds(delayMs),
                    std::move(task));
}

// Called with the lock held.
void NullLoop::TakeDueTasks() {
    while (!m_later.empty() && m_later.begin()->first <= std::chrono::steady_clock::now()) {
        m_tasks.push_back(std::move(m_later.begin()->second));
        m_later.erase(m_later.begin());
    }
}

bool NullLoop::RunUntil(const std::function<bool()>& done, int limitMs) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(limitMs);
    while (!done()) {
        if (RunOneTask()) continue;
        std::unique_lock lock(m_mutex);
        const Moment until = m_later.empty() ? end : std::min(end, m_later.begin()->first);
        if (m_posted.wait_until(lock, until, [this] { return !m_tasks.empty(); })) continue;
        if (until == end) return done();
    }
    return true;
}

bool NullLoop::RunOneTask() {
    std::function<void()> task;
    {
        const std::lock_guard lock(m_mutex);
        TakeDueTasks();
        if (m_tasks.empty()) return false;
        task = std::move(m_tasks.front());
        m_tasks.pop_front();
    }
    task();
    if (AfterEvent) AfterEvent();
    return true;
}

void NullLoop::TickDueTimers() {
    if (!m_form) return;
    while (const Timer* timer = m_schedule.TakeDue(*m_form, m_nowMs)) {
        m_events->OnTimer(*timer);
        if (AfterEvent) AfterEvent();
    }
}
