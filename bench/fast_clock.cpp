// A clock that runs faster: preloaded into a program, it lets all time go by CLOCK_FACTOR times as
// fast. Each clock is ahead by as much as the factor makes of the machine's uptime, so all programs
// agree on it, and each wait is as much shorter. Only what the program, the toolkit and the sound
// server wait with is here.
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <dlfcn.h>
#include <poll.h>
#include <pthread.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

namespace {

constexpr std::int64_t kSecondNs = 1'000'000'000;
constexpr std::int64_t kMillisecondNs = 1'000'000;

template<typename Function>
Function Next(Function, const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

std::int64_t Factor() {
    static const std::int64_t factor = [] {
        const char* told = std::getenv("CLOCK_FACTOR");
        const int number = told ? std::atoi(told) : 1;
        return number > 1 ? number : 1;
    }();
    return factor;
}

std::int64_t ToNs(const timespec& time) {
    return time.tv_sec * kSecondNs + time.tv_nsec;
}

timespec FromNs(std::int64_t ns) {
    return {static_cast<time_t>(ns / kSecondNs), static_cast<long>(ns % kSecondNs)};
}

// Straight to the kernel, since the sanitizers ask for the time before anything can be looked up.
std::int64_t RealNs(clockid_t clock) {
    timespec now{};
    syscall(SYS_clock_gettime, clock, &now);
    return ToNs(now);
}

// The processor's time stays what it is.
bool IsTimeOfDay(clockid_t clock) {
    return clock != CLOCK_PROCESS_CPUTIME_ID && clock != CLOCK_THREAD_CPUTIME_ID && clock >= 0;
}

std::int64_t FastNs(clockid_t clock) {
    return RealNs(clock) + RealNs(CLOCK_MONOTONIC) * (Factor() - 1);
}

// A wait never ends before its time.
std::int64_t Shortened(std::int64_t ns) {
    return ns <= 0 ? 0 : (ns + Factor() - 1) / Factor();
}

// A point of the fast clock as one of the real clock.
timespec RealPoint(clockid_t clock, const timespec& fast) {
    const std::int64_t rest = Shortened(ToNs(fast) - FastNs(clock));
    return FromNs(RealNs(clock) + rest);
}

// The call doesn't tell which clock its condition goes by, but the two are decades apart.
clockid_t ClockOf(const timespec& fast) {
    const std::int64_t real = std::abs(ToNs(fast) - FastNs(CLOCK_REALTIME));
    const std::int64_t monotonic = std::abs(ToNs(fast) - FastNs(CLOCK_MONOTONIC));
    return real < monotonic ? CLOCK_REALTIME : CLOCK_MONOTONIC;
}

} // namespace

extern "C" {

int clock_gettime(clockid_t clock, timespec* told) noexcept {
    if (!IsTimeOfDay(clock)) return static_cast<int>(syscall(SYS_clock_gettime, clock, told));
    *told = FromNs(FastNs(clock));
    return 0;
}

int gettimeofday(timeval* __restrict told, void* __restrict) noexcept {
    const std::int64_t now = FastNs(CLOCK_REALTIME);
    *told = {static_cast<time_t>(now / kSecondNs),
             static_cast<suseconds_t>(now % kSecondNs / 1000)};
    return 0;
}

time_t time(time_t* told) noexcept {
    const auto now = static_cast<time_t>(FastNs(CLOCK_REALTIME) / kSecondNs);
    if (told) *told = now;
    return now;
}

int nanosleep(const timespec* wanted, timespec* rest) {
    const timespec shorter = FromNs(Shortened(ToNs(*wanted)));
    const int result = Next(&nanosleep, "nanosleep")(&shorter, rest);
    if (result != 0 && rest) *rest = FromNs(ToNs(*rest) * Factor());
    return result;
}

int ppoll(pollfd* files, nfds_t count, const timespec* limit, const sigset_t* signals) {
    if (!limit) return Next(&ppoll, "ppoll")(files, count, nullptr, signals);
    const timespec shorter = FromNs(Shortened(ToNs(*limit)));
    return Next(&ppoll, "ppoll")(files, count, &shorter, signals);
}

int poll(pollfd* files, nfds_t count, int limitMs) {
    const timespec limit = FromNs(limitMs * kMillisecondNs);
    return ppoll(files, count, limitMs < 0 ? nullptr : &limit, nullptr);
}

int pthread_cond_clockwait(pthread_cond_t* condition, pthread_mutex_t* mutex, clockid_t clock,
                           const timespec* until) {
    const timespec real = RealPoint(clock, *until);
    return Next(&pthread_cond_clockwait, "pthread_cond_clockwait")(condition, mutex, clock, &real);
}

int pthread_cond_timedwait(pthread_cond_t* __restrict condition, pthread_mutex_t* __restrict mutex,
                           const timespec* __restrict until) {
    const timespec real = RealPoint(ClockOf(*until), *until);
    return Next(&pthread_cond_timedwait, "pthread_cond_timedwait")(condition, mutex, &real);
}
}
