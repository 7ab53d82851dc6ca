// A file is replaced and never overwritten in place: a full disk, a crash or a reader in the middle
// of it must not meet half of it.
#include "platform/ini_write.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>

#include "platform/ini_file.h"

namespace {

// How often a file is read anew because another program changed it.
constexpr int kMostAttempts = 10;

enum class Outcome { Written, Failed, ChangedMeanwhile };

// Whether something has that name, be it a link that leads nowhere.
bool IsNameTaken(const std::string& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0;
}

// Whether the file may be changed where it is. A file that nobody may write is left alone by the
// superuser, too.
bool IsWritableAsItStands(const std::string& path, const struct stat& status) {
    if ((status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) return false;
    return static_cast<bool>(
        FileHandle(open(path.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY)));
}

// A new name is on the disk once its directory is; if that fails the file is whole all the same.
void FlushDirectoryOf(const std::string& path, const FileCalls& calls) {
    const FileHandle handle(open(DirectoryOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (handle) calls.Flush(handle.Descriptor());
}

// The text with all values of the change; nothing if there are none, or it couldn't be written.
std::optional<std::string> Changed(IniText text, const IniChange& change) {
    const std::vector<IniValue> values = change(text);
    for (const IniValue& value : values) {
        std::optional<std::string> bytes = text.With(value.Section, value.Key, value.Value);
        if (!bytes) return std::nullopt;
        text = IniText(std::move(*bytes));
    }
    const std::string& bytes = text.Bytes();
    if (values.empty() || bytes.find('\0') != std::string::npos || bytes.size() > kMostIniBytes)
        return std::nullopt;
    return bytes;
}

// What is in the file, or in the one that it begins as.
IniText TextToChange(const std::optional<IniFile>& old, const std::string& seed) {
    if (old) return old->Content;
    const std::optional<IniFile> first = seed.empty() ? std::nullopt : OpenIniFile(seed);
    return first ? first->Content : IniText();
}

// Takes the old file for its replacement, until its handle closes: between the look whether it is
// still there and the new name nobody else may put another one there. False if another program is
// just doing that.
bool Hold(const IniFile& old) {
    return flock(old.Handle.Descriptor(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

Outcome ChangeOnce(const std::string& target, const IniChange& change, const FileCalls& calls,
                   const std::string& seed) {
    std::optional<IniFile> old;
    if (IsNameTaken(target)) {
        old = OpenIniFile(target);
        if (!old) return Outcome::Failed;
    }
    const std::optional<std::string> content = Changed(TextToChange(old, seed), change);
    if (!content || (old && !IsWritableAsItStands(target, old->Status))) return Outcome::Failed;
    // Nobody else may read it before it has the old one's mode.
    constexpr mode_t kPrivate = 0600, kByUmask = 0666;
    Replacement fresh(target, old ? kPrivate : kByUmask, calls);
    if (!fresh.Write(*content) || (old && !fresh.TakeOver(old->Handle.Descriptor())) ||
        !fresh.Finish())
        return Outcome::Failed;
    if (old ? !Hold(*old) || !IsUnchanged(*old, target) : IsNameTaken(target))
        return Outcome::ChangedMeanwhile;
    switch (fresh.MoveTo(target, !old)) {
    case Replacement::Move::Done:
        break;
    case Replacement::Move::Failed:
        return Outcome::Failed;
    case Replacement::Move::Overtaken:
        return Outcome::ChangedMeanwhile;
    }
    FlushDirectoryOf(target, calls);
    return Outcome::Written;
}

} // namespace

std::optional<std::string> FileBehindLinks(const std::string& path) {
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr),
                                                           std::free);
    if (real) return std::string(real.get());
    return IsNameTaken(path) ? std::nullopt : std::optional(path);
}

bool ChangeIniFile(const std::string& pathBytes, const IniChange& change, const FileCalls& calls,
                   const std::string& seed) {
    const std::optional<std::string> target = FileBehindLinks(pathBytes);
    if (!target) return false;
    Outcome outcome = Outcome::ChangedMeanwhile;
    for (int attempt = 0; attempt < kMostAttempts && outcome == Outcome::ChangedMeanwhile;
         ++attempt)
        outcome = ChangeOnce(*target, change, calls, seed);
    return outcome == Outcome::Written;
}
