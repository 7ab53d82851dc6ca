// Stands for a machine that has had enough, preloaded into the program. Once the file FULL_DISK exists, the
// call that it names fails for every file that is being written anew beside an old one. Once the file
// LATE_CLOCK exists, the clock on the wall is an hour back; the one that never jumps goes on.
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

namespace {

// Straight to the kernel: the calls of the library are the ones that fail.
bool Names(const char* file, const char* call) {
    char word[16]{};
    const auto descriptor = file ? static_cast<int>(syscall(SYS_openat, AT_FDCWD, file, O_RDONLY)) : -1;
    if (descriptor < 0) return false;
    const long count = syscall(SYS_read, descriptor, word, sizeof word - 1);
    syscall(SYS_close, descriptor);
    return count > 0 && std::strcmp(word, call) == 0;
}

bool Fails(const char* path, const char* call) {
    if (!std::strstr(path, "/.velora-") || !Names(std::getenv("FULL_DISK"), call)) return false;
    errno = ENOSPC;
    return true;
}

bool Fails(int descriptor, const char* call) {
    char link[32], path[4096]{};
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
    return syscall(SYS_readlinkat, AT_FDCWD, link, path, sizeof path - 1) > 0 && Fails(path, call);
}

bool IsLate() {
    const char* file = std::getenv("LATE_CLOCK");
    return file && syscall(SYS_faccessat, AT_FDCWD, file, F_OK) == 0;
}

} // namespace

extern "C" {

ssize_t write(int descriptor, const void* bytes, size_t count) {
    if (Fails(descriptor, "write")) return -1;
    return syscall(SYS_write, descriptor, bytes, count);
}

int fsync(int descriptor) {
    return Fails(descriptor, "fsync") ? -1 : static_cast<int>(syscall(SYS_fsync, descriptor));
}

int rename(const char* from, const char* to) noexcept {
    return Fails(from, "rename") ? -1
                                 : static_cast<int>(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

int clock_gettime(clockid_t clock, timespec* now) noexcept {
    const auto result = static_cast<int>(syscall(SYS_clock_gettime, clock, now));
    if (result == 0 && (clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE) && IsLate())
        now->tv_sec -= 3600;
    return result;
}

int gettimeofday(timeval* __restrict now, void* __restrict) noexcept {
    timespec exact{};
    const int result = clock_gettime(CLOCK_REALTIME, &exact);
    *now = {exact.tv_sec, exact.tv_nsec / 1000};
    return result;
}

time_t time(time_t* told) noexcept {
    timespec exact{};
    clock_gettime(CLOCK_REALTIME, &exact);
    if (told) *told = exact.tv_sec;
    return exact.tv_sec;
}
}
