// The one place where a track begins, and the steps through the list that lead there.
#pragma once

#include "state/velora.h"

/// Whether `StartTrack` starts the entry: it is filled, and of a kind that is played.
[[nodiscard]] bool IsPlayable(const MediaEntry& entry);

/// The name that runs through the title until the stream is known: `fileName` without its last four
/// characters, followed by " ... ". A name too short to be cut stands alone.
[[nodiscard]] Text DisplayName(TextView fileName);

/// The directories in which a relative path of the list is looked for, each ending in a backslash:
/// the current one, then those of the enabled playlists in the catalogue's order.
[[nodiscard]] std::vector<Text> LookInDirectories(const Velora& velora);

/// Stops what plays and starts the entry. Nothing happens for 0 and for an entry that isn't filled
/// or isn't of a kind that is played. Whether the player can play the file isn't known here.
void StartTrack(Velora& velora, Integer Index);

/// The entry behind `current` in a list of `count`; nothing in a list of 0 or 1 entries. Behind the
/// last, and behind 0, which is before the first track, comes the first.
[[nodiscard]] std::optional<Integer> IndexAfter(Integer current, Integer count);

/// The entry before `current`; nothing in an empty list. Before the first, and before 0, comes the
/// last. In a list of one entry that has been started it is 0, which starts nothing.
[[nodiscard]] std::optional<Integer> IndexBefore(Integer current, Integer count);

/// Stop, reset, wait, and start the next entry; with fewer than 2 entries nothing happens. Takes
/// about half a second with events running; a second step during it leads to the same entry, and a
/// file that is chosen during it counts. A listener of `ChooseStep` decides where it goes instead.
void NextTrack(Velora& velora);

/// The same backwards. With one entry the track stops.
void PreviousTrack(Velora& velora);
