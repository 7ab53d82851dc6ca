// The decoder asks for a few bytes at a time; the buffer turns that into few reads of the file.
#include "platform/audio/decode/media_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr std::size_t kBufferBytes = 64 * 1024;
constexpr std::int64_t kTagLimit = 16 * 1024 * 1024;
constexpr std::size_t kTagHeaderBytes = 10;

/// The size of the ID3v2 tag whose header is `header`, itself included; 0 if it is none.
std::int64_t TagBytes(const unsigned char (&header)[kTagHeaderBytes]) {
    if (std::memcmp(header, "ID3", 3) != 0 || header[3] == 0xFF || header[4] == 0xFF) return 0;
    std::int64_t size = 0;
    for (int i = 6; i < 10; ++i) {
        if (header[i] & 0x80) return 0;
        size = size << 7 | header[i];
    }
    const bool hasFooter = (header[5] & 0x10) != 0;
    return size + (hasFooter ? 20 : 10);
}

} // namespace

MediaFile::MediaFile(FileHandle file, const std::atomic<bool>* quit)
    : m_file(std::move(file)), m_quit(quit) {
    m_buffer.resize(kBufferBytes);
    SkipGiantTags();
}

void MediaFile::SkipGiantTags() {
    unsigned char header[kTagHeaderBytes];
    // Each round skips more than 16 MiB of a file or is the last one.
    while (ReadAt(0, header, sizeof header) == static_cast<std::ptrdiff_t>(sizeof header)) {
        const std::int64_t bytes = TagBytes(header);
        if (bytes > Size()) {
            // It can't be as long as it says: what follows is looked through for sound.
            m_start += static_cast<std::int64_t>(kTagHeaderBytes);
            break;
        }
        if (bytes <= kTagLimit) break;
        m_start += bytes;
    }
}

std::int64_t MediaFile::Size() const {
    struct stat status {};
    if (fstat(m_file.Descriptor(), &status) != 0) return 0;
    return std::max<std::int64_t>(0, status.st_size - m_start);
}

std::ptrdiff_t MediaFile::ReadAt(std::int64_t position, void* bytes, std::size_t count) {
    std::size_t copied = 0;
    while (copied < count) {
        if (m_quit->load(std::memory_order_relaxed)) return -1;
        const ssize_t got =
            pread(m_file.Descriptor(), static_cast<char*>(bytes) + copied, count - copied,
                  m_start + position + static_cast<std::int64_t>(copied));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return -1;
        if (got == 0) break;
        copied += static_cast<std::size_t>(got);
    }
    return static_cast<std::ptrdiff_t>(copied);
}

bool MediaFile::FillBuffer() {
    m_bufferAt = m_position;
    const std::ptrdiff_t got = ReadAt(m_position, m_buffer.data(), m_buffer.size());
    m_bufferFill = got > 0 ? static_cast<std::size_t>(got) : 0;
    return got >= 0;
}

std::ptrdiff_t MediaFile::Read(void* bytes, std::size_t count) {
    if (m_quit->load(std::memory_order_relaxed)) return -1;
    std::size_t copied = 0;
    while (copied < count) {
        const std::int64_t bufferEnd = m_bufferAt + static_cast<std::int64_t>(m_bufferFill);
        if (m_position < m_bufferAt || m_position >= bufferEnd) {
            if (!FillBuffer()) return -1;
            if (m_bufferFill == 0) break;
            continue;
        }
        const auto offset = static_cast<std::size_t>(m_position - m_bufferAt);
        const std::size_t part = std::min(count - copied, m_bufferFill - offset);
        std::memcpy(static_cast<char*>(bytes) + copied, m_buffer.data() + offset, part);
        copied += part;
        m_position += static_cast<std::int64_t>(part);
    }
    return static_cast<std::ptrdiff_t>(copied);
}

std::int64_t MediaFile::Seek(std::int64_t offset, int whence) {
    if (m_quit->load(std::memory_order_relaxed)) return -1;
    const std::int64_t base = whence == SEEK_CUR ? m_position : whence == SEEK_END ? Size() : 0;
    std::int64_t position = 0;
    if (__builtin_add_overflow(base, offset, &position) || position < 0) return -1;
    m_position = position;
    return position;
}
