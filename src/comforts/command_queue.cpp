// Each command is a task of its own, so that what it did shows before the next.
#include "comforts/command_queue.h"

#include <utility>

void CommandQueue::Add(std::function<void()> command) {
    if (m_waiting.size() < kMostWaiting) AddOwn(std::move(command));
}

void CommandQueue::AddOwn(std::function<void()> command) {
    m_waiting.push_back(std::move(command));
    if (!std::exchange(m_runs, true)) m_loop.Post([this] { Run(); });
}

void CommandQueue::Run() {
    const std::function<void()> command = std::move(m_waiting.front());
    m_waiting.pop_front();
    command();
    m_runs = !m_waiting.empty();
    if (m_runs) m_loop.Post([this] { Run(); });
}
