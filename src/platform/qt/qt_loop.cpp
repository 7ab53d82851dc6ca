// The one timer is single, so the next can be set inside its own slot, and fires there in a nested
// loop, too.
#include "platform/qt/qt_loop.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

#include "platform/deadline.h"

namespace {

const auto kTaskEvent = static_cast<QEvent::Type>(QEvent::User + 1);
// What is due later is looked at once more when this has passed.
constexpr std::int64_t kLongestMs = 3'600'000;

} // namespace

void QtLoop::Attach(const Form& form, FormEvents& events, std::function<void()> afterEvents) {
    m_form = &form;
    m_events = &events;
    m_afterEvents = std::move(afterEvents);
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            &QtLoop::Settle, Qt::UniqueConnection);
}

void QtLoop::Run() {
    ScheduleTick();
    QCoreApplication::exec();
}

void QtLoop::Wait(double seconds) {
    m_isSettled = false;
    Settle();
    if (seconds <= 0) {
        Turn();
        return;
    }
    QEventLoop waiting;
    const std::chrono::milliseconds length(std::llround(seconds * 1000));
    QTimer::singleShot(length, Qt::PreciseTimer, &waiting, &QEventLoop::quit);
    waiting.exec();
}

void QtLoop::Turn() {
    QCoreApplication::processEvents();
}

std::int64_t QtLoop::NowMs() const {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

void QtLoop::Post(std::function<void()> task) {
    {
        const std::lock_guard lock(m_mutex);
        m_tasks.push_back(std::move(task));
    }
    QCoreApplication::postEvent(this, new QEvent(kTaskEvent));
}

void QtLoop::PostIn(std::int64_t delayMs, std::function<void()> task) {
    m_later.emplace(NowMs() + std::max<std::int64_t>(delayMs, 0), std::move(task));
    m_isSettled = false;
}

void QtLoop::Handle(const std::function<void()>& handler) {
    // Before, since the handler may wait in a loop of the toolkit's.
    m_isSettled = false;
    handler();
    m_isSettled = false;
}

void QtLoop::Settle() {
    if (std::exchange(m_isSettled, true)) return;
    if (m_afterEvents) m_afterEvents();
    ScheduleTick();
}

void QtLoop::customEvent(QEvent* event) {
    if (event->type() == kTaskEvent) RunOneTask();
}

void QtLoop::timerEvent(QTimerEvent*) {
    m_tick.stop();
    m_tickDueMs.reset();
    m_isSettled = false;
    RunDueTasks();
    TickDueTimers();
}

void QtLoop::RunOneTask() {
    std::function<void()> task;
    {
        const std::lock_guard lock(m_mutex);
        if (m_tasks.empty()) return;
        task = std::move(m_tasks.front());
        m_tasks.pop_front();
    }
    Handle(task);
}

void QtLoop::RunDueTasks() {
    while (!m_later.empty() && m_later.begin()->first <= NowMs()) {
        const std::function<void()> task = std::move(m_later.begin()->second);
        m_later.erase(m_later.begin());
        Handle(task);
    }
}

void QtLoop::TickDueTimers() {
    if (!m_form) return;
    while (const Timer* timer = m_schedule.TakeDue(*m_form, NowMs())) {
        Handle([&] { m_events->OnTimer(*timer); });
    }
}

void QtLoop::ScheduleTick() {
    const std::int64_t nowMs = NowMs();
    std::optional<std::int64_t> dueMs;
    if (!m_later.empty()) dueMs = m_later.begin()->first;
    if (m_form) dueMs = Earliest({dueMs, m_schedule.NextDue(*m_form, nowMs, dueMs)});
    if (dueMs == m_tickDueMs) return;
    m_tickDueMs = dueMs;
    if (dueMs)
        m_tick.start(static_cast<int>(std::clamp<std::int64_t>(*dueMs - nowMs, 0, kLongestMs)),
                     Qt::PreciseTimer, this);
    else
        m_tick.stop();
}
