// The scope against tones whose spectrum is known: which lines raise which bar, how high, and how bars and
// peaks go down again.
#include <cmath>
#include <gtest/gtest.h>
#include <iomanip>
#include <numbers>
#include <sstream>

#include "platform/audio/audio_scope.h"

namespace {

class ScopeTest : public ::testing::Test {
protected:
    /// Shows a tone that falls on one line of the spectrum, from `turn` of its period on.
    void Show(int rateHz, int line, double amplitude, std::int64_t atMs, double turn) {
        SampleFrame frame;
        frame.RateHz = rateHz;
        frame.AtMs = atMs;
        int at = 0;
        for (float& sample : frame.Samples)
            sample = static_cast<float>(
                amplitude * std::cos(2 * std::numbers::pi *
                                     (turn + static_cast<double>(line) * at++ / SampleFrame::kCount)));
        Long number = m_ring.Put(frame);
        m_scope.ShowVisData(number);
    }

    SampleRing m_ring;
    ScopeBars m_bars;
    AudioScope m_scope{m_ring, m_bars};
};

} // namespace

TEST_F(ScopeTest, EachBandShowsTheLinesUpToTheNextAndALowOneAtLeastTheOneItLiesIn) {
    const std::pair<int, std::string> rows[] = {
        {11025, "12 13 15 17 19 21 24 27 31 35 39 44 50 56 63 71 80 90 101 113 127 143 161 181 203 229 "
                "257 289 325 365 410 461 518 582 654 734 825 927 1024 0 0 0 0 0 0 0 0 0 "},
        {44100, "3 3 4 4 4 5 6 6 7 8 9 10 12 13 15 17 19 22 24 28 31 35 40 45 50 56 64 71 80 90 102 114 "
                "129 145 163 183 206 231 260 292 328 369 414 465 523 588 660 742 "},
    };
    for (const auto& [rateHz, lines] : rows) {
        std::array<int, ScopeBars::kCount> last{};
        for (int line = 1; line <= SampleFrame::kCount / 2; ++line) {
            m_bars = {};
            // The last line gets both halves of its tone.
            Show(rateHz, line, line == SampleFrame::kCount / 2 ? 0.5 : 1, 0, 0);
            for (std::size_t band = 0; band < last.size(); ++band)
                if (m_bars.Level[band] > 0.95F) last[band] = line;
        }
        std::ostringstream dump;
        for (const int line : last)
            dump << line << ' ';
        EXPECT_EQ(dump.str(), lines) << rateHz;
    }
}

TEST_F(ScopeTest, BarsRiseToTheirLoudnessAndFallByTheTimeThatPassesAndPeaksStayAndFallLater) {
    // The moment in ms, the amplitude, and the bars that don't rest with their peaks.
    const std::tuple<std::string, int, double, std::string> rows[] = {
        {"below 60 decibels", 9000, 0.0009, ""},
        {"a bar rises at once", 9000, 0.0013, "44:0.038/0.038 "},
        {"to its loudness", 9000, 0.1, "44:0.667/0.667 "},
        {"beyond full scale", 9000, 1.5, "44:1.000/1.000 "},
        {"a tenth of a second", 9100, 0, "44:0.833/1.000 "},
        {"no time", 9100, 0, "44:0.833/1.000 "},
        {"a clock that went back", 9050, 0, "44:0.833/1.000 "},
        {"a gap counts a fifth of a second", 9950, 0, "44:0.500/1.000 "},
        {"it goes on", 10150, 0, "44:0.167/1.000 "},
        {"held to the last of 700 ms", 10350, 0, "44:0.000/1.000 "},
        {"and no longer", 10356, 0, "44:0.000/0.995 "},
        {"a peak falls in its own time", 10470, 0, "44:0.000/0.900 "},
        {"a bar under its peak", 10471, 0.1, "44:0.667/0.899 "},
        {"a bar above its peak", 10531, 0.5, "44:0.900/0.900 "},
        {"a tone that stays", 10731, 0.5, "44:0.900/0.900 "},
        {"for longer", 10931, 0.5, "44:0.900/0.900 "},
        {"than a peak is held", 11131, 0.5, "44:0.900/0.900 "},
        {"and a while yet", 11331, 0.5, "44:0.900/0.900 "},
        {"is held from its end on", 11391, 0, "44:0.800/0.900 "},
    };
    for (const auto& [what, atMs, amplitude, bars] : rows) {
        Show(44100, 495, amplitude, atMs, 0.31);
        std::ostringstream dump;
        for (std::size_t band = 0; band < ScopeBars::kCount; ++band)
            if (m_bars.Level[band] != 0 || m_bars.Peak[band] != 0)
                dump << std::fixed << std::setprecision(3) << band << ':' << m_bars.Level[band] << '/'
                     << m_bars.Peak[band] << ' ';
        EXPECT_EQ(dump.str(), bars) << what;
    }
    for (int atMs = 12000; atMs < 16000; atMs += 150)
        Show(44100, 495, 0, atMs, 0);
    EXPECT_EQ(m_bars, ScopeBars());
    // A number that names no frame draws nothing, nor the last frame again.
    Show(44100, 495, 1, 16000, 0);
    m_bars = {};
    Long number = 99;
    m_scope.ShowVisData(number);
    EXPECT_EQ(m_bars, ScopeBars());
}
