// A thread inherits the signal mask of the one that starts it, so all signals are blocked just
// around the start.
#include "platform/audio/worker_thread.h"

#include <csignal>
#include <pthread.h>
#include <system_error>
#include <utility>

std::optional<std::thread> StartThread(const char* name, std::function<void()> work) {
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    std::optional<std::thread> thread;
    try {
        thread.emplace(std::move(work));
        pthread_setname_np(thread->native_handle(), name);
    } catch (const std::system_error&) {
        thread.reset();
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return thread;
}

bool StartDetached(const char* name, std::function<void()> work) {
    std::optional<std::thread> thread = StartThread(name, std::move(work));
    if (!thread) return false;
    thread->detach();
    return true;
}
