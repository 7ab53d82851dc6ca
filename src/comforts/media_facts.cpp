// All of it is decided by numbers alone.
#include "comforts/media_facts.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int kStepPercents[] = {0, 30, 40, 60, 70, 90, 100};
constexpr std::int64_t kUsPerMs = 1000;

bool SameMetadata(const MediaFacts& one, const MediaFacts& other) {
    return one.Track == other.Track && one.Title == other.Title && one.Artist == other.Artist &&
           one.Album == other.Album && one.Address == other.Address &&
           one.LengthMs == other.LengthMs;
}

} // namespace

MediaStatus StatusOf(const StatusFacts& facts) {
    if (facts.State == PlayerState::Paused) return MediaStatus::Paused;
    if (facts.State != PlayerState::Stopped || facts.IsHeard || facts.Steps)
        return MediaStatus::Playing;
    return MediaStatus::Stopped;
}

std::vector<MediaProperty> ChangedProperties(const MediaFacts& before, const MediaFacts& now) {
    using enum MediaProperty;
    const bool steps = before.CanStep != now.CanStep, plays = before.CanPlay != now.CanPlay;
    const std::pair<MediaProperty, bool> properties[] = {
        {PlaybackStatus, before.Status != now.Status},
        {LoopStatus, before.Repeat != now.Repeat},
        {Shuffle, before.Shuffle != now.Shuffle},
        {Metadata, !SameMetadata(before, now)},
        {Volume, before.VolumePercent != now.VolumePercent},
        {CanGoNext, steps},
        {CanGoPrevious, steps},
        {CanPlay, plays},
        {CanPause, plays},
        {CanSeek, before.CanSeek != now.CanSeek},
    };
    std::vector<MediaProperty> changed;
    for (const auto& [property, differs] : properties)
        if (differs) changed.push_back(property);
    return changed;
}

SeekPlan PlanSeek(Long placeMs, Long lengthMs, std::int64_t distanceUs) {
    const std::int64_t goalMs = placeMs + distanceUs / kUsPerMs;
    if (lengthMs > 0 && goalMs > lengthMs) return {true, 0};
    return {false, FitInto<Long>(std::max<std::int64_t>(goalMs, 0) - placeMs).value_or(0)};
}

SeekPlan PlanPosition(Long placeMs, Long lengthMs, std::int64_t goalUs) {
    if (goalUs < 0 || goalUs / kUsPerMs > lengthMs) return {};
    return {false, static_cast<Long>(goalUs / kUsPerMs - placeMs)};
}

Integer StepNearest(double percent) {
    const auto* const nearest = std::min_element(
        std::begin(kStepPercents), std::end(kStepPercents),
        [&](int one, int other) { return std::abs(percent - one) < std::abs(percent - other); });
    return static_cast<Integer>(nearest - std::begin(kStepPercents) + 1);
}

Text TitleOfFile(TextView file) {
    // In a playlist's line with slashes the name is all of the line.
    file.remove_prefix(file.rfind(u'/') + 1);
    const std::size_t point = file.rfind(u'.');
    return Text(point == TextView::npos || point == 0 ? file : file.substr(0, point));
}
