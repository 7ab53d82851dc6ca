// The queue is filled up in one go and then left alone until it is half empty: so each thread
// seldom wakes up.
#include "platform/audio/decode/track_session.h"

#include <utility>

void TrackSession::Quit() {
    m_quit.store(true);
    const std::lock_guard lock(m_mutex);
    m_chunks.clear();
    m_work.notify_all();
}

void TrackSession::RequestSeek(std::int64_t frame) {
    const std::lock_guard lock(m_mutex);
    ++m_seek.Serial;
    m_seek.Frame = frame;
    m_chunks.clear();
    m_queuedSamples = 0;
    m_filling = true;
    m_starving = true;
    m_end = false;
    m_work.notify_all();
}

std::optional<TrackFacts> TrackSession::TakeFacts() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_facts, std::nullopt);
}

bool TrackSession::TakeRefusal() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_refused, false);
}

std::optional<std::int64_t> TrackSession::TakeScannedLength() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_scannedLength, std::nullopt);
}

std::optional<Chunk> TrackSession::TakeChunk() {
    const std::lock_guard lock(m_mutex);
    if (m_chunks.empty()) {
        m_starving = true;
        return std::nullopt;
    }
    Chunk chunk = std::move(m_chunks.front());
    m_chunks.pop_front();
    m_queuedSamples -= chunk.Samples.size();
    if (!m_filling && !m_end && m_queuedSamples <= m_queueLimit / 2) {
        m_filling = true;
        m_work.notify_all();
    }
    return chunk;
}

bool TrackSession::AtEnd() {
    const std::lock_guard lock(m_mutex);
    return m_end && m_chunks.empty();
}

bool TrackSession::ScanFailed() {
    const std::lock_guard lock(m_mutex);
    return m_scanFailed;
}

void TrackSession::SetFacts(TrackFacts facts, std::size_t queueFrames) {
    {
        const std::lock_guard lock(m_mutex);
        m_queueLimit = queueFrames * static_cast<std::size_t>(facts.Format.Channels);
        m_facts = std::move(facts);
    }
    m_bell->Ring();
}

void TrackSession::Refuse() {
    {
        const std::lock_guard lock(m_mutex);
        m_refused = true;
    }
    m_bell->Ring();
}

void TrackSession::SetScan(std::optional<LengthScan> scan) {
    {
        const std::lock_guard lock(m_mutex);
        m_scanFailed = !scan;
        if (scan) {
            m_scannedLength = scan->LengthFrames;
            m_index = std::move(scan->Index);
        }
    }
    m_bell->Ring();
}

std::optional<FrameIndex> TrackSession::TakeIndex() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_index, std::nullopt);
}

void TrackSession::Push(int serial, Chunk chunk) {
    {
        const std::lock_guard lock(m_mutex);
        if (serial != m_seek.Serial) return;
        if (chunk.Samples.empty()) {
            m_end = true;
        } else {
            m_queuedSamples += chunk.Samples.size();
            m_chunks.push_back(std::move(chunk));
            if (m_queuedSamples >= m_queueLimit) m_filling = false;
        }
        if (!m_starving) return;
        m_starving = false;
    }
    m_bell->Ring();
}

bool TrackSession::WantsChunk() const {
    return m_filling && !m_end;
}

bool TrackSession::WaitForWork(int serial, std::optional<SeekRequest>& seek) {
    std::unique_lock lock(m_mutex);
    m_work.wait(lock, [&] { return m_quit.load() || m_seek.Serial != serial || WantsChunk(); });
    if (m_quit.load()) return false;
    if (m_seek.Serial != serial) seek = m_seek;
    return true;
}
