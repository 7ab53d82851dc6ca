// A lock between programs: held on a directory, it guards a file in it that is replaced rather than
// written.
#pragma once

#include <string>

#include "platform/files.h"
#include "platform/loop.h"

/// Holds the lock of a directory as long as the object lives; the end of the process releases it,
/// too. It keeps out only those that ask for it.
class DirectoryLock {
public:
    /// `directory` is a path of this machine. Waits up to a second for another holder, with events
    /// going on.
    DirectoryLock(Loop& loop, const std::string& directory);

    /// False if another holder kept it, the directory isn't there, or its file system has no locks.
    [[nodiscard]] explicit operator bool() const { return m_held; }

    /// Asks again, without a wait, if it isn't held.
    void AskAgain();

private:
    FileHandle m_directory;
    bool m_held = false;
};
