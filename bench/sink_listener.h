// When the first sound is at the sink.
#pragma once

#include <atomic>
#include <cstdint>
#include <pulse/simple.h>
#include <thread>
#include <time.h>

inline double NowMs() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

/// Reads what the sink plays from its monitor, in pieces of 2 ms, until there is a sound.
class SinkListener {
public:
    bool Start() {
        const pa_sample_spec format{PA_SAMPLE_S16LE, 44100, 2};
        const pa_buffer_attr pieces{~0u, ~0u, ~0u, ~0u, kPieceBytes};
        m_stream = pa_simple_new(nullptr, "bench", PA_STREAM_RECORD, "out.monitor", "bench",
                                 &format, nullptr, &pieces, nullptr);
        if (!m_stream) return false;
        Read();
        m_thread = std::thread([this] {
            while (FirstMs < 0 && !Quit)
                Read();
        });
        return true;
    }
    void Stop() {
        Quit = true;
        if (m_thread.joinable()) m_thread.join();
    }
    int Threshold = 0;               ///< What is louder is a sound.
    std::atomic<double> FirstMs{-1}; ///< When the first sound was there; below 0 before.
    std::atomic<bool> Quit{false};

private:
    static constexpr unsigned kPieceBytes = 88 * 4;

    void Read() {
        std::int16_t piece[kPieceBytes / 2];
        if (pa_simple_read(m_stream, piece, sizeof piece, nullptr) < 0) {
            Quit = true;
            return;
        }
        const double endMs = NowMs();
        for (unsigned at = 0; at < kPieceBytes / 2; ++at)
            if (piece[at] > Threshold || piece[at] < -Threshold) {
                FirstMs = endMs - (kPieceBytes / 2 - at) / 88.2;
                return;
            }
    }

    pa_simple* m_stream = nullptr;
    std::thread m_thread;
};
