// A bare Velora on the null platform, and a directory in which skins and their pictures can be put.
#pragma once

#include <gtest/gtest.h>

#include "platform/files.h"
#include "skin/apply_skin.h"
#include "skin/load_skin.h"
#include "state/scene.h"
#include "support/null_platform.h"
#include "support/temp_directory.h"

/// A picture that knows where it came from.
struct NamedPicture : LoadedPicture {
    NamedPicture(int widthPx, int heightPx, Text path)
        : LoadedPicture(widthPx, heightPx), Path(std::move(path)) {}
    const Text Path;
};

/// Takes every file that begins with "picture" for a picture of 20 by 10 pixels.
struct FilePictures : Pictures {
    PicturePtr LoadPicture(const Text& path) override {
        const auto bytes = ReadFileBytes(path, 1 << 20);
        if (!bytes || !bytes->starts_with("picture")) return nullptr;
        Loaded.push_back(Utf8(GetName(path)));
        return std::make_shared<NamedPicture>(20, 10, path);
    }
    static Text GetName(const Text& path) { return path.substr(path.rfind(u'\\') + 1); }
    std::vector<std::string> Loaded; ///< File names in the order of the loads.
};

class SkinTest : public ::testing::Test, protected NullPlatform {
protected:
    SkinTest() : velora(PartsWith(pictures)) {
        window.Attach(form);
        machine.Directory = directory.PathText("program");
        velora.SkinsIni = directory.PathText("velskins.ini");
    }

    void PutPictures(std::initializer_list<const char*> names) const {
        for (const char* name : names)
            directory.Put(name, "picture");
    }

    /// Writes a skin file and loads it; the slot's number.
    Integer Load(std::string_view text, std::string_view name = "skin.vs4") {
        return LoadSkinFile(velora, directory.Put(name, text));
    }
    SkinRecord& LoadRecord(std::string_view text) {
        return velora.Skins[static_cast<std::size_t>(Load(text))];
    }

    Integer Apply(std::string_view text, std::string_view name = "skin.vs4") {
        const Integer slot = Load(text, name);
        ApplySkin(velora, slot);
        return slot;
    }

    /// The name of the file that a box's picture was loaded from; empty without a picture.
    static std::string FileOf(const PictureBox& box) {
        const auto* picture = dynamic_cast<const NamedPicture*>(box.Picture.get());
        return picture ? Utf8(FilePictures::GetName(picture->Path)) : std::string();
    }

    TempDirectory directory;
    FilePictures pictures;
    Velora velora;
    Form& form = velora.frmMain;
};
