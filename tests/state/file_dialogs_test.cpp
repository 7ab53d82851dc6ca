// The rows of the open-file dialogs; what a choice leaves behind the uses of the buttons show.
#include <gtest/gtest.h>

#include "state/file_dialogs.h"

TEST(FileDialogs, OfferTheKindsOfFiles) {
    std::vector<FilterRow> media, playlists, skins;
    InitialiseFilters(media, playlists, skins);
    Text rows;
    for (const auto& filter : {media, playlists, skins})
        for (const FilterRow& row : filter)
            rows += row.Label + row.Pattern + u" ";
    EXPECT_EQ(
        rows,
        u"MP3 Files (*.mp3)*.mp3 MP2 Files (*.mp2)*.mp2 MP1 Files (*.mp1)*.mp1 "
        u"Mpg Files (*.mpg)*.mpg Mpeg Files (*.mpeg)*.mpeg Wav Audio Files (*.wav)*.wav "
        u"Windows Media Audio (*.wma)*.wma Windows Media Video (*.wmv)*.wmv All Files (*.*)*.* "
        u"M3U Files (*.m3u)*.m3u All Files (*.*)*.* Skin Files (*.vs4)*.vs4 All Files (*.*)*.* ");
}
