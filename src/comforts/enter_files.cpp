// No list of the user's is taken as literally here as those of the catalogue are: what other
// programs wrote has to be readable.
#include "comforts/enter_files.h"

#include <algorithm>
#include <filesystem>

#include "comforts/media_address.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "playback/navigation.h"
#include "playlist/media_list.h"
#include "playlist/playlist_file.h"

namespace {

namespace fs = std::filesystem;

constexpr TextView kPlaylistEnds[] = {u".m3u", u".m3u8"};
constexpr Integer kDroppedFlag = 0;
// Many times what 2,500 lines need.
constexpr std::size_t kMostBytes = 8 * 1024 * 1024;

// Where the name of a path begins.
Text DirectoryPart(const Text& path) {
    return path.substr(0, path.size() - GetFileName(path).size());
}

void EnterFile(Velora& velora, const Text& path, EnteredFiles& entered) {
    Text name = GetFileName(path);
    if (MediaTypeOf(MediaExtension(name)) == kNoMediaType) return;
    entered.IsKnown = true;
    Integer entry = FindMedia(velora, name);
    if (entry == 0 && velora.Count < velora.MediaLimit)
        entry = AppendMedia(velora, DirectoryPart(path), std::move(name), kDroppedFlag);
    if (entry == 0) entered.IsFull = true;
    if (entered.First == 0 && entry != 0 && IsPlayable(velora.MediaList[entry]))
        entered.First = entry;
}

// Nothing if the path is no folder.
std::optional<std::vector<Text>> FilesOfFolder(const Text& path) {
    const std::optional<std::string> found = FindPath(path);
    std::error_code error;
    if (!found || !fs::is_directory(*found, error)) return std::nullopt;
    std::vector<Text> files;
    fs::directory_iterator entry(*found, fs::directory_options::skip_permission_denied, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::error_code failure;
        if (entry->is_regular_file(failure)) files.push_back(PathText(entry->path().string()));
    }
    std::sort(files.begin(), files.end(), [](const Text& one, const Text& other) {
        const Text left = LowerCase(one), right = LowerCase(other);
        return left != right ? left < right : one < other;
    });
    return files;
}

std::vector<Text> LinesOf(const Text& path) {
    const std::string bytes = ReadFileBytes(path, kMostBytes).value_or(std::string());
    return PathsOfPlaylist(bytes, DirectoryPart(path));
}

} // namespace

bool IsPlaylist(TextView path) {
    return std::any_of(std::begin(kPlaylistEnds), std::end(kPlaylistEnds), [&](TextView end) {
        return path.size() >= end.size() &&
               EqualIgnoringCase(path.substr(path.size() - end.size()), end);
    });
}

std::vector<Text> PathsOfPlaylist(std::string_view bytes, const Text& directory) {
    bytes.remove_prefix(ByteOrderMarkLength(bytes));
    std::vector<Text> paths;
    PlaylistLines lines(bytes);
    while (const std::optional<std::string_view> line = lines.Next()) {
        const std::string_view words = Trimmed(*line, std::string_view(" \t"));
        if (words.empty() || words.front() == '#') continue;
        if (std::optional<Text> file = PathOfAddress(words)) {
            paths.push_back(std::move(*file));
            continue;
        }
        Text path = TextFromBytes(words);
        std::replace(path.begin(), path.end(), u'/', u'\\');
        paths.push_back(path.front() == u'\\' ? path : directory + path);
    }
    return paths;
}

EnteredFiles EnterPaths(Velora& velora, const std::vector<Text>& paths) {
    EnteredFiles entered;
    for (const Text& path : paths) {
        std::vector<Text> files{path};
        if (IsPlaylist(path))
            files = LinesOf(path);
        else if (std::optional<std::vector<Text>> inside = FilesOfFolder(path))
            files = std::move(*inside);
        for (const Text& file : files) {
            if (entered.IsFull) return entered;
            EnterFile(velora, file, entered);
        }
    }
    return entered;
}
