// Which entry of the list comes next, and the way that was taken so far.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "platform/numbers.h"

/// Why another entry is wanted.
enum class StepCause {
    Ended,    ///< The track was played to its end, or couldn't be played.
    Forward,  ///< The user wants the next one.
    Backward, ///< The user wants the one before.
};

/// The entries that were started, in their order. It keeps the last 2,500.
struct PlayWay {
    std::vector<Integer> Entries;
    std::size_t At = 0;      ///< How many of them lie up to the one that was started last.
    std::vector<bool> Heard; ///< By entry: started since the last time that all were.

    bool operator==(const PlayWay&) const = default;
};

/// All that the next entry depends on.
struct StepQuestion {
    StepCause Cause = StepCause::Forward;
    Integer Current = 0; ///< The entry started last, 0 before the first.
    Integer Count = 0;
    bool Repeat = false, Shuffle = false;
    std::function<bool(Integer)> IsPlayable; ///< For 1 to `Count`.
    std::uint32_t Random = 0;                ///< Chooses where chance has to.
};

/// Where a step goes.
struct StepGoal {
    Integer Entry = 0;     ///< 0 starts nothing: the track stops.
    std::size_t At = 0;    ///< The place on the way that the entry has; 0 for a new one at its end.
    bool NewRound = false; ///< All have been heard: from here on each may come again.

    bool operator==(const StepGoal&) const = default;
};

/// The next entry that can be played; nothing for no step at all, as at the end of the list. The
/// hand goes round the ends of the list, the end of a track only if `Repeat` says so. With
/// `Shuffle` backward and forward follow the way, and behind its end comes one of those that
/// weren't heard. Backward where nothing lies before starts the same entry again with `Shuffle`;
/// without, and with no other entry, it stops.
[[nodiscard]] std::optional<StepGoal> NextEntry(const StepQuestion& question, const PlayWay& way);

/// Notes that `entry` was started: at a place of the way, if a step with `goal` led there,
/// otherwise behind the place where the way was left.
void NoteStarted(PlayWay& way, Integer entry, const std::optional<StepGoal>& goal);

/// From now on only `current`, if it isn't 0, counts as heard.
void BeginRound(PlayWay& way, Integer current);
