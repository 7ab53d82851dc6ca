// The open-file dialog: its rows, and what a choice leaves behind.
#include <gtest/gtest.h>

#include "platform/file_dialogs.h"
#include "platform/null/null_parts.h"

TEST(FileDialogs, AChoiceMakesItsDirectoryTheCurrentOneAndACancelChangesNothing) {
    Journal journal;
    NullDialogs dialogs{journal};
    NullSystem machine{journal};
    std::vector<FilterRow> media, playlists, skins;
    InitialiseFilters(media, playlists, skins);
    Text current;
    for (const Text path : {u"", u"\\music\\my songs\\a b.mp3", u"\\a\\b.mp3", u"\\root.mp3"}) {
        if (!path.empty()) dialogs.Files = {path};
        EXPECT_EQ(OpenFileDialog(dialogs, machine, skins, u"", u"\\start"), path);
        current += machine.Current + u"; ";
    }
    EXPECT_EQ(current, u"\\home; \\music\\my songs; \\a; \\; ");
    EXPECT_EQ(dialogs.LastDirectory, u"\\start");
    EXPECT_EQ(dialogs.LastRows, skins);
    Text rows;
    for (const auto& filter : {media, playlists, skins})
        for (const FilterRow& row : filter)
            rows += row.Label + row.Pattern + u" ";
    EXPECT_EQ(rows, u"MP3 Files (*.mp3)*.mp3 MP2 Files (*.mp2)*.mp2 MP1 Files (*.mp1)*.mp1 "
                    u"Mpg Files (*.mpg)*.mpg Mpeg Files (*.mpeg)*.mpeg Wav Audio Files (*.wav)*.wav "
                    u"Windows Media Audio (*.wma)*.wma Windows Media Video (*.wmv)*.wmv All Files (*.*)*.* "
                    u"M3U Files (*.m3u)*.m3u All Files (*.*)*.* Skin Files (*.vs4)*.vs4 All Files (*.*)*.* ");
}
