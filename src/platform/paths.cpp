// Paths travel as the bytes that the machine has; texts are only mapped, never normalised.
#include "platform/paths.h"

#include <dirent.h>
#include <filesystem>
#include <memory>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr char16_t kBackslashInName = 0xF05C;
constexpr char16_t kFirstRawByte = 0xF700;
constexpr char16_t kLastRawByte = 0xF7FF;

bool StandsForSomething(std::int32_t letter) {
    return letter == kBackslashInName || (letter >= kFirstRawByte && letter <= kLastRawByte);
}

struct CloseDirectory {
    void operator()(DIR* directory) const { closedir(directory); }
};

// The names in a directory; none if it can't be read.
std::vector<std::string> NamesIn(const std::string& directory) {
    std::vector<std::string> names;
    const std::unique_ptr<DIR, CloseDirectory> open(
        opendir(directory.empty() ? "." : directory.c_str()));
    if (!open) return names;
    while (const dirent* entry = readdir(open.get()))
        names.emplace_back(entry->d_name);
    return names;
}

bool Exists(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(path, ignored);
}

bool IsPlainFile(const fs::path& path) {
    std::error_code ignored;
    return fs::is_regular_file(path, ignored);
}

Text LowerName(std::string_view name) {
    return LowerCase(PathText(name));
}

// The name in `directory` that equals `name` but for case, the first in byte order.
std::optional<std::string> NameWithoutCase(const std::string& directory, std::string_view name) {
    const Text wanted = LowerName(name);
    std::optional<std::string> best;
    for (std::string& candidate : NamesIn(directory))
        if ((!best || candidate < *best) && LowerName(candidate) == wanted)
            best = std::move(candidate);
    return best;
}

// Walks `path` from its first component; each as written, else without regard to case.
std::optional<std::string> Walk(const std::string& path) {
    fs::path found;
    for (const fs::path& component : fs::path(path)) {
        if (component.empty()) continue;
        if (Exists(found / component)) {
            found /= component;
            continue;
        }
        const std::optional<std::string> other = NameWithoutCase(found, component.native());
        if (!other) return std::nullopt;
        found /= *other;
    }
    return Exists(found) ? std::optional<std::string>(found) : std::nullopt;
}

std::optional<std::string> FindBytes(const std::string& path) {
    if (path.empty() || path.find('\0') != std::string::npos) return std::nullopt;
    if (Exists(path)) return path;
    return Walk(path);
}

// Whether `name` matches `pattern`, in which `*` is any run of characters and `?` any one.
bool MatchesPattern(TextView name, TextView pattern) {
    std::size_t nameAt = 0, patternAt = 0;
    std::size_t starAt = TextView::npos, retryAt = 0;
    while (nameAt < name.size()) {
        if (patternAt < pattern.size() && pattern[patternAt] == u'*') {
            starAt = patternAt++;
            retryAt = nameAt;
        } else if (patternAt < pattern.size() &&
                   (pattern[patternAt] == u'?' || pattern[patternAt] == name[nameAt])) {
            ++nameAt;
            ++patternAt;
        } else if (starAt != TextView::npos) {
            patternAt = starAt + 1;
            nameAt = ++retryAt;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(u'*', patternAt) == TextView::npos;
}

// Whether a plain file of `directory` matches; `*.*` means all files, as it always has.
bool AnyFileMatches(const std::string& directory, std::string_view pattern) {
    const std::optional<std::string> found = FindBytes(directory.empty() ? "." : directory);
    if (!found) return false;
    const bool all = pattern.empty() || pattern == "*.*";
    const Text lowerPattern = LowerName(pattern);
    for (const std::string& name : NamesIn(*found))
        if ((all || MatchesPattern(LowerName(name), lowerPattern)) &&
            IsPlainFile(fs::path(*found) / name))
            return true;
    return false;
}

} // namespace

std::string PathBytes(TextView path) {
    std::string bytes;
    std::size_t plainFrom = 0;
    for (std::size_t at = 0; at <= path.size(); ++at) {
        const bool special =
            at < path.size() && (path[at] == u'\\' || StandsForSomething(path[at]));
        if (!special && at < path.size()) continue;
        bytes += Utf8(path.substr(plainFrom, at - plainFrom));
        plainFrom = at + 1;
        if (at == path.size()) break;
        if (path[at] == u'\\')
            bytes += '/';
        else
            bytes +=
                path[at] == kBackslashInName ? '\\' : static_cast<char>(path[at] - kFirstRawByte);
    }
    return bytes;
}

Text PathText(std::string_view bytes) {
    Text path;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t start = at;
        const std::int32_t letter = NextUtf8(bytes, at);
        // A letter that would read as one of the stand-ins on the way back travels byte by byte,
        // too.
        if (letter < 0 || StandsForSomething(letter)) {
            if (letter < 0) at = start + 1;
            for (const char raw : bytes.substr(start, at - start))
                path.push_back(
                    static_cast<char16_t>(kFirstRawByte + static_cast<unsigned char>(raw)));
        } else if (letter == '/') {
            path.push_back(u'\\');
        } else if (letter == '\\') {
            path.push_back(kBackslashInName);
        } else {
            AppendUtf16(path, static_cast<char32_t>(letter));
        }
    }
    return path;
}

std::optional<std::string> FindPath(TextView path) {
    return FindBytes(PathBytes(path));
}

std::optional<std::string> FindPathForWriting(TextView path) {
    const std::string bytes = PathBytes(path);
    if (std::optional<std::string> found = FindBytes(bytes)) return found;
    const std::string directory = fs::path(bytes).parent_path(), name = fs::path(bytes).filename();
    if (name.empty() || name.find('\0') != std::string::npos) return std::nullopt;
    if (directory.empty()) return name;
    const std::optional<std::string> found = FindBytes(directory);
    return found ? std::optional<std::string>(fs::path(*found) / name) : std::nullopt;
}

Text GetFileName(TextView Path) {
    const std::size_t backslash = Path.rfind(u'\\');
    return Text(backslash == TextView::npos ? Path : Path.substr(backslash + 1));
}

bool FileExists(TextView Path) {
    if (Path.empty()) return false;
    const std::string bytes = PathBytes(Path);
    if (bytes.find('\0') != std::string::npos) return false;
    const std::string name = fs::path(bytes).filename();
    if (name.empty() || name.find_first_of("*?") != std::string::npos) {
        // A name that holds a wildcard may still be a file's own.
        return IsPlainFile(bytes) || AnyFileMatches(fs::path(bytes).parent_path(), name);
    }
    const std::optional<std::string> found = FindBytes(bytes);
    return found && IsPlainFile(*found);
}
