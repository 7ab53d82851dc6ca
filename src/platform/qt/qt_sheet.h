// Scenes as pictures in a file, without a window.
#pragma once

#include <string>
#include <vector>

#include "state/scene.h"

/// A scene, and what stands above it on a sheet.
struct NamedScene {
    Text Name;
    Scene Shown;
};

/// Writes a PNG file: a single scene as the window would show it, transparent outside of its shape;
/// several on one sheet with their names. False if the file can't be written, or if the picture
/// would have more than 64 million pixels.
[[nodiscard]] bool SavePicture(const std::vector<NamedScene>& scenes, const std::string& path);

/// The smallest rectangle from a label's corner that holds all that is painted of `words`.
[[nodiscard]] Rect InkOf(const Text& words, int fontPx);
