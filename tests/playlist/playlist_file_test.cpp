// The lines of playlists of every form, and what stays within its bounds.
#include "playlist/playlist_file.h"

#include <sys/stat.h>

#include "platform/paths.h"
#include "support/temp_directory.h"
#include "support/velora_fixture.h"

namespace {

class PlaylistFiles : public VeloraTest {
protected:
    /// The names that a playlist of `bytes` adds.
    std::vector<std::string> Load(const std::string& bytes) {
        directory.Put("list.m3u", bytes);
        const Integer before = velora.Count;
        LoadNamed("list.m3u");
        std::vector<std::string> names;
        for (int entry = before + 1; entry <= velora.Count; ++entry)
            names.push_back(Utf8(velora.MediaList[static_cast<std::size_t>(entry)].File));
        return names;
    }
    void LoadNamed(const std::string& name) {
        velora.Playlists[7] = {true, u"x", PathText(name), directory.PathText()};
        LoadPlaylistFile(velora, 7);
    }

    TempDirectory directory;
};

} // namespace

TEST_F(PlaylistFiles, AddNothingWhereNothingIsInThem) {
    for (const std::string& bytes :
         {std::string(), std::string("x"), std::string("xyz"), std::string("     "),
          std::string("\r\r\r\r\r"), std::string("\n\n\n\n"), std::string("\r\n \r\n"),
          std::string("\xEF\xBB\xBF"), std::string("\n\r\n\r"), std::string("a\\\r\n")})
        EXPECT_EQ(Load(bytes), Lines{}) << ::testing::PrintToString(bytes);
}

TEST_F(PlaylistFiles, LineEndsOfEveryKindSeparateButAReturnAloneDoesNot) {
    EXPECT_EQ(Load("a.mp3\r\nb.mp3\nc.mp3\r\n"), (Lines{"a.mp3", "b.mp3", "c.mp3"}));
    EXPECT_EQ(Load("\n\r\n  d.mp3\r\r\n\n\ne.mp3\n\n"), (Lines{"  d.mp3", "e.mp3"}));
    EXPECT_EQ(Load("f.mp3\rg.mp3\r\r"), (Lines{"f.mp3\rg.mp3"}));
}

TEST_F(PlaylistFiles, TheLastTwoCharactersGoWhateverTheyAre) {
    EXPECT_EQ(Load("song.mp3"), Lines{"song.m"});
    EXPECT_EQ(Load("a.mp3\nb.mp3\n"), (Lines{"a.mp3", "b.mp"}));
    EXPECT_EQ(Load("x\xC3\xA4\xC3\xB6\xC3\xBC"), Lines{"x\xC3\xA4"}) << "whole characters of UTF-8";
    EXPECT_EQ(Load("y\xE4\xF6\xFC"), Lines{"y\xC3\xA4"}) << "single bytes of Windows-1252";
    EXPECT_EQ(Load("1.mp3\nz\n1"), Lines{"1.mp3"}) << "a last line of one character is dropped";
}

TEST_F(PlaylistFiles, ReadingEndsAtTheFirstNameThatIsEmptyOrKnown) {
    EXPECT_EQ(Load("a.mp3\r\nb.mp3\r\nA.MP3\r\nc.mp3\r\n"), (Lines{"a.mp3", "b.mp3"}));
    EXPECT_EQ(Load("d.mp3\r\nC:\\music\\\r\ne.mp3\r\n"), Lines{"d.mp3"});
}

TEST_F(PlaylistFiles, EveryLineCountsAlsoCommentsBlanksAndUnknownKinds) {
    EXPECT_EQ(Load("#EXTM3U\r\n   \r\na.txt\r\n"), (Lines{"#EXTM3U", "   ", "a.txt"}));
    EXPECT_EQ(velora.MediaList[1].Type, 0);
    EXPECT_TRUE(velora.MediaList[1].Enabled);
    EXPECT_EQ(velora.MediaList[1].Flag, 7);
}

TEST_F(PlaylistFiles, ALineIsSplitIntoDirectoryAndNameUnchanged) {
    (void)Load("C:\\Music\\a.mp3\r\n..\\b.mp3\r\nsub/c.mp3\r\n");
    EXPECT_EQ(velora.MediaList[1].Path, u"C:\\Music\\");
    EXPECT_EQ(velora.MediaList[1].File, u"a.mp3");
    EXPECT_EQ(velora.MediaList[2].Path, u"..\\");
    EXPECT_EQ(velora.MediaList[3].Path, u"") << "a slash is an ordinary character";
}

TEST_F(PlaylistFiles, EncodingIsDecidedLineByLine) {
    EXPECT_EQ(Load("\xEF\xBB\xBF\xC3\xA4.mp3\r\n\xF6.mp3\r\n\x80.mp3\r\n"),
              (Lines{"\xC3\xA4.mp3", "\xC3\xB6.mp3", "\xE2\x82\xAC.mp3"}));
}

TEST_F(PlaylistFiles, BinaryContentIsOnlyLines) {
    EXPECT_EQ(Load(std::string("\0\0x\0\n\x1A.mp3\r\n", 13)), (Lines{std::string("\0\0x\0", 4), "\x1A.mp3"}));
}

TEST_F(PlaylistFiles, WhatIsNoPlainFileAddsNothing) {
    ASSERT_EQ(mkfifo(directory.Path("fifo.m3u").c_str(), 0600), 0);
    directory.Put("folder.m3u/inside", "a.mp3\r\n");
    for (const char* name : {"fifo.m3u", "folder.m3u", "missing.m3u", "", "*"})
        LoadNamed(name);
    LoadPlaylistFile(velora, 0);
    EXPECT_EQ(velora.Count, 0);
}

TEST_F(PlaylistFiles, TheEventLoopTurnsWithEachEntry) {
    Integer entriesThen = 0;
    loop.Post([&] { entriesThen = velora.Count; });
    (void)Load("a.mp3\r\nb.mp3\r\n");
    EXPECT_EQ(entriesThen, 1) << "not only when all has been read";
}

TEST_F(PlaylistFiles, AMillionLinesStopAtTheLimit) {
    std::string bytes;
    for (int line = 0; line < 1000000; ++line)
        bytes += "C:\\Music\\Some Artist\\track " + std::to_string(line) + ".mp3\r\n";
    EXPECT_EQ(Load(bytes).size(), 2500U);
    EXPECT_EQ(journal.Take(), Lines{}) << "the limit is no message here";
}

// Forms in which a reader that cuts its text line by line would need time by the square of the size: it would
// not come to an end before ctest loses its patience.
TEST_F(PlaylistFiles, NoFormCostsMoreThanItsSize) {
    const std::size_t size = 8 * 1024 * 1024;
    const std::string forms[] = {
        std::string(size, 'x'),          std::string(size, '\n'),        std::string(size, '\r') + "\n..",
        std::string(size, ' ') + "..",   "a\n" + std::string(size, 'y'), "b\n" + std::string(size, '\r'),
        "c\n" + std::string(size, '\n'), std::string(size, '\\') + "..",
    };
    for (const std::string& bytes : forms)
        EXPECT_LE(Load(bytes).size(), 2U);
}

TEST(TextBetween, IsWhatStandsBetweenTheFirstOfEach) {
    EXPECT_EQ(TextBetween("abcabc", 'a', 'c'), "b");
    EXPECT_EQ(TextBetween("ab", 'a', 'b'), "");
    EXPECT_EQ(TextBetween("ba", 'a', 'b'), std::nullopt);
    EXPECT_EQ(TextBetween("aa", 'a', 'b'), std::nullopt);
    EXPECT_EQ(TextBetween("bb", 'a', 'b'), std::nullopt);
}
