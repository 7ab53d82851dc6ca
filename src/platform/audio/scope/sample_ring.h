// What the player lets be heard, handed on to the scope: a few frames of samples, known by number.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <mutex>

#include "platform/numbers.h"

/// A piece of the sound around the moment that is heard, mixed down to one channel, before the
/// volume.
struct SampleFrame {
    static constexpr int kCount = 2048;
    std::array<float, kCount> Samples{}; ///< -1 to 1; the moment that is heard is in the middle.
    int RateHz = 44100;
    std::int64_t AtMs = 0; ///< When it was heard, on a clock that never jumps.
};

/// Shared by the player's thread, which puts frames in, and the scope on the loop's. Any thread may
/// call anything.
class SampleRing {
public:
    /// Whether the scope can be seen. Starts at false; while it is false the player puts no frames
    /// in.
    void SetVisibility(bool visible) { m_visible.store(visible, std::memory_order_relaxed); }
    [[nodiscard]] bool IsVisible() const { return m_visible.load(std::memory_order_relaxed); }

    /// Keeps a copy of `frame` in the place of the oldest one and gives its number, from 1 on.
    Long Put(const SampleFrame& frame);

    /// Copies frame `number` into `frame`. False, and `frame` as it was, if the ring doesn't hold
    /// it (any more).
    [[nodiscard]] bool Take(Long number, SampleFrame& frame) const;

private:
    /// Those that are given ahead, and some that are being drawn.
    static constexpr std::size_t kSlots = 16;

    std::atomic<bool> m_visible{false};
    mutable std::mutex m_mutex;
    Long m_last = 0;
    std::array<SampleFrame, kSlots> m_slots;
};
