// Playlists of any bytes: no letter of the content is lost between the lines, but for a last line
// of one byte.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "playlist/playlist_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    std::string content(PlaylistContent(bytes)), joined;
    if (bytes.size() - content.size() > 3 + 2 * 4) std::abort();
    PlaylistLines lines(content);
    while (const auto line = lines.Next())
        joined += *line;
    for (std::string* text : {&content, &joined})
        std::erase_if(*text, [](char byte) { return byte == ' ' || byte == '\r' || byte == '\n'; });
    if (!content.starts_with(joined) || content.size() > joined.size() + 1) std::abort();
    return 0;
}
