// Reading goes through plain descriptors: a FIFO must not hold up the caller, so open never waits.
#include "platform/files.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "platform/paths.h"

FileHandle& FileHandle::operator=(FileHandle&& other) noexcept {
    std::swap(m_descriptor, other.m_descriptor);
    return *this;
}

FileHandle::~FileHandle() {
    if (m_descriptor >= 0) close(m_descriptor);
}

int FileHandle::Release() {
    return std::exchange(m_descriptor, -1);
}

FileHandle OpenForReading(const std::string& pathBytes) {
    FileHandle file(open(pathBytes.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    struct stat status {};
    if (fstat(file.Descriptor(), &status) != 0 || !S_ISREG(status.st_mode)) return {};
    return file;
}

FileHandle OpenForReading(TextView path) {
    const std::optional<std::string> found = FindPath(path);
    return found ? OpenForReading(*found) : FileHandle();
}

std::string DirectoryOf(const std::string& pathBytes) {
    const std::size_t slash = pathBytes.rfind('/');
    return slash == std::string::npos ? "./" : pathBytes.substr(0, slash + 1);
}

void MakeDirectory(TextView directory) {
    if (FindPath(directory)) return;
    std::error_code error;
    std::filesystem::create_directories(PathBytes(directory), error);
}

std::optional<std::string> ReadFileBytes(const FileHandle& file, std::size_t limit) {
    struct stat status {};
    if (fstat(file.Descriptor(), &status) != 0) return std::nullopt;
    if (static_cast<std::size_t>(status.st_size) > limit) return std::nullopt;
    std::string bytes(static_cast<std::size_t>(status.st_size) + 1, '\0');
    std::size_t filled = 0;
    for (;;) {
        const ssize_t count = read(file.Descriptor(), bytes.data() + filled, bytes.size() - filled);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return std::nullopt;
        filled += static_cast<std::size_t>(count);
        if (count == 0) break;
        if (filled > limit) return std::nullopt;
        if (filled == bytes.size()) bytes.resize(bytes.size() * 2);
    }
    bytes.resize(filled);
    return bytes;
}

std::optional<std::string> ReadFileBytes(TextView path, std::size_t limit) {
    return ReadFileBytes(OpenForReading(path), limit);
}
