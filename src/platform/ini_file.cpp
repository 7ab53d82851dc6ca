// The facts come from the open file, so that they are those of the bytes.
#include "platform/ini_file.h"

#include <cerrno>
#include <unistd.h>

namespace {

// Reads to the end, whatever the size was said to be; false above `kMostIniBytes` and on an error.
bool ReadToEnd(int descriptor, std::string& bytes) {
    std::size_t filled = 0;
    for (;;) {
        if (filled == bytes.size()) bytes.resize(bytes.size() * 2 + 1);
        const ssize_t count = read(descriptor, bytes.data() + filled, bytes.size() - filled);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return false;
        filled += static_cast<std::size_t>(count);
        if (filled > kMostIniBytes) return false;
        if (count == 0) break;
    }
    bytes.resize(filled);
    return true;
}

bool SameTime(const timespec& left, const timespec& right) {
    return left.tv_sec == right.tv_sec && left.tv_nsec == right.tv_nsec;
}

} // namespace

std::optional<IniFile> OpenIniFile(const std::string& pathBytes) {
    IniFile file;
    file.Handle = OpenForReading(pathBytes);
    if (!file.Handle || fstat(file.Handle.Descriptor(), &file.Facts) != 0) return std::nullopt;
    if (file.Facts.st_size < 0 || static_cast<std::size_t>(file.Facts.st_size) > kMostIniBytes)
        return std::nullopt;
    std::string bytes(static_cast<std::size_t>(file.Facts.st_size) + 1, '\0');
    if (!ReadToEnd(file.Handle.Descriptor(), bytes)) return std::nullopt;
    file.Content = IniText(std::move(bytes));
    return file;
}

bool IsUnchanged(const IniFile& file, const std::string& pathBytes) {
    struct stat now {};
    if (stat(pathBytes.c_str(), &now) != 0) return false;
    const struct stat& then = file.Facts;
    return now.st_dev == then.st_dev && now.st_ino == then.st_ino && now.st_size == then.st_size &&
           SameTime(now.st_mtim, then.st_mtim) && SameTime(now.st_ctim, then.st_ctim);
}
