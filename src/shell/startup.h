// Start-up: all that happens before the window shows.
#pragma once

#include "state/velora.h"

/// The whole of start-up. Dialogs can appear in it, and the process can end in it. The window shows
/// after it has returned.
void Form_Load(Velora& velora);

/// Filters, limits, the places of the ini files, the playlists, the skins, the volume.
void InitialiseApplication(Velora& velora);

/// The file that a command line means, as directory and name. The text counts as one path between
/// two characters, quotation marks as a rule, which go whatever they are.
struct CommandLineFile {
    Text Directory; ///< Ends in a backslash. Empty means that there is nothing to start.
    Text FileName;

    bool operator==(const CommandLineFile&) const = default;
};

/// `commandLine` is the text behind the program's name.
[[nodiscard]] CommandLineFile FileOfCommandLine(TextView commandLine);

/// Enters the file of a command line and starts it; nothing happens if it means none.
void StartFromCommandLine(Velora& velora, TextView commandLine);
