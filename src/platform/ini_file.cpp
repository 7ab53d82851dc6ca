// The status is asked of the open file, so that it belongs to the bytes that are read.
#include "platform/ini_file.h"

namespace {

bool SameTime(const timespec& left, const timespec& right) {
    return left.tv_sec == right.tv_sec && left.tv_nsec == right.tv_nsec;
}

} // namespace

std::optional<IniFile> OpenIniFile(const std::string& pathBytes) {
    IniFile file;
    file.Handle = OpenForReading(pathBytes);
    if (fstat(file.Handle.Descriptor(), &file.Status) != 0) return std::nullopt;
    std::optional<std::string> bytes = ReadFileBytes(file.Handle, kMostIniBytes);
    if (!bytes) return std::nullopt;
    file.Content = IniText(std::move(*bytes));
    return file;
}

bool IsUnchanged(const IniFile& file, const std::string& pathBytes) {
    struct stat now {};
    if (stat(pathBytes.c_str(), &now) != 0) return false;
    const struct stat& then = file.Status;
    return now.st_dev == then.st_dev && now.st_ino == then.st_ino && now.st_size == then.st_size &&
           SameTime(now.st_mtim, then.st_mtim) && SameTime(now.st_ctim, then.st_ctim);
}
