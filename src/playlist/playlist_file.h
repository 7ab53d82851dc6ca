// Playlist files: plain text, one path to a line. Every line counts, nothing is a comment.
#pragma once

#include <string_view>

#include "state/velora.h"

/// No larger playlist is read.
constexpr std::size_t kMostPlaylistBytes = 128 * 1024 * 1024;

/// The bytes of a playlist file without a byte order mark at the start and without the last two
/// characters. In a file as it should be these are the line end; in any other they are lost all the
/// same. Nothing is left of fewer than two characters.
[[nodiscard]] std::string_view PlaylistContent(std::string_view bytes);

/// What stands between the first byte `start` of `text` and the first byte `stop`. Nothing if one
/// of them isn't there or `stop` doesn't stand behind `start`.
[[nodiscard]] std::optional<std::string_view> TextBetween(std::string_view text, char start,
                                                          char stop);

/// The lines of a playlist's content, one after the other. Empty lines are left out, a line of
/// blanks isn't; blanks at the two ends of the content and a last line of one byte are left out,
/// too. No byte is read twice, so the time grows with the size of the file alone.
class PlaylistLines {
public:
    /// `content` has to outlive the object.
    explicit PlaylistLines(std::string_view content);

    /// The next line without its line end; it can be empty. Nothing at the end.
    [[nodiscard]] std::optional<std::string_view> Next();

private:
    [[nodiscard]] bool HoldsLineFeed();
    std::string_view TakeLastLine();

    std::string_view m_text;
    std::size_t m_at = 0;       ///< The rest begins here
    std::size_t m_end;          ///< and ends in front of this.
    std::size_t m_lineFeedsEnd; ///< No line feed of the rest stands at or behind this.
};

/// Adds the lines of a record's file to the media list, each with a turn of the event loop. The
/// first line whose name is empty or in the list already ends the reading, and so does a full list;
/// if it is full before, the file isn't opened.
/// A file that isn't there or can't be read adds nothing. Each line is UTF-8 or Windows-1252 by
/// itself.
void LoadPlaylistFile(Velora& velora, Integer Index);
