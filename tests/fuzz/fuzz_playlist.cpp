// Playlists of any bytes: the reader that walks over them against one that cuts its text line by line.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "playlist/playlist_file.h"

namespace {

using Lines = std::vector<std::string>;

bool EndsLine(char byte) {
    return byte == '\n' || byte == '\r';
}

void TrimBlanks(std::string& text) {
    while (!text.empty() && text.front() == ' ')
        text.erase(0, 1);
    while (!text.empty() && text.back() == ' ')
        text.pop_back();
}

std::string TakeLine(std::string& rest) {
    std::string line = rest.substr(0, rest.find('\n'));
    rest.erase(0, line.size());
    return line;
}

// Cuts one thing off `rest`, step by step as the rules tell it; a line if that was one.
bool Cut(std::string& rest, std::string& line) {
    if (rest.find('\n') == std::string::npos) {
        line = rest;
        rest.clear();
        if (line.size() < 2) return false;
        TrimBlanks(line);
        return true;
    }
    if (EndsLine(rest.front())) {
        rest.erase(0, 1);
        return false;
    }
    if (EndsLine(rest.back())) {
        rest.pop_back();
        return false;
    }
    line = TakeLine(rest);
    return true;
}

Lines CutLines(std::string rest) {
    Lines lines;
    TrimBlanks(rest);
    while (!rest.empty()) {
        std::string line;
        if (!Cut(rest, line)) continue;
        while (!line.empty() && EndsLine(line.front()))
            line.erase(0, 1);
        while (!line.empty() && EndsLine(line.back()))
            line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

Lines WalkedLines(std::string_view content) {
    Lines lines;
    PlaylistLines walker(content);
    while (const auto line = walker.Next())
        lines.emplace_back(*line);
    return lines;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const std::string_view content = PlaylistContent(bytes);
    const std::string_view whole = bytes;
    const std::size_t cut = whole.size() - content.size();
    if (cut > 3 + 2 * 4 || (size >= 5 && cut < 2)) std::abort();
    if (WalkedLines(content) != CutLines(std::string(content))) std::abort();
    return 0;
}
