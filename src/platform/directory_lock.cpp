// The lock is asked for again and again: waiting for it in one call would hold up the event loop.
#include "platform/directory_lock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>

namespace {

constexpr std::int64_t kMostWaitMs = 1000;
constexpr double kSecondsBetweenTries = 0.02;

} // namespace

DirectoryLock::DirectoryLock(Loop& loop, const std::string& directory)
    : m_directory(open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    const std::int64_t startMs = loop.NowMs();
    AskAgain();
    while (!m_held && errno == EWOULDBLOCK && loop.NowMs() - startMs < kMostWaitMs) {
        Delay(loop, kSecondsBetweenTries);
        AskAgain();
    }
}

void DirectoryLock::AskAgain() {
    m_held = m_held || flock(m_directory.Descriptor(), LOCK_EX | LOCK_NB) == 0;
}
