// A directory of a test's own, gone with the object.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text.h"

class TempDirectory {
public:
    TempDirectory();
    TempDirectory(const TempDirectory&) = delete;
    TempDirectory& operator=(const TempDirectory&) = delete;
    ~TempDirectory();

    /// The path of a file in it, for this machine.
    [[nodiscard]] std::string Path(std::string_view name = {}) const;

    /// The same as the system writes it; `PathText()` ends in a backslash.
    [[nodiscard]] Text PathText(std::string_view name = {}) const;

    /// Writes a file and the directories that it needs; gives `PathText` of it.
    Text Put(std::string_view name, std::string_view bytes) const;

    /// The bytes of a file, or nothing if it isn't there.
    [[nodiscard]] std::optional<std::string> Get(std::string_view name) const;

    /// The names of all that is in it, sorted.
    [[nodiscard]] std::vector<std::string> Names() const;

private:
    std::string m_path;
};

/// One that the test runs in: relative paths begin there.
class WorkingDirectory : public TempDirectory {
public:
    WorkingDirectory() { std::filesystem::current_path(Path()); }
    ~WorkingDirectory() { std::filesystem::current_path(m_before); }

private:
    const std::filesystem::path m_before = std::filesystem::current_path();
};
