// The number of a new record is decided by the very text that the record is written into, so that
// two runs never take one number.
#include "playlist/playlist_catalogue.h"

#include <algorithm>

#include "platform/files.h"
#include "platform/paths.h"
#include "platform/profile_strings.h"
#include "playlist/playlist_file.h"
#include "state/messages.h"

namespace {

void LoadRecord(Velora& velora, ProfileReader& reader, Integer number) {
    PlaylistRecord& record = velora.Playlists[number];
    const Text section = Decimal(number);
    ReadProfileBoolean(reader, section, u"Enabled", u"False", record.Enabled);
    if (!record.Enabled) return;
    record.Name = reader.Read(section, u"Name", u"");
    record.File = reader.Read(section, u"File", u"");
    record.Path = reader.Read(section, u"Path", u"");
    if (!record.Path.ends_with(u'\\')) record.Path += u'\\';
    LoadPlaylistFile(velora, number);
}

// Raises the count to the file's, since other runs may have added, and gives the first number
// behind it whose section isn't in the file; 0 if all records are taken.
Integer NextNumber(Velora& velora, const IniText& now) {
    const Text count = TextFromBytes(now.Find("Settings", "Count").value_or(std::string_view()));
    velora.PlaylistCount = std::max(
        {velora.PlaylistCount, RoundedNumber<Integer>(count).value_or(Integer{0}), Integer{0}});
    Long number = velora.PlaylistCount + 1;
    while (velora.Playlists.Has(number) && now.HasSection(Utf8(Decimal(number))))
        ++number;
    return velora.Playlists.Has(number) ? static_cast<Integer>(number) : Integer{0};
}

std::vector<ProfileString> StringsOf(const PlaylistRecord& record, Integer number) {
    const Text section = Decimal(number);
    return {{section, u"Enabled", u"True"},
            {section, u"Name", record.Name},
            {section, u"File", record.File},
            {section, u"Path", record.Path},
            {u"Settings", u"Count", section}};
}

// Gives the number of the record that was entered, 0 if all are taken.
Integer Enter(Velora& velora, const PlaylistRecord& record) {
    const Text name = u"\\" + GetFileName(velora.PlaylistsIni);
    const Text own = velora.System.OwnIniFile(name);
    // The user's own place for the file is made when something is to be written there, not before.
    MakeDirectory(TextView(own).substr(0, own.size() - name.size() + 1));
    std::optional<Integer> decided;
    const auto add = [&](const IniText& now) {
        decided = NextNumber(velora, now);
        return *decided == 0 ? std::vector<ProfileString>() : StringsOf(record, *decided);
    };
    // The first write also takes over what is installed for all users.
    WriteProfileStrings(velora.Loop, own, add, velora.System.IniFile(name));
    // If there is no file to be read the records of this run tell.
    const Integer number = decided ? *decided : NextNumber(velora, IniText());
    if (number == 0) return 0;
    velora.PlaylistCount = number;
    velora.Playlists[number] = record;
    return number;
}

Text WithoutLineEnds(Text text) {
    std::erase_if(text, [](char16_t letter) { return letter == u'\r' || letter == u'\n'; });
    return text;
}

} // namespace

void LoadPlaylistCatalogue(Velora& velora) {
    ProfileReader reader(velora.PlaylistsIni);
    ReadProfileNumber(reader, u"Settings", u"Count", u"0", velora.PlaylistCount);
    const Integer last = std::min(velora.PlaylistCount, velora.Playlists.kLast);
    for (Integer number = 1; number <= last; ++number)
        LoadRecord(velora, reader, number);
}

Integer AddPlaylist(Velora& velora, const Text& Name, const Text& File) {
    const Text name = WithoutLineEnds(Name), path = WithoutLineEnds(File);
    if (name.empty()) return 0;
    const Text fileName = GetFileName(path);
    const PlaylistRecord record{true, name, fileName,
                                path.substr(0, path.size() - fileName.size())};
    if (!ReadsBackWhole(record.Name) || !ReadsBackWhole(record.File) ||
        !ReadsBackWhole(record.Path)) {
        ShowMessage(velora, u"That path is too long for Velora");
        return 0;
    }
    const Integer number = Enter(velora, record);
    // The lock is free again: a message can stand as long as the user likes.
    if (number == 0) ShowMessage(velora, u"Playlist Limit reached");
    return number;
}
