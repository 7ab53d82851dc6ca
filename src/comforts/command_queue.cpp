// One posted task carries out all that waits.
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
    while (!m_waiting.empty()) {
        const std::function<void()> command = std::move(m_waiting.front());
        m_waiting.pop_front();
        command();
    }
    m_runs = false;
}
