// One lock is held over the reading of the count and all writes, so that two runs never take one
// number.
#include "playlist/playlist_catalogue.h"

#include <algorithm>
#include <utility>

#include "platform/directory_lock.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/profile_strings.h"
#include "playlist/playlist_file.h"
#include "state/messages.h"

namespace {

enum class Refusal { None, Full, TooLong };

// The number of the record that was entered, or why none was.
struct Entering {
    Refusal Why = Refusal::None;
    Integer Number = 0;
};

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

Integer CountInFile(const Text& ini) {
    ProfileReader reader(ini);
    Integer count = 0;
    ReadProfileNumber(reader, u"Settings", u"Count", u"0", count);
    return count;
}

// The first write also takes over what is `installed` for all users, where the user has no
// catalogue yet.
void WriteRecord(const Text& ini, const PlaylistRecord& record, Integer number,
                 const Text& installed) {
    const Text section = Decimal(number);
    WriteProfileString(ini, section, u"Enabled", u"True", installed);
    WriteProfileString(ini, section, u"Name", record.Name);
    WriteProfileString(ini, section, u"File", record.File);
    WriteProfileString(ini, section, u"Path", record.Path);
    WriteProfileString(ini, u"Settings", u"Count", Decimal(number));
}

Entering Enter(Velora& velora, const PlaylistRecord& record) {
    const Text& ini = velora.PlaylistsIni;
    const Text installed =
        std::exchange(velora.PlaylistsIni, velora.System.OwnIniFile(u"\\" + GetFileName(ini)));
    const std::size_t nameLength = GetFileName(ini).size();
    const TextView directory = TextView(ini).substr(0, ini.size() - nameLength);
    // The user's own place for the file is made when something is to be written there, not before.
    MakeDirectory(directory);
    const DirectoryLock lock(velora.Loop, directory);
    // Other runs may have added since the last look.
    velora.PlaylistCount = std::max({velora.PlaylistCount, CountInFile(ini), Integer{0}});
    if (!velora.Playlists.Has(velora.PlaylistCount + 1)) return {Refusal::Full, 0};
    if (!ReadsBackWhole(record.Name) || !ReadsBackWhole(record.File) ||
        !ReadsBackWhole(record.Path))
        return {Refusal::TooLong, 0};
    ++velora.PlaylistCount;
    velora.Playlists[velora.PlaylistCount] = record;
    WriteRecord(ini, record, velora.PlaylistCount, installed);
    return {Refusal::None, velora.PlaylistCount};
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
    if (Name.empty()) return 0;
    const Text fileName = GetFileName(File);
    const Text directory = File.substr(0, File.size() - fileName.size());
    const Entering entering = Enter(velora, {true, Name, fileName, directory});
    // The lock is free again: a message can stand as long as the user likes.
    if (entering.Why == Refusal::Full) ShowMessage(velora, u"Playlist Limit reached");
    if (entering.Why == Refusal::TooLong) ShowMessage(velora, u"That path is too long for Velora");
    return entering.Number;
}
