// The server is asked again a second after it was lost, and only for a track that needs it.
#include "platform/audio/output/output_finder.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::int64_t kRetryUs = 1'000'000;
constexpr std::int64_t kLimitUs = 2'000'000;
/// A stream has at least so long, however late the connection was.
constexpr std::int64_t kStreamLimitUs = 500'000;

} // namespace

void OutputFinder::Begin() {
    m_retryAtUs.reset();
    if (!m_useServer) return;
    // What the track before has waited for in vain isn't waited for again.
    if (!IsAwaited()) {
        m_late = Late::Nothing;
        m_limitUs.reset();
    }
    m_server.Connect();
}

void OutputFinder::NoteLost(std::int64_t nowUs) {
    m_retryAtUs = nowUs + kRetryUs;
}

SoundOutput* OutputFinder::Choose(bool mustSound, std::int64_t nowUs) {
    if (!m_useServer) return &m_clock;
    if (m_retryAtUs) {
        if (!mustSound) return &m_clock;
        if (nowUs < *m_retryAtUs) return nullptr;
        m_retryAtUs.reset();
        m_server.Connect();
    }
    if (m_late != Late::Nothing && !mustSound && !HasCome()) return &m_clock;
    const bool serverWasLate = std::exchange(m_late, Late::Nothing) == Late::Server;
    if (!m_limitUs) m_limitUs = nowUs + kLimitUs;
    switch (m_server.Current()) {
    case PulseServer::State::Ready:
        // The clock that stands in for a late server goes on until the stream is up.
        if (!serverWasLate) m_limitUs = std::max(*m_limitUs, nowUs + kStreamLimitUs);
        return &m_pulse;
    case PulseServer::State::Failed:
        if (!mustSound) return &m_clock;
        m_retryAtUs = nowUs + kRetryUs;
        return nullptr;
    default:
        if (mustSound || nowUs < *m_limitUs) return nullptr;
        m_late = Late::Server;
        return &m_clock;
    }
}

bool OutputFinder::GivesUp(bool mustSound, std::int64_t nowUs) {
    if (mustSound || !m_limitUs || nowUs < *m_limitUs) return false;
    m_late = Late::Stream;
    return true;
}

bool OutputFinder::IsAwaited() const {
    if (m_late == Late::Server) return m_server.Current() == PulseServer::State::Connecting;
    return m_late == Late::Stream && m_pulse.RestState() == OutputState::Opening;
}

bool OutputFinder::HasCome() const {
    return m_late != Late::Nothing && !IsAwaited() &&
           m_server.Current() == PulseServer::State::Ready;
}

std::optional<std::int64_t> OutputFinder::DueUs(bool mustSound) const {
    if (m_retryAtUs || mustSound) return m_retryAtUs;
    return m_limitUs;
}
