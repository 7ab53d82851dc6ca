// Entering many files at once: dropped ones, those of a folder, those of a playlist that isn't in
// the catalogue.
#pragma once

#include "state/velora.h"

/// What came of it.
struct EnteredFiles {
    Integer First = 0;    ///< The first entry of them that can be played, new or not; 0 for none.
    bool IsFull = false;  ///< There was no room for all.
    bool IsKnown = false; ///< At least one was of a kind that the list takes.

    bool operator==(const EnteredFiles&) const = default;
};

/// Enters each path: a playlist's lines, the files of a folder in the order of their names without
/// regard to case, else the file itself. Kinds that the list doesn't take are passed over; as ever,
/// a name that is in the list already stands for the entry that has it. No message is shown.
[[nodiscard]] EnteredFiles EnterPaths(Velora& velora, const std::vector<Text>& paths);

/// The paths of a playlist's lines. Comments and empty lines are left out; a relative path counts
/// from `directory`, which ends in a backslash. Slashes and backslashes separate alike, and
/// addresses of files are taken, too.
[[nodiscard]] std::vector<Text> PathsOfPlaylist(std::string_view bytes, const Text& directory);

/// Whether the name ends as a playlist's does.
[[nodiscard]] bool IsPlaylist(TextView path);
