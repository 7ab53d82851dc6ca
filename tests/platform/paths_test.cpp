// The door between backslash-separated texts and this machine's paths, and what is opened through
// it.
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/files.h"
#include "platform/paths.h"
#include "platform/program_places.h"
#include "support/temp_directory.h"

namespace {

namespace fs = std::filesystem;
using namespace std::string_view_literals;

constexpr std::pair<std::string_view, TextView> kTexts[] = {
    {"../back\\slash\0"sv, u"..\\back\uF05Cslash\0"sv},
    {"not\xFFutf8\xC3/\x80", u"not\uF7FFutf8\uF7C3\\\uF780"},
    // Letters that would read as stand-ins for bytes, and their neighbours.
    {"\xEF\x81\x9B\xEF\x81\x9C\xEF\x81\x9D", u"\uF05B\uF7EF\uF781\uF79C\uF05D"},
    {"\xEF\x9B\xBF\xEF\x9C\x80", u"\uF6FF\uF7EF\uF79C\uF780"},
    {"\xEF\x9F\xBF\xEF\xA0\x80", u"\uF7EF\uF79F\uF7BF\uF800"},
};

constexpr const char* kFiles[] = {
    "Album/SONG.MP3",   "Album/SOng.mp3", "Album/Song.mp3",        "Album/sONG.mp3", "ALBUm/x",
    "aLBUM/x",          "full/tune.MP3",  "deep.mp3/folder.mp3/x", "bare/.plain",    "full/v.ini",
    "own/velora/v.ini", "odd[1]?.mp3",    "raw\xFF\xC3\x84.mp3",   "match/abcabd.x"};

// A text, the file that it names and the one that a write goes to (empty for none), and "is" for a
// plain file.
constexpr std::string_view kRows[][4] = {
    {"Album\\Song.mp3", "Album/Song.mp3", "Album/Song.mp3", "is"},
    {"Album\\song.mp3", "Album/SONG.MP3", "Album/SONG.MP3", "is"},
    {"album\\x", "ALBUm/x", "ALBUm/x", "is"},
    {"album\\new", "", "ALBUm/new", ""},
    {"album\\new\\song.mp4", "", "", ""},
    {"FULL\\..\\full\\\\.\\TUNE.mp3\\", "full/../full/./tune.MP3", "full/../full/./tune.MP3", ""},
    {"full\\", "full/", "full/", "is"},
    {"FULL\\", "full", "full", "is"},
    {"FULL\\*.mp3", "", "full/*.mp3", "is"},
    {"ful?\\tune.mp3", "", "", ""},
    {"bare\\*.*", "", "bare/*.*", "is"},
    {"deep.mp3", "deep.mp3", "deep.mp3", ""},
    {"deep.mp3\\f*", "", "deep.mp3/f*", ""},
    {"Pipe.mp3", "pipe.mp3", "pipe.mp3", ""},
    {"Lost", "", "Lost", ""},
    {"odd[1]?.mp3", "odd[1]?.mp3", "odd[1]?.mp3", "is"},
    {"RAW\uF7FF\u00E4.mp3", "raw\xFF\xC3\x84.mp3", "raw\xFF\xC3\x84.mp3", "is"},
    {"full\\tune.MP3\0*"sv, "", "", ""},
    {"full\0\\x"sv, "", "", ""},
    {"gone\\", "", "", ""},
};

// A directory with those files, a pipe and a link that leads nowhere; the test runs in it.
class Paths : public testing::Test {
protected:
    Paths() {
        for (const char* name : kFiles)
            directory.Put(name, name);
        mkfifo("pipe.mp3", 0600);
        fs::create_symlink("gone", "lost");
    }
    /// Each test leaves as many files open as it found.
    void TearDown() override { EXPECT_EQ(OpenFiles(), m_openBefore); }
    static std::ptrdiff_t OpenFiles() {
        return std::distance(fs::directory_iterator("/proc/self/fd"), {});
    }

    const WorkingDirectory directory;

private:
    const std::ptrdiff_t m_openBefore = OpenFiles();
};

} // namespace

TEST_F(Paths, EveryNameOfThisMachineSurvivesTheWayInAndOut) {
    for (const auto& [bytes, text] : kTexts) {
        EXPECT_EQ(PathText(bytes), text) << bytes;
        EXPECT_EQ(PathBytes(text), bytes) << bytes;
    }
    EXPECT_EQ(PathBytes(u"C:\\Music/a.mp3"), "C:/Music/a.mp3") << "a slash separates here, too";
}

TEST_F(Paths, WhatIsWrittenGoesBeforeOtherCaseInEachDirectory) {
    for (const auto& [written, found, forWriting, exists] : kRows)
        for (const bool absolute : {false, true}) {
            const Text text = (absolute ? directory.PathText() : Text()) + TextFromBytes(written);
            const std::string front = absolute ? directory.Path() + "/" : "";
            EXPECT_EQ(FindPath(text).value_or(front), front + std::string(found)) << written;
            EXPECT_EQ(FindPathForWriting(text).value_or(front), front + std::string(forWriting))
                << written;
            EXPECT_EQ(FileExists(text), !exists.empty()) << written;
        }
    EXPECT_FALSE(FindPath(u"") || FileExists(u""));
    EXPECT_TRUE(FileExists(u"o*"));
}

TEST_F(Paths, WildcardsMatchRunsAndSingleCharacters) {
    for (const TextView pattern :
         {u"**", u"*.*", u"A*X", u"a*d.x", u"*b?.x", u"*b*b*", u"abcabd.x*", u"*?", u"a?*"})
        EXPECT_TRUE(FileExists(u"match\\" + Text(pattern))) << Utf8(pattern);
    for (const TextView pattern :
         {u"?", u"*y", u"*abc", u"abcabd.x?", u"?abcabd.x", u"*c*c*", u"b*", u"*\\"})
        EXPECT_FALSE(FileExists(u"match\\" + Text(pattern))) << Utf8(pattern);
}

TEST_F(Paths, TheOpenerTakesPlainFilesAndNeverWaitsAndADirectoryIsMadeOnce) {
    for (const TextView none : {u"gone", u"full", u"pipe.mp3", u"\\dev\\zero", u""})
        EXPECT_EQ(ReadFileBytes(none, 100), std::nullopt) << Utf8(none);
    EXPECT_EQ(ReadFileBytes(u"FULL\\TUNE.mp3", 13), "full/tune.MP3");
    EXPECT_EQ(ReadFileBytes(u"full\\tune.MP3", 12), std::nullopt);
    std::ifstream file("/proc/self/auxv");
    const std::string grown{std::istreambuf_iterator<char>(file), {}};
    file.close();
    EXPECT_EQ(ReadFileBytes(u"\\proc\\self\\auxv", grown.size()), grown) << "its size said 0";
    EXPECT_EQ(ReadFileBytes(u"\\proc\\self\\auxv", grown.size() - 1), std::nullopt);
    EXPECT_EQ(ReadFileBytes(FileHandle(open("full/tune.MP3", O_WRONLY)), 100), std::nullopt);
    FileHandle handle = OpenForReading(TextView(u"full\\tune.MP3"));
    handle = OpenForReading(TextView(u"bare\\.plain"));
    EXPECT_EQ(ReadFileBytes(handle, 100), "bare/.plain");
    close(handle.Release());
    EXPECT_FALSE(handle);
    // A directory is made unless one of other case is there.
    MakeDirectory(u"FULL\\");
    MakeDirectory(u"data\\velora\\");
    EXPECT_TRUE(fs::is_directory("data/velora") && !fs::exists("FULL"));
}

TEST_F(Paths, ArgumentsBecomeQuotedAbsolutePaths) {
    EXPECT_EQ(CommandLineText({"", "song.mp3", "", "/a/b c.mp3"}, u"\\home"),
              u"\"\\home\\song.mp3\" \"\\a\\b c.mp3\"");
    EXPECT_EQ(CommandLineText({"x\\y"}, u"\\"), u"\"\\x\uF05Cy\"");
    EXPECT_EQ(PathBytes(ProgramDirectory()), fs::canonical("/proc/self/exe").parent_path());
    EXPECT_EQ(ProcessDirectory() + u"\\", directory.PathText());
    fs::create_directory("away");
    fs::current_path("away");
    fs::remove(directory.Path("away"));
    EXPECT_EQ(ProcessDirectory(), u"") << "the directory is gone";
}

// A directory that can't be written by anybody, not even by the superuser, is one that isn't there.
// Here it is there in other case, so that a file in it is found all the same.
TEST_F(Paths, IniFilesStandBesideTheProgramUnlessThatCantBeWritten) {
    // The user's data directory and home, the program's, where to read and where to write.
    constexpr const char* kPlaces[][5] = {
        {"/data", "/home", "full", "full", "full"},
        {"/data", "/home", "FULL", "FULL", "data/velora"},
        {"/own", "/home", "FULL", "own/velora", "own/velora"},
        {"/data", "/home", "gone", "data/velora", "data/velora"},
        {"own", "/home", "gone", "home/.local/share/velora", "home/.local/share/velora"},
        {nullptr, "/home", "gone", "home/.local/share/velora", "home/.local/share/velora"},
        {nullptr, "home", "gone", "gone", "gone"},
        {nullptr, nullptr, "gone", "gone", "gone"}};
    const auto set = [&](const char* name, const char* value) {
        unsetenv(name);
        if (value) setenv(name, ((*value == '/' ? directory.Path() : "") + value).c_str(), 1);
    };
    for (const auto& [data, ownHome, program, read, written] : kPlaces) {
        set("XDG_DATA_HOME", data);
        set("HOME", ownHome);
        const Text place = directory.PathText(program);
        EXPECT_EQ(IniPlace(place, u"\\v.ini"), directory.PathText(read) + u"\\v.ini");
        EXPECT_EQ(OwnIniPlace(place, u"\\v.ini"), directory.PathText(written) + u"\\v.ini");
    }
    // Somebody else's file can't be replaced, though this user may write in its directory.
    const bool privileged = geteuid() == 0;
    fs::permissions(".", fs::perms::all);
    fs::permissions("full", fs::perms::all);
    fs::create_symlink("/etc/passwd", "full/linked.ini");
    set("XDG_DATA_HOME", "/data");
    EXPECT_TRUE(!privileged || seteuid(65534) == 0);
    for (const Text name : {u"\\linked.ini", privileged ? u"\\v.ini" : u"\\linked.ini"})
        EXPECT_EQ(OwnIniPlace(directory.PathText("full"), name),
                  directory.PathText("data/velora") + name);
    EXPECT_TRUE(!privileged || seteuid(0) == 0);
    EXPECT_FALSE(fs::exists("data")) << "a start leaves nothing behind";
}
