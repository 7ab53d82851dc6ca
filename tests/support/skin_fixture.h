// Velora on the null platform before a directory of skins, and all that a skin can change as lines
// of text.
#pragma once

#include <algorithm>
#include <cstdio>
#include <gtest/gtest.h>

#include "platform/files.h"
#include "skin/apply_skin.h"
#include "skin/load_skin.h"
#include "support/form_text.h"
#include "support/null_platform.h"
#include "support/temp_directory.h"

/// A picture of nothing.
struct ClearPicture : NamedPicture {
    using NamedPicture::NamedPicture;
    [[nodiscard]] bool Covers(int, int) const override { return false; }
};

/// Takes every file that begins with "picture" for a picture of 20 by 10 pixels, or of those that
/// the file goes on with, called by its file and the number of the load: "a.gif#1". One with the
/// word "clear" hides nothing.
struct FilePictures : Pictures {
    PicturePtr LoadPicture(const Text& path) override {
        const auto bytes = ReadFileBytes(path, 1 << 20);
        if (!bytes || !bytes->starts_with("picture")) return nullptr;
        const Text name = path.substr(path.rfind(u'\\') + 1);
        int widthPx = 20, heightPx = 10;
        (void)std::sscanf(bytes->c_str(), "picture %d %d", &widthPx, &heightPx);
        const std::string called = Joined(name, "#", ++Loads);
        if (bytes->find("clear") != std::string::npos)
            return std::make_shared<ClearPicture>(widthPx, heightPx, called);
        return std::make_shared<NamedPicture>(widthPx, heightPx, called);
    }
    int Loads = 0;
};

/// A skin file's text from words: a line for each. Before the first section stands the rest of
/// `Settings`: the form's first size, which stays so, and a background that isn't there.
inline std::string SkinText(std::string words, const std::string& head = "Width=5835 Height=4185 "
                                                                         "Graphic=none.gif ") {
    words = "[Settings] " + head + words;
    std::ranges::replace(words, ' ', '\n');
    return words;
}

struct SkinMachine : NullPlatform {
    /// Writes a skin file and loads it; the slot's number.
    Integer Load(std::string_view text) {
        return LoadSkinFile(velora, directory.Put("skin.vs4", text));
    }
    Integer Apply(std::string_view text) {
        const Integer slot = Load(text);
        ApplySkin(velora, slot);
        return slot;
    }

    [[nodiscard]] std::string RegionText() const {
        std::string text = form.Region ? "region" : "no region";
        if (form.Region)
            for (const Rect& part : form.Region->Rectangles({0, 0, 20000, 20000}))
                text += " " + TextOf(part);
        return text;
    }

    /// `~` is the directory with its backslash.
    [[nodiscard]] std::string Short(std::string line) const {
        const std::string path = Utf8(directory.PathText());
        for (std::size_t at; (at = line.find(path)) != std::string::npos;)
            line.replace(at, path.size(), "~");
        return line;
    }

    /// The form, the region, the settings and volumes of the skins and what dialogs and player were
    /// asked.
    [[nodiscard]] Lines All() const {
        Lines lines = FormText(form);
        lines.push_back(RegionText());
        for (const SkinRecord& skin : velora.Skins) {
            lines.push_back(Joined(
                "skin ", &skin - &velora.Skins[0], skin.Loaded ? " " : " empty ", skin.Directory,
                "|", skin.FileName, "|", skin.Name, "|", skin.Author, "|", skin.Graphic, "|",
                skin.Playlist, " type ", skin.Type, " ", skin.Width, "x", skin.Height, " at ",
                skin.Left, ",", skin.Top, " with ", skin.ShapeCount, " and ", skin.ObjectCount));
            lines.push_back("steps");
            for (Integer at = 1; at <= kVolumeSteps; ++at)
                lines.back() += Joined(" ", skin.VolumeX[at], ",", skin.VolumeY[at], " ",
                                       skin.VolumeImages[at]);
        }
        lines.insert(lines.end(), journal.Lines.begin(), journal.Lines.end());
        for (std::string& line : lines)
            line = Short(line);
        return lines;
    }

    const TempDirectory directory;
    FilePictures pictures;
    Velora velora{PartsWith(pictures)};
    Form& form = velora.frmMain;
};
