// The open-file dialog as the system uses it, and the rows of its three lists of file types.
#pragma once

#include <vector>

#include "state/velora.h"

/// Fills the three filters. Called once, before anything asks for a file.
void InitialiseFilters(std::vector<FilterRow>& MediaFilter, std::vector<FilterRow>& PlaylistFilter,
                       std::vector<FilterRow>& SkinFilter);

/// Lets the user choose one existing file: its full path, or the empty text if the user cancels or
/// the dialog fails. After a choice the directory of the file is the current one. An empty
/// `Directory` is left to the dialogs, which open in the user's music folder and, once a file was
/// chosen, in that file's directory. As with a message, no control has the mouse afterwards.
[[nodiscard]] Text OpenFileDialog(Velora& velora, const std::vector<FilterRow>& Filter,
                                  const Text& Title, const Text& Directory);
