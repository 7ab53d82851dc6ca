// The decoder doesn't tell the number of bytes, so the tag is looked up once more by its letters.
#include "platform/audio/decode/info_tag.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/audio/decode/media_file.h"

namespace {

constexpr std::size_t kBytesToRead = 2 * 3072;
/// From a frame's first byte to the letters: header, an optional checksum, and the side
/// information, whose size depends on version and channels.
constexpr std::size_t kXingOffsets[] = {36, 38, 21, 23, 13, 15};
constexpr std::size_t kVbriOffset = 36;

using Bytes = std::vector<unsigned char>;

std::int64_t BigEndian32(const Bytes& bytes, std::size_t at) {
    if (at + 4 > bytes.size()) return 0;
    return static_cast<std::int64_t>(bytes[at]) << 24 | bytes[at + 1] << 16 | bytes[at + 2] << 8 |
           bytes[at + 3];
}

bool HasLetters(const Bytes& bytes, std::size_t at, std::string_view letters) {
    return at + letters.size() <= bytes.size() &&
           std::equal(letters.begin(), letters.end(),
                      bytes.begin() + static_cast<std::ptrdiff_t>(at));
}

bool HasSync(const Bytes& bytes, std::size_t at) {
    return at + 4 <= bytes.size() && bytes[at] == 0xFF && (bytes[at + 1] & 0xE0) == 0xE0;
}

std::optional<InfoTag> TagOfFrame(const Bytes& bytes, std::size_t frame) {
    if (!HasSync(bytes, frame)) return std::nullopt;
    for (const std::size_t offset : kXingOffsets) {
        const std::size_t at = frame + offset;
        if (!HasLetters(bytes, at, "Xing") && !HasLetters(bytes, at, "Info")) continue;
        const std::int64_t flags = BigEndian32(bytes, at + 4);
        InfoTag tag;
        std::size_t next = at + 8;
        if (flags & 1) {
            tag.Frames = BigEndian32(bytes, next);
            next += 4;
        }
        if (flags & 2) tag.Bytes = BigEndian32(bytes, next);
        return tag;
    }
    if (!HasLetters(bytes, frame + kVbriOffset, "VBRI")) return std::nullopt;
    InfoTag tag;
    tag.Bytes = BigEndian32(bytes, frame + kVbriOffset + 10);
    tag.Frames = BigEndian32(bytes, frame + kVbriOffset + 14);
    tag.IsVbri = true;
    return tag;
}

} // namespace

std::optional<InfoTag> FindInfoTag(MediaFile& file, std::int64_t framePosition) {
    const std::int64_t from = std::max<std::int64_t>(0, framePosition - kLongestFrameBytes);
    Bytes bytes(kBytesToRead);
    const std::ptrdiff_t got = file.ReadAt(from, bytes.data(), bytes.size());
    if (got <= 0) return std::nullopt;
    bytes.resize(static_cast<std::size_t>(got));
    const auto last = static_cast<std::size_t>(framePosition - from);
    // Nearest first: letters further in front belong to something that isn't this sound's.
    for (std::size_t back = 0; back <= last; ++back)
        if (std::optional<InfoTag> tag = TagOfFrame(bytes, last - back)) {
            tag->At = from + static_cast<std::int64_t>(last - back);
            return tag;
        }
    return std::nullopt;
}
