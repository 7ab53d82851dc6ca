// Playlists of any bytes: the reader that walks over them against one that cuts its text line by line.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "playlist/playlist_file.h"

namespace {

using Lines = std::vector<std::string>;

std::string Trimmed(std::string text, const char* bytes) {
    text.erase(0, text.find_first_not_of(bytes));
    text.erase(text.find_last_not_of(bytes) + 1);
    return text;
}

bool EndsLine(char byte) {
    return byte == '\n' || byte == '\r';
}

// Cuts one thing after the other off `rest`, as the rules tell it.
Lines CutLines(std::string rest) {
    Lines lines;
    while (rest.find('\n') != std::string::npos) {
        if (EndsLine(rest.front())) {
            rest.erase(0, 1);
        } else if (EndsLine(rest.back())) {
            rest.pop_back();
        } else {
            const std::string line = rest.substr(0, rest.find('\n'));
            rest.erase(0, line.size());
            lines.push_back(Trimmed(line, "\r\n"));
        }
    }
    if (rest.size() >= 2) lines.push_back(Trimmed(Trimmed(rest, " "), "\r\n"));
    return lines;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const std::string_view content = PlaylistContent(bytes);
    if (bytes.size() - content.size() > 3 + 2 * 4) std::abort();
    Lines lines;
    PlaylistLines walker(content);
    while (const auto line = walker.Next())
        lines.emplace_back(*line);
    if (lines != CutLines(Trimmed(std::string(content), " "))) std::abort();
    return 0;
}
