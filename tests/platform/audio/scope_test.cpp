// The scope against tones whose spectrum is known: which lines raise which bar, how high, and how
// bars and peaks go down again.
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

#include "platform/audio/scope/audio_scope.h"

namespace {

class ScopeTest : public ::testing::Test {
protected:
    /// Shows a tone that falls on one line of the spectrum, from a sixth of its period on: so it
    /// has both a real and an imaginary part, and the last line, which gets both halves of its
    /// tone, is no louder.
    void Show(int rateHz, int line, double amplitude, std::int64_t atMs) {
        SampleFrame frame;
        frame.RateHz = rateHz;
        frame.AtMs = atMs;
        double turns = 1 / 6.0;
        for (float& sample : frame.Samples) {
            sample = float(amplitude * std::cos(2 * std::numbers::pi * turns));
            turns += line / double{SampleFrame::kCount};
        }
        Long number = m_ring.Put(frame);
        m_scope.ShowVisData(number);
    }

    SampleRing m_ring;
    ScopeBars m_bars;
    AudioScope m_scope{m_ring, m_bars};
};

} // namespace

TEST_F(ScopeTest, EachBandShowsTheLinesUpToTheNextAndALowOneAtLeastTheOneItLiesIn) {
    const std::array<int, ScopeBars::kCount> lines{
        6,   6,   7,   8,   9,   10,  12,  13,  15,  17,  19,  22,  24,   27,  31,  35,
        39,  44,  50,  56,  63,  71,  80,  90,  101, 114, 128, 144, 162,  182, 205, 230,
        258, 290, 326, 367, 412, 463, 520, 585, 657, 738, 829, 932, 1024, 0,   0,   0};
    std::array<int, ScopeBars::kCount> last{};
    for (int line = 1; line <= SampleFrame::kCount / 2; ++line) {
        m_bars = {};
        Show(22050, line, 1, 0);
        for (std::size_t band = 0; band < last.size(); ++band)
            if (m_bars.Level[band] > 0.95F) last[band] = line;
    }
    EXPECT_EQ(last, lines);
    // A number that names no frame draws nothing, nor the last frame again.
    m_bars = {};
    Long number = 9999;
    m_scope.ShowVisData(number);
    EXPECT_EQ(m_bars, ScopeBars());
}

TEST_F(ScopeTest, BarsRiseToTheirLoudnessAndFallByTheTimeThatPassesAndPeaksStayAndFallLater) {
    // The moment in ms, the amplitude, the bar and its peak.
    const std::tuple<std::string, int, double, double, double> rows[] = {
        {"below 60 decibels", 8900, 0.0009, 0, 0},
        {"a bar rises at once to its loudness", 8900, 0.1, 0.667, 0.667},
        {"beyond full scale", 8900, 1.5, 1, 1},
        {"a tone that stays begins its hold anew", 9000, 1.5, 1, 1},
        {"a tenth of a second", 9100, 0, 0.833, 1},
        {"a clock that went back", 9050, 0, 0.833, 1},
        {"a gap counts a fifth of a second", 9950, 0, 0.5, 1},
        {"it goes on", 10150, 0, 0.167, 1},
        {"held to the last of 700 ms", 10350, 0, 0, 1},
        {"and no longer", 10356, 0, 0, 0.995},
        {"a bar under its peak", 10471, 0.1, 0.667, 0.899},
        {"a bar above its peak", 10531, 0.5, 0.9, 0.9},
        {"is held from its end on", 10591, 0, 0.8, 0.9},
    };
    for (const auto& [what, atMs, amplitude, bar, peak] : rows) {
        Show(44100, 495, amplitude, atMs);
        EXPECT_NEAR(m_bars.Level[44], bar, 0.0006) << what;
        EXPECT_NEAR(m_bars.Peak[44], peak, 0.0006) << what;
    }
    for (int atMs = 12000; atMs < 16000; atMs += 150)
        Show(44100, 495, 0, atMs);
    EXPECT_EQ(m_bars, ScopeBars());
}
