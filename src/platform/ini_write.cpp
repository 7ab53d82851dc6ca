// A file is replaced and never overwritten in place: a full disk, a crash or a reader in the middle
// of it must not meet half of it.
#include "platform/ini_write.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <optional>

#include "platform/ini_file.h"

namespace {

// How often a file is read anew because another program changed it, and how many names for a new
// file are tried.
constexpr int kMostAttempts = 10, kMostNames = 100;

enum class Outcome { Written, Failed, ChangedMeanwhile };

// Whether something has that name, be it a link that leads nowhere.
bool IsNameTaken(const std::string& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0;
}

// The path with all links followed; the path itself if nothing is there. Nothing for a link that
// leads nowhere.
std::optional<std::string> FollowLinks(const std::string& path) {
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr),
                                                           std::free);
    if (real) return std::string(real.get());
    return IsNameTaken(path) ? std::nullopt : std::optional(path);
}

// Whether the file may be changed where it is. A file that nobody may write is left alone by the
// superuser, too.
bool IsWritableAsItStands(const std::string& path, const struct stat& status) {
    if ((status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) return false;
    return static_cast<bool>(
        FileHandle(open(path.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY)));
}

// A new file beside the one to be replaced. Unless it is kept it goes with this object.
class NewFile {
public:
    NewFile(const std::string& target, mode_t mode, const FileCalls& calls) : m_calls(calls) {
        const std::string directory = target.substr(0, target.rfind('/') + 1);
        for (int number = 0; number < kMostNames && m_descriptor < 0; ++number) {
            m_path = directory + ".velora-" + std::to_string(getpid()) + "-" +
                     std::to_string(number) + ".tmp";
            m_descriptor = calls.Create(m_path.c_str(), mode);
            if (m_descriptor < 0 && errno != EEXIST) break;
        }
        m_made = m_descriptor >= 0;
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile() {
        if (m_descriptor >= 0) m_calls.Close(m_descriptor);
        if (m_made) unlink(m_path.c_str());
    }

    [[nodiscard]] bool Fill(std::string_view content, const struct stat* likeThis) {
        return m_made && Write(content) && TakeOver(likeThis) && m_calls.Flush(m_descriptor) == 0 &&
               Close();
    }

    [[nodiscard]] bool MoveTo(const std::string& target) {
        if (m_calls.Rename(m_path.c_str(), target.c_str()) != 0) return false;
        m_made = false;
        return true;
    }

private:
    bool Write(std::string_view content) {
        while (!content.empty()) {
            const ssize_t count = m_calls.Write(m_descriptor, content.data(), content.size());
            if (count < 0 && errno == EINTR) continue;
            if (count <= 0) return false;
            content.remove_prefix(static_cast<std::size_t>(count));
        }
        return true;
    }

    // Owner before mode: a change of owner takes bits of the mode away.
    bool TakeOver(const struct stat* likeThis) {
        struct stat status {};
        if (!likeThis) return true;
        if (fstat(m_descriptor, &status) != 0) return false;
        const bool sameOwner =
            status.st_uid == likeThis->st_uid && status.st_gid == likeThis->st_gid;
        if (!sameOwner &&
            m_calls.ChangeOwner(m_descriptor, likeThis->st_uid, likeThis->st_gid) != 0)
            return false;
        return m_calls.ChangeMode(m_descriptor, likeThis->st_mode & 07777) == 0;
    }

    bool Close() {
        const int descriptor = m_descriptor;
        m_descriptor = -1;
        return m_calls.Close(descriptor) == 0;
    }

    const FileCalls& m_calls;
    std::string m_path;
    int m_descriptor = -1;
    bool m_made = false;
};

// A new name is on the disk once its directory is; if that fails the file is whole all the same.
void FlushDirectoryOf(const std::string& path, const FileCalls& calls) {
    const std::string directory = path.substr(0, path.rfind('/') + 1);
    const FileHandle handle(
        open(directory.empty() ? "." : directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (handle) calls.Flush(handle.Descriptor());
}

Outcome WriteOnce(const std::string& target, std::string_view section, std::string_view key,
                  std::string_view value, const FileCalls& calls, const std::string& seed) {
    std::optional<IniFile> old;
    IniText text;
    if (IsNameTaken(target)) {
        old = OpenIniFile(target);
        if (!old || !IsWritableAsItStands(target, old->Status)) return Outcome::Failed;
        text = old->Content;
    } else if (const std::optional<IniFile> first =
                   seed.empty() ? std::nullopt : OpenIniFile(seed)) {
        text = first->Content;
    }
    const auto content = text.With(section, key, value);
    if (!content || content->find('\0') != std::string::npos || content->size() > kMostIniBytes)
        return Outcome::Failed;
    // Nobody else may read it before it has the old one's mode.
    constexpr mode_t kPrivate = 0600, kByUmask = 0666;
    NewFile fresh(target, old ? kPrivate : kByUmask, calls);
    if (!fresh.Fill(*content, old ? &old->Status : nullptr)) return Outcome::Failed;
    if (old ? !IsUnchanged(*old, target) : IsNameTaken(target)) return Outcome::ChangedMeanwhile;
    if (!fresh.MoveTo(target)) return Outcome::Failed;
    FlushDirectoryOf(target, calls);
    return Outcome::Written;
}

} // namespace

int CreateNewFile(const char* path, mode_t mode) {
    return open(path, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
}

bool WriteIniValue(const std::string& pathBytes, std::string_view section, std::string_view key,
                   std::string_view value, const FileCalls& calls, const std::string& seed) {
    const std::optional<std::string> target = FollowLinks(pathBytes);
    if (!target) return false;
    Outcome outcome = Outcome::ChangedMeanwhile;
    for (int attempt = 0; attempt < kMostAttempts && outcome == Outcome::ChangedMeanwhile;
         ++attempt)
        outcome = WriteOnce(*target, section, key, value, calls, seed);
    return outcome == Outcome::Written;
}
