// Media and sound files for the tests, made when they run.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "support/temp_directory.h"

using Samples16 = std::vector<std::int16_t>;

/// Writes a wave file of 16 bits, or of the same as numbers with a point.
void WriteWave(const std::string& path, int rateHz, int channels, const Samples16& samples,
               bool floats = false);

/// Waits, without end for a test's purposes, for what other threads do.
[[nodiscard]] bool WaitUntil(const std::function<bool()>& done);

/// Makes files in a temporary directory, which goes with the object.
class MediaMaker {
public:
    [[nodiscard]] std::string Directory() const { return m_files.Path(); }

    /// Noise of `ms` milliseconds, the same in each run, encoded by `lame` with these arguments.
    /// The bytes of the file; none, and a failure of the test, if there are none.
    [[nodiscard]] std::string Encode(const std::string& by, int rateHz, int channels, int ms) const;

    /// Writes a file and gives the system's text for its path.
    Text Write(const std::string& name, const std::string& bytes) const {
        return m_files.Put(name, bytes);
    }

private:
    TempDirectory m_files;
};

/// All samples of a file, decoded in one go by our own decoder; empty if there is no sound in it.
[[nodiscard]] Samples16 DecodeAll(const Text& path);
