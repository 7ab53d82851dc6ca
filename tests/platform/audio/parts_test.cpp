// The small parts of the player that need neither threads nor files.
#include <cmath>
#include <gtest/gtest.h>
#include <numeric>

#include "platform/audio/audio_scope.h"
#include "platform/audio/clock_output.h"
#include "platform/audio/play_history.h"
#include "platform/audio/volume_ramp.h"

namespace {

TEST(VolumeRampTest, FullVolumeLeavesEverySampleAndSilenceNone) {
    std::vector<std::int16_t> samples = {-32768, -1, 0, 1, 32767, 12345};
    const std::vector<std::int16_t> before = samples;
    VolumeRamp ramp;
    ramp.Apply(0, 2, samples);
    EXPECT_EQ(samples, before);
    ramp.Set(VolumeRamp::FactorOf(0));
    ramp.Apply(0, 2, samples);
    EXPECT_EQ(samples, std::vector<std::int16_t>(6, 0));
}

TEST(VolumeRampTest, PercentIsAmplitude) {
    std::vector<std::int16_t> samples = {10000, -10000, -32768, 32767};
    VolumeRamp ramp;
    ramp.Set(VolumeRamp::FactorOf(30));
    ramp.Apply(0, 1, samples);
    EXPECT_EQ(samples, (std::vector<std::int16_t>{3000, -3000, -9830, 9830}));
    EXPECT_EQ(VolumeRamp::FactorOf(-5), 0);
    EXPECT_EQ(VolumeRamp::FactorOf(500), VolumeRamp::kFull);
}

TEST(VolumeRampTest, AChangeHasNoStepEvenWithinAnother) {
    VolumeRamp ramp;
    ramp.Change(1000, VolumeRamp::FactorOf(0), 441);
    ramp.Change(1200, VolumeRamp::FactorOf(90), 441);
    std::vector<std::int16_t> samples(4000, 20000);
    ramp.Apply(1200, 1, samples);
    for (std::size_t i = 1; i < samples.size(); ++i)
        ASSERT_LE(std::abs(samples[i] - samples[i - 1]), 50);
    EXPECT_EQ(samples.back(), 18000);
}

TEST(PlayHistoryTest, KeepsTheLastSecondsAcrossItsWrap) {
    const SoundFormat format{100, 2};
    PlayHistory history;
    history.Restart(format, 7);
    std::vector<std::int16_t> samples(2 * 300);
    for (int round = 0; round < 5; ++round) {
        std::iota(samples.begin(), samples.end(), static_cast<std::int16_t>(round * 600));
        history.Append(samples);
    }
    EXPECT_EQ(history.End(), 1507);
    EXPECT_EQ(history.Begin(), 1507 - 100 * PlayHistory::kSeconds);
    for (std::int64_t frame = history.Begin(); frame < history.End();) {
        const std::span<const std::int16_t> part = history.From(frame, 1000);
        ASSERT_FALSE(part.empty());
        EXPECT_EQ(part[0], (frame - 7) * 2);
        frame += static_cast<std::int64_t>(part.size()) / 2;
    }
    EXPECT_TRUE(history.From(history.End(), 10).empty());
}

TEST(ClockOutputTest, TimePassesOnlyOverWhatWasWrittenAndNotWhileHeld) {
    ClockOutput clock(1);
    clock.Open({1000, 1}, "", 0);
    const std::vector<std::int16_t> second(1000);
    EXPECT_EQ(clock.WritableFrames(0), kAheadMs);
    clock.Write(second, 0);
    EXPECT_EQ(clock.HeardFrames(300'000), 300);
    clock.Hold(true, 300'000);
    EXPECT_EQ(clock.HeardFrames(900'000), 300);
    clock.Hold(false, 900'000);
    EXPECT_EQ(clock.HeardFrames(5'000'000), 1000);
    // It ran dry; what comes later is heard from then on.
    clock.Write(second, 6'000'000);
    EXPECT_EQ(clock.HeardFrames(6'100'000), 1100);
    clock.Drop(6'100'000);
    EXPECT_EQ(clock.HeardFrames(7'000'000), 0);
}

TEST(SampleRingTest, OldNumbersNameNothing) {
    SampleRing ring;
    SampleFrame frame;
    EXPECT_FALSE(ring.Take(0, frame));
    EXPECT_FALSE(ring.Take(1, frame));
    EXPECT_FALSE(ring.Take(-5, frame));
    const Long first = ring.Put(frame);
    EXPECT_TRUE(ring.Take(first, frame));
    for (int i = 0; i < 20; ++i)
        ring.Put(frame);
    EXPECT_FALSE(ring.Take(first, frame));
    EXPECT_TRUE(ring.Take(first + 20, frame));
}

SampleFrame Tone(double hz, float amplitude, std::int64_t atMs) {
    SampleFrame frame;
    frame.AtMs = atMs;
    for (std::size_t i = 0; i < frame.Samples.size(); ++i)
        frame.Samples[i] =
            amplitude *
            static_cast<float>(std::sin(2 * 3.14159265 * hz * static_cast<double>(i) / frame.RateHz));
    return frame;
}

TEST(AudioScopeTest, AToneRaisesItsOwnBarToItsLoudness) {
    SampleRing ring;
    ScopeBars bars;
    AudioScope scope(ring, bars);
    Long number = ring.Put(Tone(1000, 1, 0));
    scope.ShowVisData(number);
    const auto highest = std::max_element(bars.Level.begin(), bars.Level.end()) - bars.Level.begin();
    const double band = std::log(1000.0 / 60) / std::log(16000.0 / 60) * ScopeBars::kCount;
    EXPECT_NEAR(static_cast<double>(highest), band, 1);
    EXPECT_GT(bars.Level[static_cast<std::size_t>(highest)], 0.97F);
    EXPECT_LT(bars.Level[0], 0.1F);
    EXPECT_LT(bars.Level[ScopeBars::kCount - 1], 0.1F);
}

TEST(AudioScopeTest, BarsFallSlowlyPeaksHoldAndAStaleNumberDrawsNothing) {
    SampleRing ring;
    ScopeBars bars;
    AudioScope scope(ring, bars);
    Long number = ring.Put(Tone(1000, 1, 0));
    scope.ShowVisData(number);
    const std::size_t top =
        static_cast<std::size_t>(std::max_element(bars.Level.begin(), bars.Level.end()) - bars.Level.begin());
    const float first = bars.Level[top];
    number = ring.Put(Tone(1000, 0, 100));
    scope.ShowVisData(number);
    EXPECT_LT(bars.Level[top], first);
    EXPECT_GT(bars.Level[top], first / 2);
    EXPECT_EQ(bars.Peak[top], first);
    for (int i = 2; i < 40; ++i) {
        number = ring.Put(Tone(1000, 0, i * 100));
        scope.ShowVisData(number);
    }
    EXPECT_EQ(bars, ScopeBars());
    const ScopeBars before = bars;
    Long stale = number - 30;
    scope.ShowVisData(stale);
    EXPECT_EQ(bars, before);
}

} // namespace
