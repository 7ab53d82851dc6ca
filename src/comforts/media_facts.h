// What the desktop's media controls are told, and what their requests come to.
#pragma once

#include <vector>

#include "platform/media_bus.h"
#include "state/velora.h"

/// What a status is made of.
struct StatusFacts {
    PlayerState State = PlayerState::Stopped;
    bool IsHeard = false; ///< The display has stopped, the sound hasn't.
    bool Steps = false;   ///< A step from one track to the next is under way.
};

/// The display stops a little before the end of a track, and between two tracks; to the desktop
/// both are playing.
[[nodiscard]] MediaStatus StatusOf(const StatusFacts& facts);

/// The properties in which two facts differ, in the order of `MediaProperty`.
[[nodiscard]] std::vector<MediaProperty> ChangedProperties(const MediaFacts& before,
                                                           const MediaFacts& now);

/// What a wish to be elsewhere in the track comes to.
struct SeekPlan {
    bool Next = false;   ///< The place lies behind the end: a step to the next track.
    Long DistanceMs = 0; ///< How far to go from the present place.

    bool operator==(const SeekPlan&) const = default;
};

/// By a distance: before the beginning is the beginning, behind the end the next track.
[[nodiscard]] SeekPlan PlanSeek(Long placeMs, Long lengthMs, std::int64_t distanceUs);

/// To a place; one outside the track is none.
[[nodiscard]] SeekPlan PlanPosition(Long placeMs, Long lengthMs, std::int64_t goalUs);

/// The step of the volume, 1 to 7, whose percentage is nearest; of two the lower one.
[[nodiscard]] Integer StepNearest(double percent);

/// The title that stands in for a tag's: the file's name without its extension.
[[nodiscard]] Text TitleOfFile(TextView file);
