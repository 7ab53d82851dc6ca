// When the form's timers tick: a schedule over the records, with the time given from outside.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "state/form.h"

/// The form's timers in a fixed order.
[[nodiscard]] std::array<const Timer*, 3> TimersOf(const Form& form);

/// Whether a tick of `timer` could do anything that somebody notices: it is enabled, and the title
/// timer has a text to move in a window that isn't minimised.
[[nodiscard]] bool TimerCanAct(const Form& form, const Timer& timer);

/// Follows the timers of one form. A timer that begins to be able to act ticks one interval later;
/// late ticks merge into one. A tick comes earlier or later by up to a quarter of its interval, and
/// 17 milliseconds at most, where the process wakes up anyway, and keeps its rhythm from there: so
/// the title steps with a picture of the spectrum, which comes 30 times a second.
class TimerSchedule {
public:
    /// The time of the next tick, at or after `nowMs`; nothing while no timer can act, which spares
    /// the process the wake-up. `wakesMs` is when the process will wake up for something else.
    [[nodiscard]] std::optional<std::int64_t> NextDue(const Form& form, std::int64_t nowMs,
                                                      std::optional<std::int64_t> wakesMs = {});

    /// A timer whose tick may come at `nowMs`, when the process is awake, now counted as ticked;
    /// the null pointer if there is none.
    [[nodiscard]] const Timer* TakeDue(const Form& form, std::int64_t nowMs);

private:
    void Follow(const Form& form, std::int64_t nowMs);

    std::array<std::optional<std::int64_t>, 3> m_dueMs;
};
