// An ini file of this machine as it was at one moment, and the test whether it still is that.
#pragma once

#include <optional>
#include <string>
#include <sys/stat.h>

#include "platform/files.h"
#include "platform/ini_text.h"

/// No larger file is read, and none is written.
constexpr std::size_t kMostIniBytes = 4 * 1024 * 1024;

/// The file stays open, or another file could come to have its identity.
struct IniFile {
    FileHandle Handle;
    struct stat Status {};
    IniText Content;
};

/// Reads the file at a path of this machine. Nothing if it isn't there, is no plain file, can't be
/// read or is larger than `kMostIniBytes`.
[[nodiscard]] std::optional<IniFile> OpenIniFile(const std::string& pathBytes);

/// Whether `pathBytes` is still the file that was read: its identity, size and times of change are
/// those.
[[nodiscard]] bool IsUnchanged(const IniFile& file, const std::string& pathBytes);
