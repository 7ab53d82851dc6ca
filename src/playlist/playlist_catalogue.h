// The catalogue of playlists, kept in an ini file: the one file that the system writes.
#pragma once

#include "state/velora.h"

/// Reads the catalogue, and the file of each enabled playlist right after its record. A missing
/// file is an empty catalogue. Numbers above 500 have no record; `PlaylistCount` keeps the file's
/// number all the same.
void LoadPlaylistCatalogue(Velora& velora);

/// Enters the playlist in the records and in the file and gives its number. `File` is the full path
/// of the playlist; a line end in either text, as one that was pasted has it, is dropped. 0 if
/// `Name` is empty, and, with a message, if all records are taken or a value couldn't be read back
/// from the file as it is. What other runs have added meanwhile keeps its number, and so does
/// whatever stands in the file, counted or not. The media list doesn't change. A file that can't be
/// written isn't noticed.
Integer AddPlaylist(Velora& velora, const Text& Name, const Text& File);
