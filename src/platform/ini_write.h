// The safe writing of an ini file: whatever happens, the file on the disk is the old one or the new
// one, and what another program has put into it meanwhile stays.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/ini_text.h"
#include "platform/replacement.h"

/// A key of an ini file with the value that it gets.
struct IniValue {
    std::string Section, Key, Value;
};

/// What is to be written into a file that holds `now`. Asked anew, as often as another program
/// changes the file before it can be replaced. No values leave the file alone.
using IniChange = std::function<std::vector<IniValue>(const IniText& now)>;

/// The file that a write to `path` replaces: all links followed, `path` itself if nothing is there.
/// Nothing for a link that leads nowhere.
[[nodiscard]] std::optional<std::string> FileBehindLinks(const std::string& path);

/// Sets all values of a change at once in the ini file at a path of this machine, making the file
/// if it isn't there. The new content goes to a new file in the same directory, is flushed, and
/// takes the old one's place with its mode, owner and access list; a symbolic link stays and its
/// target is rewritten. If another program changes the file meanwhile, its change is read first. A
/// file that is made begins as a copy of `seed`, if that one can be read.
///
/// False, with the old file whole and nothing left beside it, if: a call fails; the file can't be
/// written as it stands, or nobody may write it; it is no plain file, or a link that leads nowhere;
/// it holds a NUL, or more than 4 MiB, or would hold either; a value couldn't be read again; there
/// is nothing to write.
[[nodiscard]] bool ChangeIniFile(const std::string& pathBytes, const IniChange& change,
                                 const FileCalls& calls = {}, const std::string& seed = {});
