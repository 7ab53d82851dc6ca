// The server is asked again a second after it was lost, and only for a track that needs it.
#include "platform/audio/output/output_finder.h"

namespace {

constexpr std::int64_t kRetryUs = 1'000'000;

} // namespace

void OutputFinder::Begin(std::int64_t nowUs) {
    m_retryAtUs.reset();
    if (m_useServer) m_server.Connect(nowUs);
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
        m_server.Connect(nowUs);
    }
    switch (m_server.Current()) {
    case PulseServer::State::Ready:
        return &m_pulse;
    case PulseServer::State::Failed:
        if (!mustSound) return &m_clock;
        m_retryAtUs = nowUs + kRetryUs;
        return nullptr;
    default:
        return nullptr;
    }
}
