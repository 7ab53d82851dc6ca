// The schedule is kept beside the records: enabling a timer is only a write to its record.
#include "state/timers.h"

#include <algorithm>

#include "platform/deadline.h"

namespace {

// How much earlier or later than its time a tick may come, to share a waking.
std::int64_t Leeway(const Timer& timer) {
    return std::min<std::int64_t>(17, timer.IntervalMs / 4);
}

} // namespace

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

std::optional<std::int64_t> TimerSchedule::NextDue(const Form& form, std::int64_t nowMs,
                                                   std::optional<std::int64_t> wakesMs) {
    Follow(form, nowMs);
    const auto timers = TimersOf(form);
    std::optional<std::int64_t> next;
    for (std::size_t index = 0; index < timers.size(); ++index) {
        std::optional<std::int64_t> dueMs = m_dueMs[index];
        if (dueMs && wakesMs && *wakesMs > *dueMs && *wakesMs - *dueMs <= Leeway(*timers[index]))
            dueMs = wakesMs;
        next = Earliest({next, dueMs});
    }
    return next ? std::optional(std::max(*next, nowMs)) : std::nullopt;
}

const Timer* TimerSchedule::TakeDue(const Form& form, std::int64_t nowMs) {
    Follow(form, nowMs);
    const auto timers = TimersOf(form);
    for (std::size_t index = 0; index < timers.size(); ++index) {
        const std::int64_t leewayMs = Leeway(*timers[index]);
        if (!m_dueMs[index] || *m_dueMs[index] > nowMs + leewayMs) continue;
        const std::int64_t intervalMs = timers[index]->IntervalMs;
        const std::int64_t lateMs = nowMs - *m_dueMs[index];
        if (lateMs <= leewayMs)
            m_dueMs[index] = nowMs + intervalMs;
        else
            *m_dueMs[index] += (lateMs / intervalMs + 1) * intervalMs;
        return timers[index];
    }
    return nullptr;
}
