// Opening a file to read it, reading all of it, making a directory.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/text.h"

/// An open file of this machine; closed with the object.
class FileHandle {
public:
    FileHandle() = default;
    explicit FileHandle(int descriptor) : m_descriptor(descriptor) {}
    FileHandle(FileHandle&& other) noexcept : m_descriptor(other.Release()) {}
    FileHandle& operator=(FileHandle&& other) noexcept;
    ~FileHandle();

    [[nodiscard]] explicit operator bool() const { return m_descriptor >= 0; }
    [[nodiscard]] int Descriptor() const { return m_descriptor; }
    /// Gives the descriptor away; the object is empty then.
    int Release();

private:
    int m_descriptor = -1;
};

/// Opens a plain file for reading by a path of this machine. Doesn't wait on a FIFO and takes
/// nothing but plain files; empty if that fails.
[[nodiscard]] FileHandle OpenForReading(const std::string& pathBytes);

/// The same by the system's text, through `FindPath`.
[[nodiscard]] FileHandle OpenForReading(TextView path);

/// The directory of a path of this machine, with its slash.
[[nodiscard]] std::string DirectoryOf(const std::string& pathBytes);

/// Makes the directory, and those above it, where they aren't there; a failure shows when a file is
/// to be written there.
void MakeDirectory(TextView directory);

/// The bytes of a file that has just been opened. Nothing if it can't be read or holds more than
/// `limit` bytes. One that shrinks or grows meanwhile gives what was there.
[[nodiscard]] std::optional<std::string> ReadFileBytes(const FileHandle& file, std::size_t limit);

/// The same for the plain file that `path` names; nothing also if there is none.
[[nodiscard]] std::optional<std::string> ReadFileBytes(TextView path, std::size_t limit);
