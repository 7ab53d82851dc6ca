// A file that takes another one's place: whatever happens, what stands under the name is the whole
// old one or the whole new one.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

/// Makes a new file for writing that nobody else has, or fails as `open` does.
int CreateNewFile(const char* path, mode_t mode);

/// Gives a file a name that isn't taken, or fails with `EEXIST`; where the file system can't tell
/// in one step it takes the name.
int RenameToFreeName(const char* from, const char* to);

/// Gives an open file the access list that another file has, as the kernel tells it; an empty one
/// takes the list away.
int SetAccessList(int descriptor, const std::string& list);

/// The system calls of a replacement; a test puts one that fails in the place of each.
struct FileCalls {
    int (*Create)(const char* path, mode_t mode) = CreateNewFile;
    ssize_t (*Write)(int descriptor, const void* bytes, std::size_t count) = ::write;
    int (*ChangeOwner)(int descriptor, uid_t owner, gid_t group) = ::fchown;
    int (*ChangeAccess)(int descriptor, const std::string& list) = SetAccessList;
    int (*ChangeMode)(int descriptor, mode_t mode) = ::fchmod;
    int (*Flush)(int descriptor) = ::fsync;
    int (*Close)(int descriptor) = ::close;
    int (*Rename)(const char* from, const char* to) = ::rename;
    int (*RenameToFree)(const char* from, const char* to) = RenameToFreeName;
};

/// A new file in the directory of the one that it is to replace. Unless it is moved there it goes
/// with this object. Each step is false if it fails; none follows then.
class Replacement {
public:
    /// With the mode of a new file, which the user's mask narrows. `calls` has to outlive the
    /// object.
    Replacement(const std::string& target, mode_t mode, const FileCalls& calls);
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;
    ~Replacement();

    [[nodiscard]] bool Write(std::string_view content);

    /// Gives it owner, group, access list and mode of an open file. What is right already is left
    /// alone, since some mounts refuse to set even that.
    [[nodiscard]] bool TakeOver(int likeThis);

    /// Brings the content to the disk.
    [[nodiscard]] bool Finish();

    enum class Move { Done, Failed, Overtaken };
    /// Puts it in the target's place, which is empty if it `isNew`. `Overtaken` if another program
    /// has filled that place, or has taken this file for a leftover.
    [[nodiscard]] Move MoveTo(const std::string& target, bool isNew);

private:
    const FileCalls& m_calls;
    std::string m_path;
    int m_descriptor = -1;
    bool m_made = false;
};

/// Removes what killed programs have left of their replacements in a directory. One that another
/// machine or container is still at may be among them, which is then made again. Called with the
/// directory's lock held.
void RemoveLeftovers(const std::string& directory);
