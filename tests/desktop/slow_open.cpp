// Stands for a disk that doesn't answer: preloaded into the program, it lets every look at one path
// wait. The path is in SLOW_PATH; once the file SLOW_UNTIL exists, everything goes its way.
// `fcntl.h` is not included: it would have `open` take any number of arguments, and three do for
// all.
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <linux/fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

// The calls of the library are the ones that wait, so the look whether to go on is straight to the
// kernel.
static void WaitFor(const char* path) {
    const char* slow = std::getenv("SLOW_PATH");
    if (!slow || !path || std::strcmp(path, slow) != 0) return;
    while (syscall(SYS_faccessat, AT_FDCWD, std::getenv("SLOW_UNTIL"), F_OK) != 0)
        usleep(20'000);
}

#define VELORA_SLOW(name, parameters, arguments)                                                   \
    extern "C" int name parameters {                                                               \
        WaitFor(path);                                                                             \
        return reinterpret_cast<int(*) parameters>(dlsym(RTLD_NEXT, #name)) arguments;             \
    }

VELORA_SLOW(open, (const char* path, int flags, mode_t mode), (path, flags, mode))
VELORA_SLOW(openat, (int at, const char* path, int flags, mode_t mode), (at, path, flags, mode))
VELORA_SLOW(stat, (const char* __restrict path, struct stat* __restrict facts), (path, facts))
VELORA_SLOW(access, (const char* path, int mode), (path, mode))
VELORA_SLOW(statx,
            (int at, const char* __restrict path, int flags, unsigned mask,
             struct statx* __restrict facts),
            (at, path, flags, mask, facts))
