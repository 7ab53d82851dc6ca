// The catalogue in its file: what is read at the start, and what a new playlist writes.
#include "playlist/catalogue.h"

#include "platform/directory_lock.h"
#include "platform/profile_strings.h"
#include "support/temp_directory.h"
#include "support/velora_fixture.h"

namespace {

class PlaylistCatalogue : public VeloraTest {
protected:
    PlaylistCatalogue() {
        machine.OwnDirectory = directory.PathText().substr(0, directory.PathText().size() - 1);
        velora.PlaylistsIni = directory.PathText("velplaylists.ini");
    }

    [[nodiscard]] std::string InFile(TextView section, TextView key) const {
        return Utf8(ReadProfileString(velora.PlaylistsIni, section, key, u"-"));
    }
    [[nodiscard]] std::string Record(const std::string& number, const std::string& file) const {
        return "[" + number + "]\r\nEnabled=True\r\nName=n\r\nFile=" + file + "\r\nPath=" + directory.Path() +
               "\r\n";
    }

    TempDirectory directory;
};

} // namespace

TEST_F(PlaylistCatalogue, IsEmptyWithoutAFile) {
    LoadPlaylistCatalogue(velora);
    EXPECT_EQ(velora.PlaylistCount, 0);
    EXPECT_EQ(directory.Names(), Lines{});
}

TEST_F(PlaylistCatalogue, AnInstalledOneIsCompletedInTheUsersOwnPlace) {
    const std::string installed = "[Settings]\r\nCount=1\r\n" + Record("1", "one.m3u");
    directory.Put("velplaylists.ini", installed);
    TempDirectory home;
    machine.OwnDirectory = home.PathText("velora");
    LoadPlaylistCatalogue(velora);
    EXPECT_EQ(AddPlaylist(velora, u"Mine", directory.PathText("two.m3u")), 2);
    EXPECT_EQ(AddPlaylist(velora, u"Mine, too", directory.PathText("three.m3u")), 3);
    EXPECT_EQ(directory.Get("velplaylists.ini"), installed);
    EXPECT_EQ(velora.PlaylistsIni, home.PathText("velora/velplaylists.ini"));
    EXPECT_EQ(InFile(u"Settings", u"Count"), "3");
    EXPECT_EQ(InFile(u"1", u"File"), "one.m3u");
    EXPECT_EQ(InFile(u"3", u"Name"), "Mine, too");
}

TEST_F(PlaylistCatalogue, PoursTheEnabledPlaylistsIntoTheListInTheirOrder) {
    directory.Put("velplaylists.ini", "[Settings]\r\nCount=4\r\n" + Record("1", "one.m3u") +
                                          "[2]\r\nEnabled=maybe\r\nFile=one.m3u\r\n" +
                                          Record("4", "two.m3u"));
    directory.Put("one.m3u", "a.mp3\r\nb.mp3\r\n");
    directory.Put("two.m3u", "c.mp3\r\na.mp3\r\nd.mp3\r\n");
    LoadPlaylistCatalogue(velora);
    EXPECT_EQ(velora.PlaylistCount, 4);
    EXPECT_EQ(velora.Count, 3) << "a name that an earlier playlist brought in ends the later one";
    EXPECT_EQ(velora.MediaList[3].File, u"c.mp3");
    EXPECT_EQ(velora.MediaList[3].Flag, 4);
    EXPECT_TRUE(velora.Playlists[1].Path.ends_with(u'\\'));
    EXPECT_FALSE(velora.Playlists[2].Enabled);
    EXPECT_EQ(velora.Playlists[2].File, u"") << "a disabled record stays empty";
}

TEST_F(PlaylistCatalogue, ACountBeyondTheRecordsIsKeptAndOneThatIsNoNumberIsNone) {
    directory.Put("velplaylists.ini",
                  "[Settings]\r\nCount=32767\r\n" + Record("500", "a.m3u") + Record("501", "a.m3u"));
    LoadPlaylistCatalogue(velora);
    EXPECT_EQ(velora.PlaylistCount, 32767);
    EXPECT_TRUE(velora.Playlists[500].Enabled);
    velora.PlaylistCount = 0;
    directory.Put("velplaylists.ini", "[Settings]\r\nCount=40000\r\n");
    LoadPlaylistCatalogue(velora);
    EXPECT_EQ(velora.PlaylistCount, 0);
}

TEST_F(PlaylistCatalogue, AnEmptyPathBecomesABackslash) {
    directory.Put("velplaylists.ini", "[Settings]\r\nCount=1\r\n[1]\r\nEnabled=1\r\n");
    LoadPlaylistCatalogue(velora);
    EXPECT_EQ(velora.Playlists[1].Path, u"\\");
}

TEST_F(PlaylistCatalogue, WhatIsAddedIsFoundAtTheNextStartAndNotBefore) {
    directory.Put("my list.m3u", "a.mp3\r\n");
    EXPECT_EQ(AddPlaylist(velora, u"First", directory.PathText("my list.m3u")), 1);
    EXPECT_EQ(AddPlaylist(velora, u" quoted ", directory.PathText("other.m3u")), 2);
    EXPECT_EQ(velora.Count, 0);
    EXPECT_EQ(InFile(u"Settings", u"Count"), "2");
    EXPECT_EQ(InFile(u"1", u"Enabled"), "True");
    EXPECT_EQ(InFile(u"1", u"File"), "my list.m3u") << "the bare name";
    Velora next(PartsWith(pictures));
    next.MediaLimit = 2500;
    next.PlaylistsIni = velora.PlaylistsIni;
    LoadPlaylistCatalogue(next);
    EXPECT_EQ(next.Count, 1);
    EXPECT_EQ(next.Playlists[2].Name, u" quoted ");
}

TEST_F(PlaylistCatalogue, WithoutANameNothingIsWritten) {
    EXPECT_EQ(AddPlaylist(velora, u"", directory.PathText("a.m3u")), 0);
    EXPECT_EQ(directory.Names(), Lines{});
}

TEST_F(PlaylistCatalogue, TwoRunsThatAddKeepBothEntries) {
    Velora other(PartsWith(pictures));
    other.PlaylistsIni = velora.PlaylistsIni;
    EXPECT_EQ(AddPlaylist(velora, u"Mine", directory.PathText("a.m3u")), 1);
    EXPECT_EQ(AddPlaylist(other, u"Theirs", directory.PathText("b.m3u")), 2);
    EXPECT_EQ(AddPlaylist(velora, u"Mine again", directory.PathText("c.m3u")), 3);
    EXPECT_EQ(InFile(u"2", u"Name"), "Theirs");
    EXPECT_EQ(InFile(u"Settings", u"Count"), "3");
}

TEST_F(PlaylistCatalogue, ALockThatIsNotGivenUpHoldsUpForASecondOnly) {
    NullLoop otherLoop;
    const DirectoryLock lock(otherLoop, directory.PathText(""));
    ASSERT_TRUE(lock);
    EXPECT_EQ(AddPlaylist(velora, u"Mine", directory.PathText("a.m3u")), 1);
    EXPECT_EQ(loop.NowMs(), 1000);
}

TEST_F(PlaylistCatalogue, NoMessageStandsOnALock) {
    bool free = false;
    dialogs.WhileOpen = [&] {
        NullLoop otherLoop;
        free = static_cast<bool>(DirectoryLock(otherLoop, directory.PathText("")));
    };
    velora.PlaylistCount = 500;
    EXPECT_EQ(AddPlaylist(velora, u"x", directory.PathText("a.m3u")), 0);
    EXPECT_TRUE(free);
}

TEST_F(PlaylistCatalogue, LimitsAreToldAndEnterNothing) {
    const Text longName(251, u'x');
    EXPECT_EQ(AddPlaylist(velora, u"fits", directory.PathText("") + longName.substr(0, 250) + u".m3u"), 1);
    EXPECT_EQ(AddPlaylist(velora, u"too long", directory.PathText("") + longName + u".m3u"), 0);
    EXPECT_EQ(AddPlaylist(velora, u"line end", directory.PathText("a\nb.m3u")), 0);
    EXPECT_EQ(journal.Take(), Lines(2, "MessageBox That path is too long for Velora"));
    EXPECT_EQ(velora.PlaylistCount, 1);
    directory.Put("velplaylists.ini", "[Settings]\r\nCount=500\r\n");
    EXPECT_EQ(AddPlaylist(velora, u"one more", directory.PathText("a.m3u")), 0);
    EXPECT_EQ(journal.Take(), Lines{"MessageBox Playlist Limit reached"});
    EXPECT_EQ(InFile(u"Settings", u"Count"), "500");
}

TEST_F(PlaylistCatalogue, ACountBelowZeroIsZeroForTheNextRecord) {
    directory.Put("velplaylists.ini", "[Settings]\r\nCount=-5\r\n");
    LoadPlaylistCatalogue(velora);
    EXPECT_EQ(velora.PlaylistCount, -5);
    EXPECT_EQ(AddPlaylist(velora, u"x", directory.PathText("a.m3u")), 1);
}

TEST_F(PlaylistCatalogue, AFileThatCannotBeWrittenLeavesTheRecordForThisRun) {
    velora.PlaylistsIni = directory.PathText("gone\\velplaylists.ini");
    EXPECT_EQ(AddPlaylist(velora, u"x", directory.PathText("a.m3u")), 1);
    EXPECT_TRUE(velora.Playlists[1].Enabled);
}

TEST_F(PlaylistCatalogue, EjectWithAModifierAsksForFileAndName) {
    for (const Integer shift : {1, 2, 4, 7}) {
        machine.Current = u"\\here";
        dialogs.Files = {directory.PathText("a.m3u")};
        Click(form.picEject, kLeftButton, shift);
        EXPECT_EQ(velora.PlaylistCount, 0) << "the input box was cancelled";
        EXPECT_EQ(dialogs.LastDirectory, u"\\here");
    }
    (void)journal.Take();
    Click(form.picEject, kLeftButton, 1);
    EXPECT_EQ(journal.Take(), (Lines{"PlaySound \\velora\\click.wav", "ChooseFile Select Playlist ..."}))
        << "no name is asked for without a file";
    dialogs.Files = {directory.PathText("a.m3u")};
    dialogs.Inputs = {u"Mine"};
    Click(form.picEject, kLeftButton, 1);
    EXPECT_EQ(InFile(u"1", u"Name"), "Mine");
}
