// What the fuzz targets for skins share: a Velora without a display and a directory in memory with their
// files.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "../support/null_platform.h"
#include "platform/paths.h"
#include "state/scene.h"

inline void Require(bool holds) {
    if (!holds) std::abort();
}

/// A directory that lives as long as the process; each run writes its files over those of the last.
class SkinStage {
public:
    SkinStage() {
        std::string pattern = "/dev/shm/velora-fuzz-XXXXXX";
        if (!mkdtemp(pattern.data())) pattern = "/tmp/velora-fuzz-XXXXXX", Require(mkdtemp(pattern.data()));
        Directory = pattern + "/";
        Put("a.gif", "picture");
    }
    SkinStage(const SkinStage&) = delete;
    SkinStage& operator=(const SkinStage&) = delete;
    ~SkinStage() {
        std::error_code ignored;
        std::filesystem::remove_all(Directory, ignored);
    }
    void Put(const std::string& name, std::string_view bytes) const {
        std::ofstream(Directory + name, std::ios::binary | std::ios::trunc) << bytes;
    }
    [[nodiscard]] Text PathText(const std::string& name) const { return ::PathText(Directory + name); }

    std::string Directory;
};

struct SkinMachine : NullPlatform {
    NullPictures pictures;
    Velora velora{PartsWith(pictures)};
};
