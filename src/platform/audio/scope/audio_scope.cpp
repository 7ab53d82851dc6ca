// Each bar is the loudest line of the spectrum between its two edges, on a scale of decibels.
#include "platform/audio/scope/audio_scope.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <kiss_fftr.h>
#include <numbers>
#include <utility>

namespace {

constexpr double kLowestHz = 60;
constexpr double kHighestHz = 16000;
constexpr float kHeightDb = 60;
/// A bar falls its whole height in this time.
constexpr float kFallMs = 600;
constexpr std::int64_t kPeakHoldMs = 700;
constexpr float kPeakFallMs = 1200;
/// Between frames that lie further apart than this, the bars have simply been standing.
constexpr std::int64_t kLongestStepMs = 200;
constexpr std::size_t kLines = SampleFrame::kCount / 2 + 1;

/// The line of the spectrum that `band` begins with.
std::size_t FirstLine(std::size_t band, int rateHz) {
    const double hz =
        kLowestHz * std::pow(kHighestHz / kLowestHz, static_cast<double>(band) / ScopeBars::kCount);
    return static_cast<std::size_t>(
        std::min(hz * SampleFrame::kCount / rateHz + 0.5, static_cast<double>(kLines)));
}

float HeightOf(float amplitude) {
    return std::clamp(1 + 20 * std::log10(amplitude) / kHeightDb, 0.0F, 1.0F);
}

} // namespace

/// The transform with its window; a tone of full scale comes out as 1.
struct AudioScope::Transform {
    Transform() : Plan(kiss_fftr_alloc(SampleFrame::kCount, 0, nullptr, nullptr)) {
        int at = 0;
        for (float& factor : Window)
            factor = static_cast<float>(
                0.5 - 0.5 * std::cos(2 * std::numbers::pi * at++ / SampleFrame::kCount));
    }
    ~Transform() { kiss_fftr_free(Plan); }
    Transform(const Transform&) = delete;
    Transform& operator=(const Transform&) = delete;

    void Work(const SampleFrame& frame) {
        std::transform(Window.begin(), Window.end(), frame.Samples.begin(), Windowed.begin(),
                       std::multiplies());
        kiss_fftr(Plan, Windowed.data(), Spectrum.data());
    }

    /// Reckons the edges of the bands at a rate, unless it is the one of the last frame.
    void TakeRate(int rateHz) {
        if (std::exchange(RateHz, rateHz) == rateHz) return;
        for (std::size_t band = 0; band < Edges.size(); ++band)
            Edges[band] = FirstLine(band, rateHz);
    }

    [[nodiscard]] float Loudest(std::size_t first, std::size_t last) const {
        float power = 0;
        for (std::size_t i = first; i < last; ++i)
            power = std::max(power, Spectrum[i].r * Spectrum[i].r + Spectrum[i].i * Spectrum[i].i);
        return std::sqrt(power) * 4 / SampleFrame::kCount;
    }

    kiss_fftr_cfg Plan;
    std::array<float, SampleFrame::kCount> Window{};
    std::array<float, SampleFrame::kCount> Windowed{};
    std::array<kiss_fft_cpx, kLines> Spectrum{};
    int RateHz = 0;
    std::array<std::size_t, ScopeBars::kCount + 1> Edges{};
};

AudioScope::AudioScope(const SampleRing& ring, ScopeBars& bars)
    : m_ring(ring), m_bars(bars), m_transform(std::make_unique<Transform>()) {}

AudioScope::~AudioScope() = default;

void AudioScope::ShowVisData(Long& VisData) {
    if (!m_transform->Plan || !m_ring.Take(VisData, m_frame)) return;
    m_transform->Work(m_frame);
    m_transform->TakeRate(m_frame.RateHz);
    std::array<float, ScopeBars::kCount> heights{};
    for (std::size_t band = 0; band < heights.size(); ++band) {
        const std::size_t first = m_transform->Edges[band];
        // Low bands are narrower than a line, and those above half the rate have none.
        const std::size_t end = std::min(std::max(first + 1, m_transform->Edges[band + 1]), kLines);
        heights[band] = HeightOf(m_transform->Loudest(first, end));
    }
    const std::int64_t stepMs =
        std::clamp<std::int64_t>(m_frame.AtMs - m_lastMs, 0, kLongestStepMs);
    m_lastMs = m_frame.AtMs;
    Follow(heights, stepMs);
}

void AudioScope::Follow(const std::array<float, ScopeBars::kCount>& heights, std::int64_t stepMs) {
    const auto ms = static_cast<float>(stepMs);
    for (std::size_t band = 0; band < heights.size(); ++band) {
        float& level = m_bars.Level[band];
        float& peak = m_bars.Peak[band];
        level = std::max(heights[band], level - ms / kFallMs);
        if (level >= peak) {
            peak = level;
            m_peakHeldMs[band] = 0;
            continue;
        }
        m_peakHeldMs[band] += stepMs;
        if (m_peakHeldMs[band] > kPeakHoldMs) peak = std::max(level, peak - ms / kPeakFallMs);
    }
}
