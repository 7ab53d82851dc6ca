// Stands for a disk that doesn't answer: preloaded into the program, it lets every look at one path wait.
// The path is in SLOW_PATH; once the file SLOW_UNTIL exists, everything goes its way.
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

template<typename Function>
Function Next(Function, const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

// Straight to the kernel: the calls of the library are the ones that wait.
bool IsThere(const char* path) {
    return syscall(SYS_faccessat, AT_FDCWD, path, F_OK) == 0;
}

void WaitFor(const char* path) {
    constexpr timespec kPause{0, 20'000'000};
    const char* slow = std::getenv("SLOW_PATH");
    const char* until = std::getenv("SLOW_UNTIL");
    if (!slow || !until || !path || std::strcmp(path, slow) != 0) return;
    while (!IsThere(until))
        nanosleep(&kPause, nullptr);
}

mode_t ModeOf(int flags, va_list rest) {
    return flags & (O_CREAT | O_TMPFILE) ? va_arg(rest, mode_t) : 0;
}

} // namespace

extern "C" {

#define VELORA_SLOW_OPEN(name)                                                                               \
    int name(const char* path, int flags, ...) {                                                             \
        va_list rest;                                                                                        \
        va_start(rest, flags);                                                                               \
        const mode_t mode = ModeOf(flags, rest);                                                             \
        va_end(rest);                                                                                        \
        WaitFor(path);                                                                                       \
        return Next(&name, #name)(path, flags, mode);                                                        \
    }

#define VELORA_SLOW_OPEN_AT(name)                                                                            \
    int name(int directory, const char* path, int flags, ...) {                                              \
        va_list rest;                                                                                        \
        va_start(rest, flags);                                                                               \
        const mode_t mode = ModeOf(flags, rest);                                                             \
        va_end(rest);                                                                                        \
        WaitFor(path);                                                                                       \
        return Next(&name, #name)(directory, path, flags, mode);                                             \
    }

#define VELORA_SLOW_STAT(name, facts)                                                                        \
    int name(const char* __restrict path, facts* __restrict told) {                                          \
        WaitFor(path);                                                                                       \
        return Next(&name, #name)(path, told);                                                               \
    }

VELORA_SLOW_OPEN(open)
VELORA_SLOW_OPEN(open64)
VELORA_SLOW_OPEN_AT(openat)
VELORA_SLOW_OPEN_AT(openat64)
VELORA_SLOW_STAT(stat, struct stat)
VELORA_SLOW_STAT(lstat, struct stat)
VELORA_SLOW_STAT(stat64, struct stat64)
VELORA_SLOW_STAT(lstat64, struct stat64)

int access(const char* path, int mode) noexcept {
    WaitFor(path);
    return Next(&access, "access")(path, mode);
}

int statx(int directory, const char* __restrict path, int flags, unsigned mask,
          struct statx* __restrict told) noexcept {
    WaitFor(path);
    return Next(&statx, "statx")(directory, path, flags, mask, told);
}
}
