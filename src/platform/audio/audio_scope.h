// The visualisation: frames of samples in, the heights of 48 bars out.
#pragma once

#include <array>
#include <memory>

#include "platform/audio/sample_ring.h"
#include "platform/scope.h"

/// Works out the spectrum of the frames that the player puts into the ring and keeps `bars` at what the
/// window layer should draw. Bars rise at once and fall slowly; a peak stays for a moment and drops.
class AudioScope : public Scope {
public:
    /// Both outlive the scope. `bars` is written by `ShowVisData` alone.
    AudioScope(const SampleRing& ring, ScopeBars& bars);
    ~AudioScope() override;

    void ShowVisData(Long& VisData) override;

private:
    struct Transform;

    void FindEdges(int rateHz);
    void Follow(const std::array<float, ScopeBars::kCount>& heights, float seconds);

    const SampleRing& m_ring;
    ScopeBars& m_bars;
    std::unique_ptr<Transform> m_transform;
    SampleFrame m_frame;
    int m_edgesRateHz = 0;
    std::array<std::size_t, ScopeBars::kCount + 1> m_edges{}; ///< The line that each band begins with.
    std::array<float, ScopeBars::kCount> m_peakHeldS{};
    std::int64_t m_lastMs = 0;
};
