// The door between backslash-separated texts and this machine's paths.
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/files.h"
#include "platform/machine.h"
#include "platform/paths.h"
#include "support/temp_directory.h"

namespace {

namespace fs = std::filesystem;

// A directory with files of the given names (directories end in a slash), gone with the test.
class Paths : public testing::Test {
protected:
    void Make(const std::string& name) {
        if (name.ends_with('/'))
            fs::create_directories(m_directory + "/" + name);
        else
            m_temp.Put(name, name);
    }
    Text In(TextView name) const { return PathText(m_directory) + u"\\" + Text(name); }
    std::string Found(TextView name) const {
        const std::optional<std::string> found = FindPath(In(name));
        return found ? found->substr(m_directory.size() + 1) : "nothing";
    }

    const TempDirectory m_temp;
    const std::string m_directory = m_temp.Path();
};

} // namespace

TEST_F(Paths, EveryNameOfThisMachineSurvivesTheWayInAndOut) {
    for (const std::string bytes :
         {"/a/b c.mp3", "/back\\slash", "/not\xFFutf8\xC3", "/\xEF\x81\x9C is a letter", "/\xEF\x9C\x81",
          "relative", "/\xF0\x9D\x84\x9E"})
        EXPECT_EQ(PathBytes(PathText(bytes)), bytes);
    EXPECT_EQ(PathText("/a\\b"), u"\\a\uF05Cb");
    EXPECT_EQ(PathText("x\xFF"), u"x\uF7FF");
    EXPECT_EQ(PathBytes(u"C:\\Music/a.mp3"), "C:/Music/a.mp3");
}

TEST_F(Paths, WhatIsWrittenGoesBeforeOtherCase) {
    Make("Music/");
    Make("Music/Song.mp3");
    Make("Music/SONG.MP3");
    Make("music2/");
    EXPECT_EQ(Found(u"Music\\Song.mp3"), "Music/Song.mp3");
    EXPECT_EQ(Found(u"MUSIC\\song.mp3"), "Music/SONG.MP3") << "of several the first in byte order";
    EXPECT_EQ(Found(u"MUSIC\\SONG.mp4"), "nothing");
    EXPECT_EQ(Found(u"music\\..\\MUSIC\\Song.mp3"), "Music/../Music/Song.mp3");
    EXPECT_EQ(Found(u"MUSIC\\\\Song.mp3"), "Music/Song.mp3");
    EXPECT_FALSE(FindPath(u""));
    EXPECT_FALSE(FindPath(Text(u"\\tmp\0x", 6)));
}

TEST_F(Paths, AWriteGoesToTheFileThatAReadFinds) {
    Make("Velora.ini");
    const std::optional<std::string> old = FindPathForWriting(In(u"VELORA.INI"));
    EXPECT_EQ(old, m_directory + "/Velora.ini");
    EXPECT_EQ(FindPathForWriting(In(u"new.ini")), m_directory + "/new.ini");
    EXPECT_FALSE(FindPathForWriting(In(u"nowhere\\new.ini")));
}

TEST_F(Paths, OnlyPlainFilesExist) {
    Make("a.mp3");
    Make("folder.mp3/");
    Make(".hidden");
    mkfifo((m_directory + "/fifo.mp3").c_str(), 0600);
    EXPECT_TRUE(FileExists(In(u"a.mp3")));
    EXPECT_TRUE(FileExists(In(u"A.MP3")));
    EXPECT_TRUE(FileExists(In(u".hidden"))) << "a leading dot hides nothing here";
    EXPECT_FALSE(FileExists(In(u"folder.mp3")));
    EXPECT_FALSE(FileExists(In(u"fifo.mp3")));
    EXPECT_FALSE(FileExists(u""));
    EXPECT_FALSE(FileExists(u"\\dev\\zero"));
}

TEST_F(Paths, WildcardsAndATrailingBackslashLookInsideTheDirectory) {
    Make("full/");
    Make("full/tune.MP3");
    Make("empty/");
    Make("empty/folder.mp3/");
    Make("odd[1]?.mp3");
    EXPECT_TRUE(FileExists(In(u"full\\")));
    EXPECT_TRUE(FileExists(In(u"FULL\\*.mp3")));
    EXPECT_TRUE(FileExists(In(u"full\\t?ne.*")));
    EXPECT_TRUE(FileExists(In(u"full\\*.*")));
    EXPECT_FALSE(FileExists(In(u"full\\*.mp2")));
    EXPECT_FALSE(FileExists(In(u"full\\?.mp3")));
    EXPECT_FALSE(FileExists(In(u"empty\\")));
    EXPECT_FALSE(FileExists(In(u"empty\\*.mp3")));
    EXPECT_FALSE(FileExists(In(u"fu*\\tune.mp3"))) << "wildcards count in the last component alone";
    EXPECT_TRUE(FileExists(In(u"odd[1]?.mp3")));
}

TEST(GetFileName, IsWhatStandsBehindTheLastBackslash) {
    EXPECT_EQ(GetFileName(u"C:\\Music\\a.mp3"), u"a.mp3");
    EXPECT_EQ(GetFileName(u"C:\\Music\\"), u"");
    EXPECT_EQ(GetFileName(u"a.mp3"), u"a.mp3");
    EXPECT_EQ(GetFileName(u"a/b/c.mp3"), u"a/b/c.mp3") << "a slash is an ordinary character";
    EXPECT_EQ(GetFileName(u""), u"");
}

TEST_F(Paths, TheOpenerTakesPlainFilesAndNeverWaits) {
    Make("a.txt");
    Make("folder/");
    mkfifo((m_directory + "/fifo").c_str(), 0600);
    EXPECT_EQ(ReadFileBytes(In(u"A.TXT"), 100), "a.txt");
    EXPECT_EQ(ReadFileBytes(In(u"a.txt"), 5), "a.txt");
    EXPECT_FALSE(ReadFileBytes(In(u"a.txt"), 4));
    EXPECT_FALSE(ReadFileBytes(In(u"folder"), 100));
    EXPECT_FALSE(ReadFileBytes(In(u"fifo"), 100));
    EXPECT_FALSE(ReadFileBytes(u"\\dev\\zero", 100));
}

TEST(CommandLineText, QuotesEveryArgumentAsAnAbsolutePath) {
    EXPECT_EQ(CommandLineText({}, u"\\home"), u"");
    EXPECT_EQ(CommandLineText({"song.mp3"}, u"\\home"), u"\"\\home\\song.mp3\"");
    EXPECT_EQ(CommandLineText({"/a/b c.mp3", "", "x\\y"}, u"\\"), u"\"\\a\\b c.mp3\" \"\\x\uF05Cy\"");
}

TEST_F(Paths, IniFilesStandBesideTheProgramUnlessThatCantBeWritten) {
    Make("program/");
    EXPECT_EQ(IniPlace(In(u"program"), u"\\velskins.ini"), In(u"program\\velskins.ini"));
    // A directory that isn't there can't be written by anybody, not even by root.
    setenv("XDG_DATA_HOME", (m_directory + "/data").c_str(), 1);
    EXPECT_EQ(IniPlace(In(u"gone"), u"\\velskins.ini"), In(u"data\\velora\\velskins.ini"));
    EXPECT_EQ(OwnIniPlace(In(u"gone"), u"\\velskins.ini"), In(u"data\\velora\\velskins.ini"));
    EXPECT_FALSE(fs::exists(m_directory + "/data")) << "a start leaves nothing behind";
    MakeDirectory(In(u"data\\velora\\"));
    EXPECT_TRUE(fs::is_directory(m_directory + "/data/velora"));
    unsetenv("XDG_DATA_HOME");
}
