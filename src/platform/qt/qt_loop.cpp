// A timer of the toolkit doesn't fire again while its own slot runs. A tick may wait in a nested
// loop, so the slot only posts an event, and the tick happens there.
#include "platform/qt/qt_loop.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace {

const auto kTaskEvent = static_cast<QEvent::Type>(QEvent::User + 1);
const auto kTickEvent = static_cast<QEvent::Type>(QEvent::User + 2);

} // namespace

QtLoop::QtLoop() {
    m_tick.setSingleShot(true);
    m_tick.setTimerType(Qt::PreciseTimer);
    connect(&m_tick, &QTimer::timeout, this, [this] {
        m_tickDueMs.reset();
        QCoreApplication::postEvent(this, new QEvent(kTickEvent));
    });
}

void QtLoop::Attach(const Form& form, FormEvents& events, std::function<void()> afterEvent) {
    m_form = &form;
    m_events = &events;
    m_afterEvent = std::move(afterEvent);
}

void QtLoop::Run() {
    ScheduleTick();
    QCoreApplication::exec();
}

void QtLoop::Wait(double seconds) {
    if (m_afterEvent) m_afterEvent();
    ScheduleTick();
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
    ScheduleTick();
}

void QtLoop::Handle(const std::function<void()>& handler) {
    handler();
    if (m_afterEvent) m_afterEvent();
    ScheduleTick();
}

void QtLoop::customEvent(QEvent* event) {
    if (event->type() == kTaskEvent) RunOneTask();
    if (event->type() == kTickEvent) {
        RunDueTasks();
        TickDueTimers();
    }
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
        // First, since the task may wait in a nested loop: then the others must not wait with it.
        ScheduleTick();
        Handle(task);
    }
}

void QtLoop::TickDueTimers() {
    if (!m_form) return;
    while (const Timer* timer = m_schedule.TakeDue(*m_form, NowMs())) {
        // First, since the handler may wait in a nested loop: then the other timers go on.
        ScheduleTick();
        Handle([&] { m_events->OnTimer(*timer); });
    }
    ScheduleTick();
}

void QtLoop::ScheduleTick() {
    const std::int64_t nowMs = NowMs();
    std::optional<std::int64_t> dueMs;
    if (m_form) dueMs = m_schedule.NextDue(*m_form, nowMs);
    if (!m_later.empty())
        dueMs = std::min(dueMs.value_or(m_later.begin()->first), m_later.begin()->first);
    if (dueMs == m_tickDueMs) return;
    m_tickDueMs = dueMs;
    if (dueMs)
        m_tick.start(std::chrono::milliseconds(std::max<std::int64_t>(*dueMs - nowMs, 0)));
    else
        m_tick.stop();
}
