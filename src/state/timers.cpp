// The schedule is kept beside the records: enabling a timer is only a write to its record.
#include "state/timers.h"

#include <algorithm>

#include "platform/deadline.h"

std::array<const Timer*, 3> TimersOf(const Form& form) {
    return {&form.tmrSeekBackward, &form.tmrSeekForward, &form.tmrScrollFiletitle};
}

bool TimerCanAct(const Form& form, const Timer& timer) {
    if (!timer.Enabled) return false;
    if (&timer != &form.tmrScrollFiletitle) return true;
    return !form.lblFilescroll.Caption.empty() && form.State == WindowState::Normal;
}

void TimerSchedule::Follow(const Form& form, std::int64_t nowMs) {
    const auto timers = TimersOf(form);
    for (std::size_t index = 0; index < timers.size(); ++index) {
        if (!TimerCanAct(form, *timers[index]))
            m_dueMs[index].reset();
        else if (!m_dueMs[index])
            m_dueMs[index] = nowMs + timers[index]->IntervalMs;
    }
}

std::optional<std::int64_t> TimerSchedule::NextDue(const Form& form, std::int64_t nowMs) {
    Follow(form, nowMs);
    const auto next = Earliest({m_dueMs[0], m_dueMs[1], m_dueMs[2]});
    return next ? std::optional(std::max(*next, nowMs)) : std::nullopt;
}

const Timer* TimerSchedule::TakeDue(const Form& form, std::int64_t nowMs) {
    Follow(form, nowMs);
    const auto timers = TimersOf(form);
    for (std::size_t index = 0; index < timers.size(); ++index) {
        if (!m_dueMs[index] || *m_dueMs[index] > nowMs) continue;
        const std::int64_t intervalMs = timers[index]->IntervalMs;
        *m_dueMs[index] += ((nowMs - *m_dueMs[index]) / intervalMs + 1) * intervalMs;
        return timers[index];
    }
    return nullptr;
}
