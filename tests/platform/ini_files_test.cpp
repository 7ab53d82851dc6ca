// What a key of an ini file reads as; what stands on the disk after a write that went well, after
// one that didn't, and at each call in between.
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <functional>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "platform/directory_lock.h"
#include "platform/ini_write.h"
#include "platform/null/null_loop.h"
#include "platform/profile_strings.h"
#include "support/temp_directory.h"

namespace {

using namespace std::string_literals;

constexpr const char* kAccessList = "system.posix_acl_access";

// Owner rw, user 7 r, group nothing, mask r, others nothing.
constexpr char kList[] = "\2\0\0\0\1\0\6\0\xFF\xFF\xFF\xFF\2\0\4\0\7\0\0\0\4\0\0\0\xFF\xFF\xFF\xFF"
                         "\x10\0\4\0\xFF\xFF\xFF\xFF\x20\0\0\0\xFF\xFF\xFF\xFF";

const std::string kOld = "[a]\nx=old\n", kNew = "[a]\nx=new\n";

bool WriteIniValue(const std::string& path, const IniValue& value, const FileCalls& calls = {},
                   const std::string& seed = {}) {
    return ChangeIniFile(
        path, [&](const IniText&) { return std::vector{value}; }, calls, seed);
}

class IniFiles : public testing::Test {
protected:
    bool WriteNew(const std::string& path, const FileCalls& calls = {}) {
        return WriteIniValue(path, {"a", "x", "new"}, calls, "seed.ini");
    }
    bool WriteText(TextView path, const Text& value) {
        NullLoop loop;
        return WriteProfileStrings(loop, path, [&](const IniText&) {
            return std::vector<ProfileString>{{u"a", u"x", value}};
        });
    }
    /// The mode of a file, and its bytes with those of its access list.
    std::pair<mode_t, std::string> Now(const std::string& path) {
        struct stat facts {};
        stat(path.c_str(), &facts);
        char list[99];
        const ssize_t length = getxattr(path.c_str(), kAccessList, list, sizeof list);
        return {facts.st_mode & 07777U, directory.Get(path).value_or("none") +
                                            std::string(list, list + std::max<ssize_t>(length, 0))};
    }
    /// The file `f.ini` with a mode that no umask gives.
    void PutOld(const std::string& path = "f.ini", mode_t mode = 0604) {
        directory.Put(path, kOld);
        chmod(path.c_str(), mode);
    }

    const WorkingDirectory directory;
};

// The calls of a write to `f.ini`, a letter each, a capital one once the new file is there. The one
// of number `failAt` fails. Of the writes each even call is interrupted, and the others take four
// bytes.
std::string journal;
std::size_t failAt = 0;
std::function<void()> meanwhile; // What another program does before each flush.

template<char kLetter, auto kCall, typename Result, typename... Arguments>
Result Watch(Arguments... arguments) {
    if (kLetter == 'f' && meanwhile) meanwhile();
    journal +=
        IniText(*ReadFileBytes(u"f.ini", 99)).Find("a", "x") == "new" ? kLetter - 32 : kLetter;
    errno = ENOSPC;
    return journal.size() == failAt ? -1 : kCall(arguments...);
}

ssize_t WriteInPieces(int file, const void* bytes, std::size_t count) {
    struct stat facts {};
    EXPECT_EQ(fstat(file, &facts), 0);
    EXPECT_EQ(facts.st_mode & 077U, 0U) << "nobody else may read it yet";
    if (journal.size() % 2 == 1) return write(file, bytes, std::min<std::size_t>(count, 4));
    errno = EINTR;
    return -1;
}

const FileCalls kWatched{Watch<'c', CreateNewFile>, Watch<'w', WriteInPieces>, Watch<'o', fchown>,
                         Watch<'a', SetAccessList>, Watch<'m', fchmod>,        Watch<'f', fsync>,
                         Watch<'x', close>,         Watch<'r', rename>};

bool GiveAccessList(const char* path, const char* name) {
    return setxattr(path, name, kList, sizeof kList - 1, 0) == 0;
}

// The mode of an old file, what is done to it (only the superuser may give a file away; one more
// user may read it; the directory gives new files a list), and the calls of its replacement once it
// is written: what is right already isn't set.
const std::tuple<mode_t, bool (*)(), std::string> kOldFiles[] = {
    {0600, [] { return true; }, "fxrF"},
    {0604, [] { return true; }, "mfxrF"},
    {0604, [] { return chown("f.ini", geteuid(), 1) == 0; }, "omfxrF"},
    {0600, [] { return GiveAccessList("f.ini", kAccessList); }, "afxrF"},
    {0640, [] { return GiveAccessList(".", "system.posix_acl_default"); }, "amfxrF"},
};

const std::string kFits(254, 'w');

// The bytes of a value, and what comes back: the default for none, no more than 254 bytes, no half
// letter, and nothing behind a NUL.
const std::pair<std::string, std::string> kValues[] = {
    {"", "none"},
    {kFits + "xyz", kFits},
    {kFits.substr(2) + "\xF0\x9F\x8E\xB5", kFits.substr(2)},
    {kFits.substr(1) + "\x80\x80", kFits.substr(1) + "\xE2\x82\xAC"},
    {"ab\0cd"s, "ab"},
    {"\0cd"s, ""},
};

} // namespace

TEST_F(IniFiles, KilledOrFailingAtAnyCallLeavesTheOldFileOrTheNewOneAndNothingBeside) {
    for (const auto& [oldMode, prepare, lastCalls] : kOldFiles) {
        const std::string calls = "cwwwwww" + lastCalls;
        for (failAt = 1; failAt <= calls.size() + 1; ++failAt) {
            PutOld("f.ini", oldMode);
            if (!prepare()) break;
            auto expected = Now("f.ini");
            journal.clear();
            const bool written = failAt >= calls.size();
            const bool closes = failAt > 1 && failAt < calls.size() - 2;
            if (written) expected.second.replace(0, kOld.size(), kNew);
            EXPECT_EQ(WriteNew("f.ini", kWatched), written) << calls << failAt;
            EXPECT_EQ(journal, calls.substr(0, failAt) + (closes ? "x" : "")) << failAt;
            EXPECT_EQ(Now("f.ini"), expected) << calls << failAt;
            EXPECT_EQ(directory.Names(), std::vector{"f.ini"s}) << calls << failAt;
        }
        std::filesystem::remove("f.ini");
    }
    removexattr(".", "system.posix_acl_default");
    FileCalls stuck;
    stuck.Write = [](int, const void*, std::size_t) -> ssize_t { return errno = EINTR, 0; };
    EXPECT_FALSE(WriteNew("f.ini", stuck));
}

TEST_F(IniFiles, ANewFileHasTheUsersUsualModeAndBeginsAsTheOneThatIsInstalledAndALinkStays) {
    const mode_t before = umask(027);
    EXPECT_TRUE(WriteNew("f.ini"));
    EXPECT_EQ(Now("f.ini"), std::pair(mode_t{0640}, "[a]\r\nx=new\r\n"s));
    directory.Put("seed.ini", "[b]\ny=1\n");
    EXPECT_TRUE(WriteNew("g.ini"));
    EXPECT_EQ(Now("g.ini"), std::pair(mode_t{0640}, "[b]\ny=1\n[a]\nx=new\n"s));
    umask(before);
    PutOld("target.ini");
    std::filesystem::create_symlink("target.ini", "link.ini");
    EXPECT_TRUE(WriteNew("link.ini"));
    EXPECT_EQ(Now("target.ini"), std::pair(mode_t{0604}, kNew))
        << "it was there: nothing installed comes in";
    EXPECT_TRUE(std::filesystem::is_symlink("link.ini"));
}

TEST_F(IniFiles, OnlyPlainFilesOfTextThatSomebodyMayWriteUpToFourMebibytes) {
    std::filesystem::create_symlink("gone", "lost.ini");
    mkfifo("pipe.ini", 0600);
    PutOld("locked.ini", 0444);
    directory.Put("nul.ini", kOld + "\0"s);
    const std::string large = kOld + std::string(kMostIniBytes - kOld.size(), 'y');
    directory.Put("full.ini", large);
    directory.Put("larger.ini", large + "y");
    const auto before = directory.Names();
    for (const char* path :
         {"lost.ini", "pipe.ini", "locked.ini", "nul.ini", "larger.ini", "missing/f.ini", "."})
        EXPECT_FALSE(WriteNew(path)) << path;
    EXPECT_FALSE(WriteIniValue("new.ini", {"a", "x", "b\0c"s}));
    EXPECT_FALSE(WriteIniValue("full.ini", {"a", "x", "more"}));
    EXPECT_TRUE(WriteNew("full.ini")) << "a value of the same length fits";
    EXPECT_EQ(directory.Names(), before);
}

TEST_F(IniFiles, AnotherProgramsChangeInTheMeantimeIsNotLostButNobodyWaitsForItsEnd) {
    for (const int most : {1, 100}) {
        int changes = 0;
        failAt = 0;
        meanwhile = [&] {
            if (changes == most) return;
            EXPECT_TRUE(WriteIniValue("f.ini", {"b", "y", std::to_string(++changes)}));
        };
        PutOld();
        EXPECT_EQ(WriteNew("f.ini", kWatched), most == 1);
        EXPECT_EQ(directory.Get("f.ini"), most == 1 ? kNew + "[b]\ny=1\n" : kOld + "[b]\ny=10\n");
    }
    meanwhile = nullptr;
    FileCalls calls;
    calls.Flush = [](int) {
        return OpenIniFile("new.ini") || WriteIniValue("new.ini", {"1", "y", "1"}) ? 0 : -1;
    };
    const auto entry = [](const IniText& now) {
        const std::string number = now.HasSection("1") ? "2" : "1";
        return std::vector<IniValue>{{number, "x", "new"}, {"a", "count", number}};
    };
    EXPECT_TRUE(ChangeIniFile("new.ini", entry, calls));
    EXPECT_EQ(directory.Get("new.ini"), "[1]\r\ny=1\r\n[2]\r\nx=new\r\n[a]\r\ncount=2\r\n")
        << "what is written is decided by the text that is replaced";
    failAt = 0;
    calls.Flush = [](int) { return failAt++ == 0 ? RemoveLeftovers("."), 0 : 0; };
    EXPECT_TRUE(WriteNew("new.ini", calls)) << "one that was taken for a leftover is made again";
    calls.RenameToFree = [](const char* from, const char* to) {
        EXPECT_TRUE(OpenIniFile(to) || WriteIniValue(to, {"b", "y", "1"}));
        return RenameToFreeName(from, to);
    };
    EXPECT_TRUE(WriteNew("late.ini", calls));
    EXPECT_EQ(directory.Get("late.ini"), "[b]\r\ny=1\r\n[a]\r\nx=new\r\n");
    const FileHandle other = OpenForReading("late.ini"s);
    EXPECT_EQ(flock(other.Descriptor(), LOCK_EX), 0);
    EXPECT_FALSE(WriteNew("late.ini")) << "another program is just replacing it";
    NullLoop loop;
    auto lock = std::make_unique<DirectoryLock>(loop, ".");
    bool held = false;
    EXPECT_TRUE(WriteProfileStrings(loop, u"new.ini", [&](const IniText&) {
        held = !DirectoryLock(loop, ".");
        EXPECT_TRUE(!std::exchange(lock, nullptr) || WriteIniValue("new.ini", {"b", "y", "3"}));
        return std::vector<ProfileString>{{u"a", u"x", u"3"}};
    }));
    EXPECT_TRUE(held) << "who had the lock may be done by the second look";
}

TEST_F(IniFiles, WhatKilledRunsLeftBehindIsNotInTheWayUntilItIsAHundred) {
    for (int number = 0; number < 100; ++number) {
        EXPECT_TRUE(WriteNew("f.ini"));
        directory.Put(".velora-" + std::to_string(getpid()) + "-" + std::to_string(number) + ".tmp",
                      "half");
    }
    EXPECT_FALSE(WriteNew("f.ini"));
    for (const auto* name : {".velora-1-0.tmp", ".velora-9999999-0.tmp", ".velora-mine.tmp"})
        directory.Put(name, "the first one's, of a process that still runs");
    NullLoop loop;
    auto lock = std::make_unique<DirectoryLock>(loop, ".");
    EXPECT_FALSE(WriteText(u"f.ini", u"1")) << "whoever holds the lock may need them";
    lock.reset();
    EXPECT_TRUE(WriteText(u"f.ini", u"2"));
    EXPECT_EQ(directory.Names(), (std::vector{".velora-1-0.tmp"s, ".velora-mine.tmp"s, "f.ini"s}));
}

TEST_F(IniFiles, AValueIsReadInItsOwnEncodingAsFarAsItFitsAndADefaultHoweverLong) {
    for (const auto& [bytes, read] : kValues) {
        directory.Put("f.ini", "[a]\nx=" + bytes + "\n");
        EXPECT_EQ(Utf8(ReadProfileString(u"F.INI", u"a", u"x", u"none")), read) << bytes;
    }
    const Text otherwise(1000, u'd');
    for (const TextView file : {u"gone.ini", u".", u"f.ini"})
        EXPECT_EQ(ReadProfileString(file, u"a", u"y", otherwise), otherwise) << Utf8(file);
}

TEST_F(IniFiles, AReaderSeesEachChangeOfTheFile) {
    ProfileReader reader(u"f.ini");
    const auto read = [&] { return Utf8(reader.Read(u"a", u"x", u"none")); };
    EXPECT_EQ(read(), "none");
    directory.Put("f.ini", "[a]\nx=1\n");
    EXPECT_EQ(read(), "1");
    const auto time = std::filesystem::last_write_time("f.ini");
    struct stat before {};
    struct stat now {};
    stat("f.ini", &before);
    do {
        directory.Put("f.ini", "[a]\nx=2\n");
        std::filesystem::last_write_time("f.ini", time);
        stat("f.ini", &now);
    } while (now.st_ctim.tv_nsec == before.st_ctim.tv_nsec);
    EXPECT_EQ(read(), "2") << "also of the same size and time";
    std::filesystem::remove("f.ini");
    EXPECT_EQ(read(), "none");
}

TEST_F(IniFiles, WhatReadsBackWholeIsReadAgainFromTheFileOfAnyCase) {
    directory.Put("Lists/F.INI", "[a]\nx=1\n");
    for (const Text& value : {u" blanks "s, u"\"quoted\""s, u"\uF7FF\u20AC\U0001F3B5"s,
                              Text(254, u'a'), Text(127, u'\u00E4')}) {
        EXPECT_TRUE(WriteText(u"lists\\f.ini", value));
        EXPECT_EQ(ReadProfileString(u"LISTS\\f.ini", u"a", u"x", u"none"), value);
        EXPECT_TRUE(ReadsBackWhole(value)) << Utf8(value);
    }
    for (const Text& value : {u"a\nb"s, u"a\rb"s, u"a\0b"s, Text(255, u'a'), Text(128, u'\u00E4')})
        EXPECT_FALSE(ReadsBackWhole(value)) << Utf8(value);
    EXPECT_EQ(directory.Names(), std::vector{"Lists"s});
}
