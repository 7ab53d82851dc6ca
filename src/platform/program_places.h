// Where the program is, where it was started and with what, and where its ini files are, as the
// system's texts.
#pragma once

#include <string>
#include <vector>

#include "platform/text.h"

/// The directory of the program's file, links resolved, without a trailing backslash.
[[nodiscard]] Text ProgramDirectory();

/// The directory in which the process was started, without a trailing backslash but for the root's.
[[nodiscard]] Text ProcessDirectory();

/// The command line's text behind the program's name: each argument made absolute (`directory`, a
/// backslash, the argument; links kept), in quotation marks, joined by blanks. Empty arguments are
/// left out.
[[nodiscard]] Text CommandLineText(const std::vector<std::string>& arguments,
                                   const Text& directory);

/// The path of one of the three ini files; `name` begins with a backslash. It is beside the program
/// unless that directory can't be written, as in an installation for all users, or the file there
/// is somebody else's: then a file in `velora` below the user's data directory goes first. Makes
/// nothing.
[[nodiscard]] Text IniPlace(const Text& programDirectory, const Text& name);

/// Where that file is to be written: as `IniPlace`, but never a file that this user can't
/// replace, even if the user has no other yet.
[[nodiscard]] Text OwnIniPlace(const Text& programDirectory, const Text& name);
