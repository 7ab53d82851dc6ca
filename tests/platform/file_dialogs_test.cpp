// The open-file dialog: its rows, and what a choice leaves behind.
#include <gtest/gtest.h>

#include "platform/file_dialogs.h"
#include "platform/null/null_parts.h"

namespace {

struct FileDialogs : ::testing::Test {
    Journal journal;
    NullDialogs dialogs{journal};
    NullSystem machine{journal};
    const std::vector<FilterRow> filter{{u"All Files (*.*)", u"*.*"}};
    Text Open(const Text& directory = {}) {
        return OpenFileDialog(dialogs, machine, filter, u"Select Media ...", directory);
    }
};

} // namespace

TEST_F(FileDialogs, TheThreeListsOfFileTypes) {
    std::vector<FilterRow> media, playlists, skins;
    InitialiseFilters(media, playlists, skins);
    InitialiseFilters(media, playlists, skins);
    ASSERT_EQ(media.size(), 9u) << "the same the second time";
    EXPECT_EQ(media.front(), (FilterRow{u"MP3 Files (*.mp3)", u"*.mp3"}));
    EXPECT_EQ(media[7], (FilterRow{u"Windows Media Video (*.wmv)", u"*.wmv"}));
    EXPECT_EQ(media.back(), (FilterRow{u"All Files (*.*)", u"*.*"}));
    EXPECT_EQ(playlists,
              (std::vector<FilterRow>{{u"M3U Files (*.m3u)", u"*.m3u"}, {u"All Files (*.*)", u"*.*"}}));
    EXPECT_EQ(skins.front(), (FilterRow{u"Skin Files (*.vs4)", u"*.vs4"}));
}

TEST_F(FileDialogs, AChoiceMakesItsDirectoryTheCurrentOne) {
    dialogs.Files = {u"\\music\\my songs\\a b.mp3", u"\\root.mp3"};
    EXPECT_EQ(Open(u"\\start"), u"\\music\\my songs\\a b.mp3");
    EXPECT_EQ(dialogs.LastDirectory, u"\\start");
    EXPECT_EQ(dialogs.LastRows, filter);
    EXPECT_EQ(machine.CurrentDirectory(), u"\\music\\my songs");
    EXPECT_EQ(Open(), u"\\root.mp3");
    EXPECT_EQ(dialogs.LastDirectory, u"") << "an empty directory is the dialog's to choose";
    EXPECT_EQ(machine.CurrentDirectory(), u"\\");
}

TEST_F(FileDialogs, ACancelChangesNothing) {
    EXPECT_EQ(Open(u"\\start"), u"");
    EXPECT_EQ(machine.CurrentDirectory(), u"\\home");
    EXPECT_EQ(journal.Take(), std::vector<std::string>{"ChooseFile Select Media ..."});
}
