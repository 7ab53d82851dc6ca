// An eventfd: cheaper than a pipe, and however often it is rung, it never fills up.
#include "platform/audio/bell.h"

#include <cstdint>
#include <sys/eventfd.h>
#include <unistd.h>

Bell::Bell() : m_descriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

Bell::~Bell() {
    if (m_descriptor >= 0) close(m_descriptor);
}

void Bell::Ring() {
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = write(m_descriptor, &one, sizeof one);
}

void Bell::Clear() {
    std::uint64_t rings = 0;
    [[maybe_unused]] const ssize_t got = read(m_descriptor, &rings, sizeof rings);
}
