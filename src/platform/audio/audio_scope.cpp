// Each bar is the loudest line of the spectrum between its two edges, on a scale of decibels.
#include "platform/audio/audio_scope.h"

#include <algorithm>
#include <cmath>
#include <kiss_fftr.h>
#include <numbers>
#include <vector>

namespace {

constexpr double kLowestHz = 60;
constexpr double kHighestHz = 16000;
constexpr float kHeightDb = 60;
/// A bar falls its whole height in this time.
constexpr float kFallSeconds = 0.6F;
constexpr float kPeakHoldSeconds = 0.7F;
constexpr float kPeakFallSeconds = 1.2F;
/// Between frames that lie further apart than this, the bars have simply been standing.
constexpr std::int64_t kLongestStepMs = 200;
constexpr std::size_t kBins = SampleFrame::kCount / 2 + 1;

double EdgeHz(int band) {
    return kLowestHz * std::pow(kHighestHz / kLowestHz, static_cast<double>(band) / ScopeBars::kCount);
}

float HeightOf(float amplitude) {
    if (amplitude <= 0) return 0;
    return std::clamp(1 + 20 * std::log10(amplitude) / kHeightDb, 0.0F, 1.0F);
}

} // namespace

/// The transform with its window; a tone of full scale comes out as 1.
struct AudioScope::Transform {
    Transform()
        : Plan(kiss_fftr_alloc(SampleFrame::kCount, 0, nullptr, nullptr)), Window(SampleFrame::kCount) {
        for (std::size_t i = 0; i < Window.size(); ++i)
            Window[i] = static_cast<float>(
                0.5 - 0.5 * std::cos(2 * std::numbers::pi * static_cast<double>(i) / SampleFrame::kCount));
    }
    ~Transform() { kiss_fftr_free(Plan); }
    Transform(const Transform&) = delete;
    Transform& operator=(const Transform&) = delete;

    void Work(const SampleFrame& frame) {
        for (std::size_t i = 0; i < Window.size(); ++i)
            Windowed[i] = frame.Samples[i] * Window[i];
        kiss_fftr(Plan, Windowed.data(), Spectrum.data());
    }

    [[nodiscard]] float Loudest(std::size_t first, std::size_t last) const {
        float power = 0;
        for (std::size_t i = first; i < last; ++i)
            power = std::max(power, Spectrum[i].r * Spectrum[i].r + Spectrum[i].i * Spectrum[i].i);
        return std::sqrt(power) * 4 / SampleFrame::kCount;
    }

    kiss_fftr_cfg Plan;
    std::vector<float> Window;
    std::array<float, SampleFrame::kCount> Windowed{};
    std::array<kiss_fft_cpx, kBins> Spectrum{};
};

AudioScope::AudioScope(const SampleRing& ring, ScopeBars& bars)
    : m_ring(ring), m_bars(bars), m_transform(std::make_unique<Transform>()) {}

AudioScope::~AudioScope() = default;

void AudioScope::ShowVisData(Long& VisData) {
    if (!m_transform->Plan || !m_ring.Take(VisData, m_frame)) return;
    m_transform->Work(m_frame);
    FindEdges(m_frame.RateHz);
    std::array<float, ScopeBars::kCount> heights{};
    for (std::size_t band = 0; band < heights.size(); ++band) {
        const std::size_t last = std::min(std::max(m_edges[band] + 1, m_edges[band + 1]), kBins);
        heights[band] = HeightOf(m_transform->Loudest(m_edges[band], last));
    }
    const std::int64_t stepMs = std::clamp<std::int64_t>(m_frame.AtMs - m_lastMs, 0, kLongestStepMs);
    m_lastMs = m_frame.AtMs;
    Follow(heights, static_cast<float>(stepMs) / 1000);
}

void AudioScope::FindEdges(int rateHz) {
    if (rateHz == m_edgesRateHz) return;
    m_edgesRateHz = rateHz;
    for (std::size_t band = 0; band < m_edges.size(); ++band) {
        const double bin = EdgeHz(static_cast<int>(band)) * SampleFrame::kCount / std::max(1, rateHz);
        m_edges[band] = static_cast<std::size_t>(std::clamp(bin + 0.5, 1.0, static_cast<double>(kBins)));
    }
}

void AudioScope::Follow(const std::array<float, ScopeBars::kCount>& heights, float seconds) {
    for (std::size_t band = 0; band < heights.size(); ++band) {
        float& level = m_bars.Level[band];
        float& peak = m_bars.Peak[band];
        level = std::max(heights[band], level - seconds / kFallSeconds);
        if (level >= peak) {
            peak = level;
            m_peakHeldS[band] = 0;
            continue;
        }
        m_peakHeldS[band] += seconds;
        if (m_peakHeldS[band] > kPeakHoldSeconds) peak = std::max(level, peak - seconds / kPeakFallSeconds);
    }
}
