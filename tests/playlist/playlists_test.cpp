// Playlists from their bytes to the media list, the list itself, and the catalogue in its file.
#include <sys/inotify.h>
#include <unistd.h>

#include "platform/directory_lock.h"
#include "playlist/media_list.h"
#include "playlist/playlist_catalogue.h"
#include "playlist/playlist_file.h"
#include "support/temp_directory.h"
#include "support/velora_fixture.h"

namespace {

using namespace std::string_view_literals;

// The last three characters decide, with a dot or without, or ".mpeg".
constexpr std::pair<TextView, Long> kKinds[] = {
    {u"a.mp1", 1}, {u"a.mp2", 2},  {u"xMP3", 3},  {u"mp3", 3},   {u"a.MPG", 4},
    {u".mpeg", 4}, {u"a.MPEG", 4}, {u"a.wav", 5}, {u"a.wma", 7}, {u"a.wmv", 8},
    {u"mpeg", 0},  {u"xmpeg", 0},  {u"p3", 0},    {u"", 0},      {u"a.mp3.txt", 0}};

// The directory and name to add, the user's choice, and what comes of it: the index, path and name,
// and what the user was told.
constexpr TextView kAdds[][4] = {
    {u"", u"", u"", u"0 | ChooseFile Select Media ..."},
    {u"C:\\a", u"song.mp3", u"", u"1 C:\\a\\|song.mp3"},
    {u"C:\\b\\", u"Ä.wmv", u"", u"2 C:\\b\\|Ä.wmv"},
    {u"", u"ä.WMV", u"", u"2 |ä.WMV"},
    {u"", u"x\\c.mp3", u"", u"3 x\\|c.mp3"},
    {u"C:", u"a.txt", u"", u"0 C:\\|a.txt MessageBox That file format is not supported by Velora"},
    {u"x", u"", u"\\music\\a b.mp3", u"4 \\music\\|a b.mp3 ChooseFile Select Media ..."},
    {u"", u"c.mp3", u"", u"0 |c.mp3 MessageBox Media Limit reached"},
};

// A playlist's bytes, and what it adds to an empty list of four: "DIRECTORY|NAME," for each line.
constexpr std::string_view kFiles[][2] = {
    {"", ""},
    {"xyz", ""},
    {"\r\n \r\n", ""},
    {"a\n\rbc\r\r\n", "|a,|bc,"},
    {"b \r\r\n", "|b ,"},
    {"a\n  bc \n\r\r\n", "|a,|bc,"},
    {"a\nb\r\n1\r\n", "|a,|b,"},
    {"a\n\xE4\nx\xC3\xA4\xF0\x9F\x8E\xB5\xC3\xBC", "|a,|\xC3\xA4,|x\xC3\xA4,"},
    {"\xC3\xA4\ny\xE4\xF6\xFC", "|\xC3\xA4,|y\xC3\xA4,"},
    {"a.mp3\nx\xC3\xA4\n\xC3\xA4", "|a.mp3,|x\xC3\xA4,"},
    {"a.mp3\r\nb.mp3\r\nC:\\A.MP3\r\nc.mp3\r\n", "|a.mp3,|b.mp3,"},
    {"d.mp3\r\nC:\\music\\\r\ne.mp3\r\n", "|d.mp3,"},
    {"#EXTM3U\r\n   \r\na.txt\r\n", "|#EXTM3U,|   ,|a.txt,"},
    {"C:\\Music\\a.mp3\r\n..\\b.mp3\r\nsub/c.mp3\r\n", "C:\\Music\\|a.mp3,..\\|b.mp3,|sub/c.mp3,"},
    {"\xEF\xBB\xBF\xC3\xA4.mp3\n\r\n\xF6.mp3\r\n", "|\xC3\xA4.mp3,|\xC3\xB6.mp3,"},
    {"\0\0x\0\n\x1A.mp3\r\n"sv, "|\0\0x\0,|\x1A.mp3,"sv},
    {"1\n2\n3\n4\n5\n6\n\n", "|1,|2,|3,|4,"},
};

// A catalogue, and what the next start finds.
constexpr std::string_view kStarts[][3] = {
    {"a known name ends a playlist",
     "[Settings]\nCount=4\n[1]\nEnabled=True\nName=One\nFile=one.m3u\nPath=.\n[2]\nEnabled=maybe\n"
     "File=two.m3u\nPath=.\n[4]\nEnabled=2\nName=Four\nFile=two.m3u\nPath=.\\\n[5]\nEnabled=1",
     "4; 1 One|.\\|one.m3u; 4 Four|.\\|two.m3u, a.mp3, b.mp3, c.mp3"},
    {"more than the records", "[Settings]\nCount=32767\n[500]\nEnabled=1\n[501]\nEnabled=1",
     "32767; 500 |\\|"},
    {"no number", "[Settings]\nCount=40000\n[1]\nEnabled=1", "0"},
    {"below zero", "[Settings]\nCount=-5\n", "-5"},
};

const std::string kTooLong = "0 MessageBox That path is too long for Velora; 0";

// What the catalogue counts, a name and a file to enter, and what comes of it: the number, the
// message, and what the next start finds.
const std::tuple<std::string, Text, Text, std::string> kEntries[] = {
    {"0", u"First", u"a\\my list.m3u", "1; 1; 1 First|a\\|my list.m3u"},
    {"6", u" x ", u"e", "7; 7; 7  x |\\|e"},
    {"-5", u"x", u"\\e", "1; 1; 1 x|\\|e"},
    {"499", u"x", u"e", "500; 500; 500 x|\\|e"},
    {"500", u"x", u"e", "0 MessageBox Playlist Limit reached; 500"},
    {"0", u"", u"e", "0; 0"},
    {"0", u"\r\n", u"e", "0; 0"},
    {"0", u"a\r\nname\n", u"\\d\\e\r\n", "1; 1; 1 aname|\\d\\|e"},
    {"40000\n[1]\nEnabled=1\nName=old\nFile=o", u"x", u"e", "2; 2; 1 old|\\|o; 2 x|\\|e"},
    {"1\n[2]\n[3]\n", u"x", u"e", "4; 4; 4 x|\\|e"},
    {"499\n[500]\n", u"x", u"e", "0 MessageBox Playlist Limit reached; 499"},
    {"0", Text(255, u'x'), u"e", kTooLong},
    {"0", u"x", Text(255, u'e'), kTooLong},
    {"0", u"x", Text(254, u'e') + u"\\e", kTooLong},
};

// The program's directory is the one that the test runs in.
class Playlists : public VeloraTest {
protected:
    Playlists() {
        directory.Put("one.m3u", "a.mp3\r\nb.mp3\r\n");
        directory.Put("two.m3u", "c.mp3\r\nA.mp3\r\nd.mp3\r\n");
        machine.Directory = machine.OwnDirectory = u".";
        velora.PlaylistsIni = u"velplaylists.ini";
    }
    std::string TakeMessages() {
        std::string messages;
        for (const std::string& line : journal.Take())
            messages += " " + line;
        return messages;
    }
    std::string Load(std::string_view bytes) {
        directory.Put("list.m3u", bytes);
        velora.Count = 0;
        velora.MediaNames = {};
        velora.MediaLimit = 4;
        velora.Playlists[500] = {true, u"x", u"list.m3u", u".\\"};
        LoadPlaylistFile(velora, 500);
        std::string added;
        for (int entry = 1; entry <= velora.Count; ++entry) {
            const MediaEntry& now = velora.MediaList[entry];
            EXPECT_EQ(now.Flag, 500);
            added += Utf8(now.Path + u"|" + now.File + u",");
        }
        return added;
    }
    /// What a run that starts now finds: the count, each record and the media list.
    std::string NextStart() {
        Velora next(PartsWith(pictures));
        next.MediaLimit = 2500;
        next.PlaylistsIni = velora.PlaylistsIni;
        LoadPlaylistCatalogue(next);
        std::string found = Utf8(Decimal(next.PlaylistCount));
        for (const PlaylistRecord& record : next.Playlists)
            if (record.Enabled || !record.Path.empty())
                found += "; " + std::to_string(&record - &next.Playlists[0]) + " " +
                         Utf8(record.Name + u"|" + record.Path + u"|" + record.File);
        for (Integer entry = 1; !next.MediaList[entry].File.empty(); ++entry)
            found += ", " + Utf8(next.MediaList[entry].File);
        return found;
    }

    const WorkingDirectory directory;
};

} // namespace

TEST_F(Playlists, TheEndOfANameTellsItsKind) {
    for (const auto& [name, kind] : kKinds)
        EXPECT_EQ(MediaTypeOf(MediaExtension(name)), kind) << Utf8(name);
}

TEST_F(Playlists, ANameStandsInItOnceWhateverItsDirectoryAndCase) {
    velora.MediaLimit = 4;
    for (const auto& [folder, name, chosen, outcome] : kAdds) {
        Text path(folder), file(name);
        if (!chosen.empty()) dialogs.Files = {Text(chosen)};
        std::string now = std::to_string(AddMedia(velora, 11, path, file));
        now += Utf8(u" " + path + u"|" + file);
        EXPECT_EQ(now + TakeMessages(), Utf8(outcome));
    }
    const MediaEntry& entry = velora.MediaList[2];
    EXPECT_EQ(entry.Path + entry.File + Decimal(entry.Type) + Decimal(entry.Flag),
              u"C:\\b\\Ä.wmv811");
    EXPECT_TRUE(entry.Enabled);
}

TEST_F(Playlists, TheArrayHasItsEndAndLongNamesDifferByTheirLastLetter) {
    const Text stem(5000, u'Ä');
    velora.Count = 2498;
    EXPECT_EQ(AppendMedia(velora, u"", stem + u"a.mp3", 1), 2499);
    EXPECT_EQ(AppendMedia(velora, u"", stem + u"b.mp3", 1), 2500);
    EXPECT_EQ(AppendMedia(velora, u"", u"more.mp3", 1), 0);
    EXPECT_EQ(FindMedia(velora, stem + u"B.MP3"), 2500);
}

TEST_F(Playlists, AddLinesEachWithATurnOfTheLoop) {
    Integer entriesThen = 0;
    loop.Post([&] { entriesThen = velora.Count; });
    EXPECT_EQ(Load("a.mp3\r\nb.mp3\r\n"), "|a.mp3,|b.mp3,");
    EXPECT_EQ(entriesThen, 1);
    for (const auto& [bytes, added] : kFiles)
        EXPECT_EQ(Load(bytes), added) << ::testing::PrintToString(bytes);
    const FileHandle opened(inotify_init1(IN_NONBLOCK));
    EXPECT_GT(inotify_add_watch(opened.Descriptor(), "list.m3u", IN_OPEN), 0);
    LoadPlaylistFile(velora, 500);
    inotify_event event;
    EXPECT_EQ(read(opened.Descriptor(), &event, sizeof event), -1) << "the list is full";
}

// Forms in which a reader that cuts its text line by line would need time by the square of the
// size: it would not come to an end before ctest loses its patience.
TEST_F(Playlists, CostNoMoreThanTheirSize) {
    const std::size_t size = 2 * 1024 * 1024;
    for (const std::string& bytes :
         {std::string(size, '\n'), std::string(size, '\r') + "\n..",
          "a\n" + std::string(size, '\r'), std::string(size, '\\') + ".."})
        EXPECT_LE(Load(bytes).size(), size + 8);
}

TEST_F(Playlists, BringsItsPlaylistsAtTheStart) {
    for (const auto& [name, ini, found] : kStarts) {
        directory.Put("velplaylists.ini", ini);
        EXPECT_EQ(NextStart(), found) << name;
    }
}

TEST_F(Playlists, APlaylistIsEnteredForTheNextStartOrRefusedWithAMessage) {
    for (const auto& [count, name, file, outcome] : kEntries) {
        Velora run(PartsWith(pictures));
        run.PlaylistsIni = u"velplaylists.ini";
        directory.Put("velplaylists.ini", "[Settings]\nCount=" + count);
        const std::string number = std::to_string(AddPlaylist(run, name, file));
        EXPECT_EQ(number + TakeMessages() + "; " + NextStart(), outcome);
    }
}

TEST_F(Playlists, AnInstalledOneIsCompletedInTheUsersOwnPlace) {
    const std::string installed = "[Settings]\nCount=1\n[1]\nEnabled=1\nName=theirs\n";
    directory.Put("velplaylists.ini", installed);
    machine.OwnDirectory = u"home\\velora";
    LoadPlaylistCatalogue(velora);
    // The first one fails: it finds no directory.
    directory.Put("home", "");
    EXPECT_EQ(AddPlaylist(velora, u"lost", u"x"), 2);
    std::filesystem::remove("home");
    EXPECT_EQ(AddPlaylist(velora, u"mine", u"one.m3u"), 3);
    EXPECT_EQ(directory.Get("velplaylists.ini"), installed);
    velora.PlaylistsIni = machine.OwnIniFile(u"\\velplaylists.ini");
    EXPECT_EQ(NextStart(), "3; 1 theirs|\\|; 3 mine|\\|one.m3u");
}

TEST_F(Playlists, TwoRunsKeepBothEntriesAndOneThatCannotWriteGoesOn) {
    Velora other(PartsWith(pictures));
    other.PlaylistsIni = velora.PlaylistsIni;
    EXPECT_EQ(AddPlaylist(velora, u"mine", u"x"), 1);
    EXPECT_EQ(AddPlaylist(other, u"theirs", u"y"), 2);
    EXPECT_EQ(AddPlaylist(velora, u"mine again", u"x"), 3);
    machine.OwnDirectory = u"one.m3u";
    EXPECT_EQ(AddPlaylist(other, u"in no directory", u"y"), 4);
    EXPECT_EQ(other.Playlists[4].File, u"y");
    EXPECT_EQ(NextStart(), "3; 1 mine|\\|x; 2 theirs|\\|y; 3 mine again|\\|x");
}

TEST_F(Playlists, ALockIsWaitedForASecondAndNoMessageStandsOnIt) {
    NullLoop otherLoop;
    auto lock = std::make_unique<DirectoryLock>(otherLoop, ".");
    loop.Wait(7);
    EXPECT_EQ(AddPlaylist(velora, u"mine", u"x"), 1);
    EXPECT_EQ(loop.NowMs(), 8000);
    loop.Post([&] { lock.reset(); });
    EXPECT_EQ(AddPlaylist(velora, u"mine", u"x"), 2);
    EXPECT_EQ(loop.NowMs(), 8020);
    bool free = false;
    dialogs.WhileOpen = [&] { free = static_cast<bool>(DirectoryLock(otherLoop, ".")); };
    velora.PlaylistCount = 500;
    EXPECT_EQ(AddPlaylist(velora, u"one more", u"x"), 0);
    EXPECT_TRUE(free);
    EXPECT_FALSE(DirectoryLock(otherLoop, "gone"));
}
