// What stands on the disk after a write that went well, and after one that didn't.
#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/ini_file.h"
#include "platform/ini_write.h"
#include "support/temp_directory.h"

namespace {

constexpr std::string_view kOld = "[a]\nx=old\n";
constexpr std::string_view kNew = "[a]\nx=new\n";
using NameList = std::vector<std::string>;

int FailingCall(int) {
    errno = EIO;
    return -1;
}

struct FailingCase {
    const char* Name;
    void (*Spoil)(FileCalls& calls);
};

constexpr FailingCase kFailingCases[] = {
    {"create", [](FileCalls& calls) { calls.Create = [](const char*, mode_t) { return FailingCall(0); }; }},
    {"write",
     [](FileCalls& calls) { calls.Write = [](int, const void*, std::size_t) -> ssize_t { return -1; }; }},
    {"half a write",
     [](FileCalls& calls) {
         calls.Write = [](int descriptor, const void* bytes, std::size_t count) -> ssize_t {
             return count > 3 ? ::write(descriptor, bytes, 3) : FailingCall(0);
         };
     }},
    {"no progress",
     [](FileCalls& calls) { calls.Write = [](int, const void*, std::size_t) -> ssize_t { return 0; }; }},
    {"mode", [](FileCalls& calls) { calls.ChangeMode = [](int, mode_t) { return FailingCall(0); }; }},
    {"flush", [](FileCalls& calls) { calls.Flush = FailingCall; }},
    {"close",
     [](FileCalls& calls) {
         calls.Close = [](int descriptor) {
             ::close(descriptor);
             return FailingCall(0);
         };
     }},
    {"rename",
     [](FileCalls& calls) { calls.Rename = [](const char*, const char*) { return FailingCall(0); }; }},
};

bool WriteNew(const std::string& path, const FileCalls& calls = {}) {
    return WriteIniValue(path, "a", "x", "new", calls);
}

} // namespace

TEST(IniWriteFailures, EachFailedCallLeavesTheOldFileWholeAndNothingBeside) {
    for (const FailingCase& failing : kFailingCases) {
        const TempDirectory directory;
        directory.Put("f.ini", kOld);
        FileCalls calls;
        failing.Spoil(calls);
        EXPECT_FALSE(WriteNew(directory.Path("f.ini"), calls)) << failing.Name;
        EXPECT_EQ(directory.Get("f.ini"), kOld) << failing.Name;
        EXPECT_EQ(directory.Names(), NameList{"f.ini"}) << failing.Name;
    }
}

TEST(IniWriteFailures, AnInterruptedWriteGoesOn) {
    const TempDirectory directory;
    FileCalls calls;
    calls.Write = [](int descriptor, const void* bytes, std::size_t count) -> ssize_t {
        static int callsSoFar = 0;
        if (++callsSoFar % 2 == 1) return errno = EINTR, -1;
        return ::write(descriptor, bytes, std::min<std::size_t>(count, 4));
    };
    EXPECT_TRUE(WriteNew(directory.Path("f.ini"), calls));
    EXPECT_EQ(directory.Get("f.ini"), "[a]\r\nx=new\r\n");
}

TEST(IniWriteFailures, AFullDiskLeavesTheOldFileWhole) {
    const TempDirectory directory;
    const std::string old = std::string(kOld) + "; " + std::string(100, '-') + "\n";
    directory.Put("f.ini", old);
    const pid_t child = fork();
    if (child == 0) {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{64, 64};
        setrlimit(RLIMIT_FSIZE, &limit);
        _exit(WriteNew(directory.Path("f.ini")) ? 1 : 0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(directory.Get("f.ini"), old);
    EXPECT_EQ(directory.Names(), NameList{"f.ini"});
}

TEST(IniWriteFailures, KilledAtAnyCallTheFileIsTheOldOneOrTheNewOne) {
    // Each child dies at the call of that number.
    static int callsLeft = 0;
    for (int lives = 0; lives < 8; ++lives) {
        const TempDirectory directory;
        directory.Put("f.ini", kOld);
        const pid_t child = fork();
        if (child == 0) {
            callsLeft = lives;
            static const auto live = [] {
                if (callsLeft-- == 0) raise(SIGKILL);
            };
            FileCalls calls;
            calls.Create = [](const char* path, mode_t mode) { return live(), CreateNewFile(path, mode); };
            calls.Write = [](int descriptor, const void* bytes, std::size_t count) -> ssize_t {
                return live(), ::write(descriptor, bytes, std::min<std::size_t>(count, 6));
            };
            calls.Flush = [](int descriptor) { return live(), ::fsync(descriptor); };
            calls.Close = [](int descriptor) { return live(), ::close(descriptor); };
            calls.Rename = [](const char* from, const char* to) { return live(), ::rename(from, to); };
            static_cast<void>(WriteNew(directory.Path("f.ini"), calls));
            _exit(0);
        }
        waitpid(child, nullptr, 0);
        const auto now = directory.Get("f.ini");
        EXPECT_TRUE(now == kOld || now == kNew) << lives;
    }
}

TEST(IniWrite, ANewFileHasTheUsersUsualMode) {
    const TempDirectory directory;
    const mode_t before = umask(027);
    EXPECT_TRUE(WriteNew(directory.Path("f.ini")));
    umask(before);
    struct stat facts {};
    ASSERT_EQ(stat(directory.Path("f.ini").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 07777, 0640u);
}

TEST(IniWrite, ALinkStaysAndItsTargetKeepsModeAndOwner) {
    const TempDirectory directory;
    directory.Put("real/f.ini", kOld);
    chmod(directory.Path("real/f.ini").c_str(), 0604);
    const bool mayGiveAway = chown(directory.Path("real/f.ini").c_str(), 1, 1) == 0;
    ASSERT_EQ(symlink("real/f.ini", directory.Path("link.ini").c_str()), 0);
    EXPECT_TRUE(WriteNew(directory.Path("link.ini")));
    struct stat facts {};
    ASSERT_EQ(lstat(directory.Path("link.ini").c_str(), &facts), 0);
    EXPECT_TRUE(S_ISLNK(facts.st_mode));
    ASSERT_EQ(lstat(directory.Path("real/f.ini").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 07777, 0604u);
    EXPECT_EQ(facts.st_uid, mayGiveAway ? 1u : geteuid());
    EXPECT_EQ(directory.Get("real/f.ini"), kNew);
}

TEST(IniWrite, ALinkThatLeadsNowhereIsLeftAlone) {
    const TempDirectory directory;
    ASSERT_EQ(symlink("gone/f.ini", directory.Path("link.ini").c_str()), 0);
    EXPECT_FALSE(WriteNew(directory.Path("link.ini")));
    EXPECT_EQ(directory.Names(), NameList{"link.ini"});
}

TEST(IniWrite, AReadOnlyFileStaysEvenForTheSuperuser) {
    const TempDirectory directory;
    directory.Put("f.ini", kOld);
    chmod(directory.Path("f.ini").c_str(), 0444);
    EXPECT_FALSE(WriteNew(directory.Path("f.ini")));
    EXPECT_EQ(directory.Get("f.ini"), kOld);
}

TEST(IniWrite, OnlyPlainFilesOfText) {
    const TempDirectory directory;
    directory.Put("dir.ini/x", "");
    EXPECT_FALSE(WriteNew(directory.Path("dir.ini")));
    ASSERT_EQ(mkfifo(directory.Path("fifo.ini").c_str(), 0600), 0);
    EXPECT_FALSE(WriteNew(directory.Path("fifo.ini")));
    EXPECT_FALSE(WriteNew(directory.Path("missing/f.ini")));
    const std::string withNul("[a]\nx=old\n\0", 11);
    directory.Put("nul.ini", withNul);
    EXPECT_FALSE(WriteNew(directory.Path("nul.ini")));
    EXPECT_EQ(directory.Get("nul.ini"), withNul);
    EXPECT_FALSE(WriteIniValue(directory.Path("new.ini"), "a", "x", std::string_view("b\0c", 3)));
    EXPECT_EQ(directory.Names(), (NameList{"dir.ini", "fifo.ini", "nul.ini"}));
}

TEST(IniWrite, FourMebibytesAreTheMost) {
    const TempDirectory directory;
    const std::string large = std::string(kOld) + std::string(kMostIniBytes - kOld.size(), 'y');
    directory.Put("full.ini", large);
    EXPECT_TRUE(WriteNew(directory.Path("full.ini"))) << "a value of the same length fits";
    EXPECT_FALSE(WriteIniValue(directory.Path("full.ini"), "a", "x", "longer"));
    directory.Put("more.ini", large + "y");
    EXPECT_FALSE(WriteNew(directory.Path("more.ini")));
    EXPECT_EQ(directory.Get("more.ini"), large + "y");
}

TEST(IniWrite, AnotherProgramsChangeInTheMeantimeIsNotLost) {
    const TempDirectory directory;
    directory.Put("f.ini", kOld);
    static std::string path;
    path = directory.Path("f.ini");
    FileCalls calls;
    calls.Flush = [](int) {
        static int rounds = 0;
        return rounds++ > 0 || WriteIniValue(path, "b", "y", "theirs") ? 0 : -1;
    };
    EXPECT_TRUE(WriteNew(path, calls));
    EXPECT_EQ(directory.Get("f.ini"), "[a]\nx=new\n[b]\ny=theirs\n");
    EXPECT_EQ(directory.Names(), NameList{"f.ini"});
}

TEST(IniWrite, WhatAKilledRunLeftBehindIsNotInTheWay) {
    const TempDirectory directory;
    directory.Put(".velora-" + std::to_string(getpid()) + "-0.tmp", "half");
    EXPECT_TRUE(WriteNew(directory.Path("f.ini")));
    EXPECT_EQ(directory.Get("f.ini"), "[a]\r\nx=new\r\n");
}
