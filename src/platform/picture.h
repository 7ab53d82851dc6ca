// Pictures as the system handles them: objects with an identity and a size.
#pragma once

#include <memory>

#include "platform/text.h"

/// A loaded picture. It never changes; what its pixels are is the window layer's affair. Two loads
/// of one file are two pictures, and which picture a control shows is told by comparing pointers.
class LoadedPicture {
public:
    LoadedPicture(int widthPx, int heightPx) : WidthPx(widthPx), HeightPx(heightPx) {}
    virtual ~LoadedPicture() = default;
    LoadedPicture(const LoadedPicture&) = delete;
    LoadedPicture& operator=(const LoadedPicture&) = delete;

    /// Whether the pixel hides anything of what is beneath. The place has to lie in the picture.
    [[nodiscard]] virtual bool Covers(int /*xPx*/, int /*yPx*/) const { return true; }

    const int WidthPx;
    const int HeightPx;
};

/// Shared between controls; the null pointer is no picture at all.
using PicturePtr = std::shared_ptr<const LoadedPicture>;

/// The loader of picture files.
class Pictures {
public:
    virtual ~Pictures() = default;

    /// A new picture from a BMP, GIF (first frame), JPEG, PNG or ICO (largest image) file, known by
    /// its first bytes. The null pointer if the file isn't there, isn't a plain file, isn't a
    /// picture or would take more than 64 MiB. Size in the file's own pixels.
    [[nodiscard]] virtual PicturePtr LoadPicture(const Text& path) = 0;
};
