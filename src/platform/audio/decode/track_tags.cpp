// The decoder hands out pointers into structures that its next call may change, so all is copied at
// once.
#include "platform/audio/decode/track_tags.h"

#include <cstring>
#include <initializer_list>
#include <mpg123.h>
#include <span>
#include <string_view>

namespace {

constexpr std::size_t kTextLimit = 65536;
constexpr int kNoGenre = 255;

/// Several texts in one field are parted by NULs; the first counts.
Text TextOf(const mpg123_string& string) {
    const std::string_view bytes(string.p, string.fill);
    Text text = TextFromBytes(bytes.substr(0, bytes.find('\0')));
    text.resize(StartOf(text, kTextLimit).size());
    return text;
}

/// The first field with one of `ids` that isn't empty.
Text FirstText(const mpg123_id3v2& tag, std::initializer_list<const char*> ids) {
    for (const char* id : ids)
        for (const mpg123_text& field : std::span(tag.text, tag.texts)) {
            if (std::memcmp(field.id, id, 4) != 0) continue;
            if (Text text = TextOf(field.text); !text.empty()) return text;
        }
    return {};
}

/// The first comment without a description; failing that the first with one.
Text FirstComment(const mpg123_id3v2& tag) {
    Text described;
    for (const mpg123_text& comment : std::span(tag.comment_list, tag.comments)) {
        Text text = TextOf(comment.text);
        if (text.empty()) continue;
        if (TextOf(comment.description).empty()) return text;
        if (described.empty()) described = std::move(text);
    }
    return described;
}

void AddId3v2(const mpg123_id3v2& tag, TrackTags& tags) {
    tags.Title = FirstText(tag, {"TIT2"});
    tags.Artist = FirstText(tag, {"TPE1"});
    tags.Album = FirstText(tag, {"TALB"});
    tags.Year = FirstText(tag, {"TYER", "TDRC"});
    tags.Comment = FirstComment(tag);
    tags.Genre = FirstText(tag, {"TCON"});
}

template<std::size_t kSize>
void FillFromId3v1(Text& text, const char (&field)[kSize]) {
    if (!text.empty()) return;
    std::string_view bytes(field, kSize);
    bytes = bytes.substr(0, bytes.find('\0'));
    text = TextFromBytes(bytes.substr(0, bytes.find_last_not_of(' ') + 1));
}

void AddId3v1(const mpg123_id3v1& tag, TrackTags& tags) {
    FillFromId3v1(tags.Title, tag.title);
    FillFromId3v1(tags.Artist, tag.artist);
    FillFromId3v1(tags.Album, tag.album);
    FillFromId3v1(tags.Year, tag.year);
    FillFromId3v1(tags.Comment, tag.comment);
    if (tags.Genre.empty() && tag.genre != kNoGenre) tags.Genre = Decimal(tag.genre);
}

} // namespace

TrackTags ReadTags(mpg123_handle_struct* decoder) {
    TrackTags tags;
    mpg123_id3v1* first = nullptr;
    mpg123_id3v2* second = nullptr;
    if (mpg123_id3(decoder, &first, &second) != MPG123_OK) return tags;
    if (second) AddId3v2(*second, tags);
    if (first) AddId3v1(*first, tags);
    return tags;
}
