// How the samples that are heard come from the player to the scope: as frames with a number.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <mutex>

#include "platform/numbers.h"

/// The sound around one moment: mixed down to one channel, and as the file has it, whatever the
/// volume is.
struct SampleFrame {
    static constexpr int kCount = 2048;
    std::array<float, kCount> Samples{}; ///< -1 to 1; the moment is in the middle.
    int RateHz = 44100;
    std::int64_t AtMs = 0; ///< The moment when it is heard, by a clock that never jumps.
};

/// Shared by the player's thread, which puts frames in, and the scope on the loop's. Any thread may
/// call anything.
class SampleRing {
public:
    /// Whether the scope can be seen. Starts at false; while it is false the player puts no frames
    /// in.
    void SetVisibility(bool visible) { m_visible.store(visible, std::memory_order_relaxed); }
    [[nodiscard]] bool IsVisible() const { return m_visible.load(std::memory_order_relaxed); }

    /// Keeps a copy of `frame`, in the place of the oldest one, and returns its number, from 1 on.
    Long Put(const SampleFrame& frame);

    /// Copies frame `number` into `frame`. False, and `frame` as it was, if the ring doesn't hold
    /// it (any more).
    [[nodiscard]] bool Take(Long number, SampleFrame& frame) const;

private:
    /// Twice as many as wait for their moment at a time, so that none is overwritten before it is
    /// drawn.
    static constexpr std::size_t kSlots = 16;

    std::atomic<bool> m_visible{false};
    mutable std::mutex m_mutex;
    Long m_last = 0;
    std::array<SampleFrame, kSlots> m_slots;
};
