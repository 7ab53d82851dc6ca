// The rules are those of a reader that cuts its text down line by line; here a view moves over the
// bytes, so that a file of any form costs time in proportion to its size.
#include "playlist/playlist_file.h"

#include <algorithm>

#include "platform/files.h"
#include "platform/paths.h"
#include "playlist/media_list.h"

namespace {

constexpr char kLineFeed = '\n', kReturn = '\r';

bool EndsLine(char byte) {
    return byte == kLineFeed || byte == kReturn;
}

std::string_view TrimByteBlanks(std::string_view bytes) {
    return Trimmed(bytes, std::string_view(" "));
}

// A line that has been taken holds no line feed, but carriage returns can stand at its ends.
std::string_view WithoutReturns(std::string_view line) {
    return Trimmed(line, std::string_view("\r"));
}

// How many bytes the last character takes, in a line that is UTF-8 or isn't.
std::size_t LastCharacterBytes(std::string_view bytes, bool utf8) {
    std::size_t length = 1;
    if (utf8)
        while (length < bytes.size() && ContinuesUtf8(bytes[bytes.size() - length]))
            ++length;
    return std::min(length, bytes.size());
}

// All bytes of the file at `Path`; no bytes if it can't be read or is too large.
std::string ReadWholeFile(TextView Path) {
    return ReadFileBytes(Path, kMostPlaylistBytes).value_or(std::string());
}

// Adds one line; false if the reading ends with it.
bool AddLine(Velora& velora, std::string_view bytes, Integer Index) {
    const Text line = TextFromBytes(bytes);
    Text name = GetFileName(line);
    if (name.empty() || FindMedia(velora, name) != 0) return false;
    Text path = line.substr(0, line.size() - name.size());
    return AppendMedia(velora, std::move(path), std::move(name), Index) != 0;
}

} // namespace

std::string_view PlaylistContent(std::string_view bytes) {
    bytes.remove_prefix(ByteOrderMarkLength(bytes));
    // The two characters can belong to two lines, each with an encoding of its own.
    for (int cut = 0; cut < 2; ++cut) {
        const std::size_t lineStart = bytes.rfind(kLineFeed) + 1;
        const bool plain = bytes.empty() || static_cast<unsigned char>(bytes.back()) < 0x80;
        const bool utf8 = !plain && IsUtf8(bytes.substr(lineStart));
        bytes.remove_suffix(LastCharacterBytes(bytes, utf8));
    }
    return bytes;
}

std::optional<std::string_view> TextBetween(std::string_view text, char start, char stop) {
    const std::size_t first = text.find(start), last = text.find(stop);
    if (first == std::string_view::npos || last == std::string_view::npos || last <= first)
        return std::nullopt;
    return text.substr(first + 1, last - first - 1);
}

PlaylistLines::PlaylistLines(std::string_view content)
    : m_text(TrimByteBlanks(content)), m_end(m_text.size()), m_lineFeedsEnd(m_text.size()) {}

bool PlaylistLines::HoldsLineFeed() {
    m_lineFeedsEnd = std::min(m_lineFeedsEnd, m_end);
    while (m_lineFeedsEnd > m_at && m_text[m_lineFeedsEnd - 1] != kLineFeed)
        --m_lineFeedsEnd;
    return m_lineFeedsEnd > m_at;
}

std::string_view PlaylistLines::TakeLastLine() {
    const std::string_view line = TrimByteBlanks(m_text.substr(m_at, m_end - m_at));
    m_at = m_end;
    return line;
}

std::optional<std::string_view> PlaylistLines::Next() {
    while (m_at < m_end) {
        if (!HoldsLineFeed()) {
            if (m_end - m_at < 2) return std::nullopt;
            return WithoutReturns(TakeLastLine());
        }
        if (EndsLine(m_text[m_at])) {
            ++m_at;
        } else if (EndsLine(m_text[m_end - 1])) {
            --m_end;
        } else {
            const std::string_view rest = m_text.substr(m_at, m_end - m_at);
            const auto behindFirst = TextBetween(rest, rest.front(), kLineFeed);
            const std::size_t length = 1 + behindFirst.value_or(std::string_view()).size();
            m_at += length;
            return WithoutReturns(rest.substr(0, length));
        }
    }
    return std::nullopt;
}

void LoadPlaylistFile(Velora& velora, Integer Index) {
    if (velora.Count >= velora.MediaLimit) return;
    const PlaylistRecord& record = velora.Playlists[Index];
    const Text path = record.Path + record.File;
    if (!FileExists(path)) return;
    const std::string bytes = ReadWholeFile(path);
    PlaylistLines lines(PlaylistContent(bytes));
    while (velora.Count < velora.MediaLimit) {
        const std::optional<std::string_view> line = lines.Next();
        if (!line || !AddLine(velora, *line, Index)) return;
        velora.Loop.Turn();
    }
}
