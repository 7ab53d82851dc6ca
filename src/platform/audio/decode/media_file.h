// A media file as the decoder reads it: through a buffer, and without tags at its start that are
// too big.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/files.h"

/// Positions count from the first byte behind the tags that were left out. The file may grow or
/// shrink meanwhile.
class MediaFile {
public:
    /// Takes `file` over. Once `*quit` is true, reading and seeking fail; it must stay as long as
    /// the object.
    MediaFile(FileHandle file, const std::atomic<bool>* quit);

    /// Copies up to `count` bytes and moves on. Returns the number copied: 0 at the end, -1 if
    /// reading fails.
    std::ptrdiff_t Read(void* bytes, std::size_t count);

    /// As `lseek`: returns the new position, or -1 if that would be before the beginning.
    std::int64_t Seek(std::int64_t offset, int whence);

    /// Copies up to `count` bytes from `position` without moving. Returns the number copied, or -1.
    std::ptrdiff_t ReadAt(std::int64_t position, void* bytes, std::size_t count);

    /// The size now; 0 if it can't be told.
    [[nodiscard]] std::int64_t Size() const;

private:
    void SkipGiantTags();
    bool FillBuffer();

    FileHandle m_file;
    const std::atomic<bool>* m_quit;
    std::int64_t m_start = 0; ///< Where position 0 is in the file.
    std::int64_t m_position = 0;
    std::int64_t m_bufferAt = 0;
    std::size_t m_bufferFill = 0;
    std::vector<unsigned char> m_buffer;
};
