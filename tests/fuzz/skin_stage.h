// What the fuzz targets for skins share: a Velora without a display and a directory in memory with their
// files.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <sys/stat.h>

#include "platform/null/null_loop.h"
#include "platform/null/null_parts.h"
#include "platform/null/null_window.h"
#include "platform/paths.h"
#include "state/scene.h"
#include "state/velora.h"

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

/// The parts and the state, in an order in which they may be destroyed.
struct SkinMachine {
    Journal journal;
    NullWindow window{journal};
    NullDialogs dialogs{journal};
    NullLoop loop;
    NullPictures pictures;
    NullSystem machine{journal};
    NullPlayer player{journal};
    NullScope scope{journal};
    Velora velora{PlatformParts{window, dialogs, loop, pictures, machine, player, scope}};
};
