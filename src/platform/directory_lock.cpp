// The lock is asked for again and again: waiting for it in one call would hold up the event loop.
#include "platform/directory_lock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>

#include "platform/paths.h"

namespace {

constexpr std::int64_t kMostWaitMs = 1000;
constexpr double kSecondsBetweenTries = 0.02;

} // namespace

DirectoryLock::DirectoryLock(Loop& loop, TextView directory) {
    const std::optional<std::string> found = FindPath(directory);
    if (!found) return;
    FileHandle handle(open(found->c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!handle) return;
    const std::int64_t startMs = loop.NowMs();
    while (flock(handle.Descriptor(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK || loop.NowMs() - startMs >= kMostWaitMs) return;
        Delay(loop, kSecondsBetweenTries);
    }
    m_directory = std::move(handle);
}
