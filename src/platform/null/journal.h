// What was asked of the null platform, in order, as text that a test can state.
#pragma once

#include <string>
#include <utility>
#include <vector>

/// One journal is shared by all null parts, so that it tells the order across them.
struct Journal {
    std::vector<std::string> Lines;

    void Note(std::string line) { Lines.push_back(std::move(line)); }

    /// What was noted since the last call.
    [[nodiscard]] std::vector<std::string> Take() { return std::exchange(Lines, {}); }
};
