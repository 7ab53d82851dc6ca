// The visualisation: frames of samples in, the heights of 48 bars out.
#pragma once

#include <array>
#include <memory>

#include "platform/audio/scope/sample_ring.h"
#include "platform/scope.h"

/// Works out the spectrum of the frames that the player puts into the ring and keeps `bars` at what
/// the window layer should draw. Bars rise at once and fall slowly; a peak stays for a moment
/// before it falls.
class AudioScope : public Scope {
public:
    /// Both outlive the scope. `bars` is written by `ShowVisData` alone.
    AudioScope(const SampleRing& ring, ScopeBars& bars);
    ~AudioScope() override;

    void ShowVisData(Long& VisData) override;

private:
    struct Transform;

    void Follow(const std::array<float, ScopeBars::kCount>& heights, std::int64_t stepMs);

    const SampleRing& m_ring;
    ScopeBars& m_bars;
    std::unique_ptr<Transform> m_transform;
    SampleFrame m_frame;
    std::array<std::int64_t, ScopeBars::kCount> m_peakHeldMs{};
    std::int64_t m_lastMs = 0;
};
