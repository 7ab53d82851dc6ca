// Tests may run side by side, so each has a name from the system.
#include "support/temp_directory.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "platform/paths.h"

TempDirectory::TempDirectory() {
    std::string pattern = (std::filesystem::temp_directory_path() / "velora-test-XXXXXX").string();
    if (mkdtemp(pattern.data())) m_path = pattern;
}

TempDirectory::~TempDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::string TempDirectory::Path(std::string_view name) const {
    return name.empty() ? m_path : m_path + "/" + std::string(name);
}

Text TempDirectory::PathText(std::string_view name) const {
    return ::PathText(m_path + "/" + std::string(name));
}

Text TempDirectory::Put(std::string_view name, std::string_view bytes) const {
    std::filesystem::create_directories(std::filesystem::path(Path(name)).parent_path());
    std::ofstream(Path(name), std::ios::binary) << bytes;
    return PathText(name);
}

std::optional<std::string> TempDirectory::Get(std::string_view name) const {
    std::ifstream file(Path(name), std::ios::binary);
    if (!file) return std::nullopt;
    return std::string{std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> TempDirectory::Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(m_path))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}
