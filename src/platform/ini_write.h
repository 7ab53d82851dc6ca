// The safe writing of an ini file: whatever happens, the file on the disk is the old one or the new
// one.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

/// Makes a new file for writing that nobody else has, or fails as `open` does.
int CreateNewFile(const char* path, mode_t mode);

/// The system calls of a write; a test puts one that fails in the place of each.
struct FileCalls {
    int (*Create)(const char* path, mode_t mode) = CreateNewFile;
    ssize_t (*Write)(int descriptor, const void* bytes, std::size_t count) = ::write;
    int (*ChangeOwner)(int descriptor, uid_t owner, gid_t group) = ::fchown;
    int (*ChangeMode)(int descriptor, mode_t mode) = ::fchmod;
    int (*Flush)(int descriptor) = ::fsync;
    int (*Close)(int descriptor) = ::close;
    int (*Rename)(const char* from, const char* to) = ::rename;
};

/// Sets a key in the ini file at a path of this machine, making the file if it isn't there. The new
/// content goes to a new file in the same directory, is flushed, and takes the old one's place with
/// its mode and owner; a symbolic link stays and its target is rewritten. If another program
/// changes the file meanwhile, its change is read first. A file that is made begins as a copy of
/// `seed`, if that one can be read.
///
/// False, with the old file whole and nothing left beside it, if: a call fails; the file can't be
/// written as it stands, or nobody may write it; it is no plain file, or a link that leads nowhere;
/// it holds a NUL, or more than 4 MiB, or would hold either; the value couldn't be read again.
[[nodiscard]] bool WriteIniValue(const std::string& pathBytes, std::string_view section,
                                 std::string_view key, std::string_view value,
                                 const FileCalls& calls = {}, const std::string& seed = {});
