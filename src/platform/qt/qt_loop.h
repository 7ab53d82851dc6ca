// The loop, built on the toolkit's: tasks from any thread, the form's timers, waits that nest.
#pragma once

#include <QObject>
#include <QTimer>
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
    QtLoop();

    /// The form whose timers tick, and who is told of the ticks. `afterEvent` shows the form: it is
    /// called after each task, tick and `Handle`, and before each wait.
    void Attach(const Form& form, FormEvents& events, std::function<void()> afterEvent);

    /// Runs until the process ends. Called once, by main.
    void Run();
    void Wait(double seconds) override;
    void Turn() override;
    [[nodiscard]] std::int64_t NowMs() const override;
    void Post(std::function<void()> task) override;
    void PostIn(std::int64_t delayMs, std::function<void()> task) override;

    /// Runs `handler` now, then shows the form and follows its timers. Every event of the toolkit
    /// that calls into the rest of the system goes through here.
    void Handle(const std::function<void()>& handler);

protected:
    void customEvent(QEvent* event) override;

private:
    void RunOneTask();
    void RunDueTasks();
    void TickDueTimers();
    void ScheduleTick();

    const Form* m_form = nullptr;
    FormEvents* m_events = nullptr;
    std::function<void()> m_afterEvent;
    TimerSchedule m_schedule;
    QTimer m_tick;
    std::optional<std::int64_t> m_tickDueMs; ///< Empty while `m_tick` is stopped.
    std::multimap<std::int64_t, std::function<void()>> m_later; ///< By the time each is due, in ms.
    std::mutex m_mutex;
    std::deque<std::function<void()>> m_tasks; ///< The one member that `m_mutex` guards.
};
