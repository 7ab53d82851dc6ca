// A line of a playlist can be as long as its file, so names are hashed and compared letter by
// letter: a lower-case copy of the whole would cost several times the file.
#include "playlist/media_list.h"

#include <algorithm>

#include "platform/paths.h"
#include "state/file_dialogs.h"
#include "state/messages.h"

namespace {

struct TypeRow {
    TextView Extension;
    MediaType Type;
};

constexpr TypeRow kTypes[] = {
    {u"mp1", kMp1Media},        {u"mp2", kMp2Media}, {u"mp3", kMp3Media}, {u"mpg", kMpegVideoMedia},
    {u"mpeg", kMpegVideoMedia}, {u"wav", kWavMedia}, {u"wma", kWmaMedia}, {u"wmv", kWmvMedia},
};

constexpr TextView kLongExtension = u".mpeg";

std::uint64_t HashIgnoringCase(TextView name) {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (std::size_t at = 0; at < name.size();)
        hash = (hash ^ NextLowerLetter(name, at)) * 0x100000001B3;
    return hash;
}

// Brings the index up to the list's end, whoever has filled the list.
void CatchUp(Velora& velora) {
    MediaIndex& index = velora.MediaNames;
    for (; index.Indexed < velora.Count; ++index.Indexed) {
        const auto next = static_cast<Integer>(index.Indexed + 1);
        index.Places.emplace(HashIgnoringCase(velora.MediaList[next].File), next);
    }
}

// The path of the file meant by the two texts; asks the user if there is no name.
Text ChosenPath(Velora& velora, const Text& directory, const Text& fileName) {
    if (!fileName.empty()) return directory + fileName;
    return OpenFileDialog(velora, velora.MediaFilter, u"Select Media ...", directory);
}

} // namespace

TextView MediaExtension(TextView fileName) {
    const std::size_t length = kLongExtension.size();
    if (fileName.size() >= length &&
        EqualIgnoringCase(fileName.substr(fileName.size() - length), kLongExtension))
        return fileName.substr(fileName.size() - length + 1);
    return fileName.substr(fileName.size() - std::min<std::size_t>(fileName.size(), 3));
}

Long MediaTypeOf(TextView Extension) {
    const auto* const row =
        std::find_if(std::begin(kTypes), std::end(kTypes), [&](const TypeRow& known) {
            return EqualIgnoringCase(known.Extension, Extension);
        });
    return row == std::end(kTypes) ? kNoMediaType : row->Type;
}

Integer FindMedia(Velora& velora, TextView FileName) {
    CatchUp(velora);
    const auto [begin, end] = velora.MediaNames.Places.equal_range(HashIgnoringCase(FileName));
    for (auto place = begin; place != end; ++place)
        if (EqualIgnoringCase(velora.MediaList[place->second].File, FileName)) return place->second;
    return 0;
}

Integer AppendMedia(Velora& velora, Text path, Text file, Integer flag) {
    if (!velora.MediaList.Has(velora.Count + 1)) return 0;
    ++velora.Count;
    MediaEntry& entry = velora.MediaList[velora.Count];
    entry.Type = MediaTypeOf(MediaExtension(file));
    entry.Enabled = true;
    entry.File = std::move(file);
    entry.Path = std::move(path);
    entry.Flag = flag;
    return velora.Count;
}

Integer AddMedia(Velora& velora, Integer Flag, Text& Directory, Text& FileName) {
    if (velora.Count == velora.MediaLimit) {
        ShowMessage(velora, u"Media Limit reached");
        return 0;
    }
    if (!Directory.empty() && !Directory.ends_with(u'\\')) Directory += u'\\';
    const Text path = ChosenPath(velora, Directory, FileName);
    if (path.empty()) return 0;
    FileName = GetFileName(path);
    if (const Integer known = FindMedia(velora, FileName)) return known;
    Directory = path.substr(0, path.size() - FileName.size());
    if (MediaTypeOf(MediaExtension(FileName)) == kNoMediaType) {
        ShowMessage(velora, u"That file format is not supported by Velora");
        return 0;
    }
    return AppendMedia(velora, Directory, FileName, Flag);
}
