// The steps in their order: the rights before the name, so that nobody else ever reads it, and the
// bytes on the disk before it, so that a crash leaves no empty file.
#include "platform/replacement.h"

#include <cerrno>
#include <charconv>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <sys/xattr.h>

#include "platform/files.h"

namespace {

// How many names for a new file are tried.
constexpr int kMostNames = 100;

constexpr std::string_view kNameStart = ".velora-", kNameEnd = ".tmp";

constexpr const char* kAccessList = "system.posix_acl_access";
constexpr std::size_t kMostAccessListBytes = 64 * 1024;

// The access list of a file; empty if it has none, or its file system knows none. Nothing if that
// can't be told.
std::optional<std::string> AccessListOf(int descriptor) {
    std::string list(kMostAccessListBytes, '\0');
    const ssize_t length = fgetxattr(descriptor, kAccessList, list.data(), list.size());
    if (length < 0)
        return errno == ENODATA || errno == EOPNOTSUPP ? std::optional(std::string())
                                                       : std::nullopt;
    list.resize(static_cast<std::size_t>(length));
    return list;
}

// Whether a name is that of a replacement whose program has ended. This process makes one at a
// time, so a name with its own number is an earlier one's.
bool IsLeftover(std::string_view name) {
    if (!name.starts_with(kNameStart) || !name.ends_with(kNameEnd)) return false;
    name.remove_prefix(kNameStart.size());
    if (name.find_first_not_of("0123456789-") != name.size() - kNameEnd.size()) return false;
    pid_t program = 0;
    std::from_chars(name.data(), name.data() + name.size(), program);
    return program > 0 && (program == getpid() || (kill(program, 0) != 0 && errno == ESRCH));
}

} // namespace

int CreateNewFile(const char* path, mode_t mode) {
    return open(path, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
}

int RenameToFreeName(const char* from, const char* to) {
    const int result = renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE);
    return result != 0 && (errno == EINVAL || errno == ENOSYS) ? std::rename(from, to) : result;
}

int SetAccessList(int descriptor, const std::string& list) {
    if (list.empty()) return fremovexattr(descriptor, kAccessList);
    return fsetxattr(descriptor, kAccessList, list.data(), list.size(), 0);
}

Replacement::Replacement(const std::string& target, mode_t mode, const FileCalls& calls)
    : m_calls(calls) {
    const std::string start =
        DirectoryOf(target) + std::string(kNameStart) + std::to_string(getpid()) + "-";
    for (int number = 0; number < kMostNames && m_descriptor < 0; ++number) {
        m_path = start + std::to_string(number) + std::string(kNameEnd);
        m_descriptor = calls.Create(m_path.c_str(), mode);
        if (m_descriptor < 0 && errno != EEXIST) break;
    }
    m_made = m_descriptor >= 0;
}

Replacement::~Replacement() {
    if (m_descriptor >= 0) m_calls.Close(m_descriptor);
    if (m_made) unlink(m_path.c_str());
}

bool Replacement::Write(std::string_view content) {
    if (!m_made) return false;
    while (!content.empty()) {
        const ssize_t count = m_calls.Write(m_descriptor, content.data(), content.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        content.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

bool Replacement::TakeOver(int likeThis) {
    struct stat wanted {};
    struct stat now {};
    if (fstat(likeThis, &wanted) != 0 || fstat(m_descriptor, &now) != 0) return false;
    constexpr auto kSameOwner = static_cast<uid_t>(-1);
    constexpr auto kSameGroup = static_cast<gid_t>(-1);
    const uid_t owner = now.st_uid == wanted.st_uid ? kSameOwner : wanted.st_uid;
    const gid_t group = now.st_gid == wanted.st_gid ? kSameGroup : wanted.st_gid;
    if ((owner != kSameOwner || group != kSameGroup) &&
        m_calls.ChangeOwner(m_descriptor, owner, group) != 0)
        return false;
    // The directory may have given it a list, too.
    const auto list = AccessListOf(likeThis), given = AccessListOf(m_descriptor);
    if (!list || !given) return false;
    if (*list != *given && m_calls.ChangeAccess(m_descriptor, *list) != 0) return false;
    // Last, since both change the mode.
    constexpr mode_t kModeBits = 07777;
    return fstat(m_descriptor, &now) == 0 &&
           ((now.st_mode & kModeBits) == (wanted.st_mode & kModeBits) ||
            m_calls.ChangeMode(m_descriptor, wanted.st_mode & kModeBits) == 0);
}

bool Replacement::Finish() {
    if (m_calls.Flush(m_descriptor) != 0) return false;
    const int descriptor = m_descriptor;
    m_descriptor = -1;
    return m_calls.Close(descriptor) == 0;
}

Replacement::Move Replacement::MoveTo(const std::string& target, bool isNew) {
    const auto rename = isNew ? m_calls.RenameToFree : m_calls.Rename;
    if (rename(m_path.c_str(), target.c_str()) != 0)
        return errno == ENOENT || errno == EEXIST ? Move::Overtaken : Move::Failed;
    m_made = false;
    return Move::Done;
}

void RemoveLeftovers(const std::string& directory) {
    namespace fs = std::filesystem;
    std::error_code error;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end;
         entry.increment(error))
        if (IsLeftover(entry->path().filename().native())) unlink(entry->path().c_str());
}
