// The door between the system's backslash-separated texts and the paths of this machine.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/text.h"

/// The bytes of a path as written: a backslash separates and so does a slash, U+F05C is a backslash
/// within a name, U+F700 to U+F7FF stand for a byte that is no UTF-8. Nothing is looked up.
[[nodiscard]] std::string PathBytes(TextView path);

/// The system's text for a path of this machine; `PathBytes` of it gives the same bytes again.
[[nodiscard]] Text PathText(std::string_view bytes);

/// The path, on this machine, of what `path` names: as written, or, if that isn't there, walked
/// component by component, each as written and then without regard to case (of several the first in
/// byte order). Looked up anew at each call. Nothing if there is no such file or directory; a
/// relative path is the process's.
[[nodiscard]] std::optional<std::string> FindPath(TextView path);

/// Where a write to `path` goes: to the file that a read would find; otherwise to the name as
/// written in the directory that a read would find. Nothing if there is no such directory.
[[nodiscard]] std::optional<std::string> FindPathForWriting(TextView path);

/// The part of `Path` behind its last backslash; all of it without one. A slash is an ordinary
/// character.
[[nodiscard]] Text GetFileName(TextView Path);

/// Whether at least one plain file matches `Path`. The last component may hold `*` and `?`; a path
/// that ends in a backslash stands for all files of that directory. Directories, FIFOs and devices
/// are no plain files. False for the empty text and for whatever fails.
[[nodiscard]] bool FileExists(TextView Path);
