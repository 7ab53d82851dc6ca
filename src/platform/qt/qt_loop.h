// The loop, built on the toolkit's: tasks from any thread, the form's timers, waits that nest.
#pragma once

#include <QBasicTimer>
#include <QObject>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <optional>

#include "platform/loop.h"
#include "state/form_events.h"
#include "state/timers.h"

/// May be made before the application object, which everything but `Attach`, `Post` and `NowMs`
/// needs. Each posted task and each tick is an event of its own: while one waits, the next ones go
/// on in the nested loop.
class QtLoop : public QObject, public Loop {
public:
    /// The form whose timers tick, and who is told of the ticks. `afterEvents` shows the form: it
    /// is called before the thread sleeps, once for all tasks, ticks and `Handle`s since it slept
    /// last, and before each wait.
    void Attach(const Form& form, FormEvents& events, std::function<void()> afterEvents);

    /// Runs until the process ends. Called once, by main.
    void Run();
    void Wait(double seconds) override;
    void Turn() override;
    [[nodiscard]] std::int64_t NowMs() const override;
    void Post(std::function<void()> task) override;
    void PostIn(std::int64_t delayMs, std::function<void()> task) override;

    /// Runs `handler` now; before the thread sleeps the form is shown and its timers are followed.
    /// Every event of the toolkit that calls into the rest of the system goes through here.
    void Handle(const std::function<void()>& handler);

protected:
    void customEvent(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void RunOneTask();
    void RunDueTasks();
    void TickDueTimers();
    void ScheduleTick();
    void Settle();

    const Form* m_form = nullptr;
    FormEvents* m_events = nullptr;
    std::function<void()> m_afterEvents;
    bool m_isSettled = true; ///< Nothing has happened since `m_afterEvents` was called.
    TimerSchedule m_schedule;
    QBasicTimer m_tick;
    std::optional<std::int64_t> m_tickDueMs; ///< Empty while `m_tick` is stopped.
    std::multimap<std::int64_t, std::function<void()>> m_later; ///< By the time each is due, in ms.
    std::mutex m_mutex;
    std::deque<std::function<void()>> m_tasks; ///< The one member that `m_mutex` guards.
};
