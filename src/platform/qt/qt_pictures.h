// Loads picture files with the toolkit's readers.
#pragma once

#include <QImage>
#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string_view>

#include "platform/picture.h"

/// A picture with its pixels, premultiplied. One pixel of the image is one skin pixel.
class QtPicture : public LoadedPicture {
public:
    explicit QtPicture(QImage image)
        : LoadedPicture(image.width(), image.height()), Image(std::move(image)) {}

    [[nodiscard]] bool Covers(int xPx, int yPx) const override {
        return qAlpha(Image.pixel(xPx, yPx)) > 0;
    }

    const QImage Image;
};

/// The picture in the bytes of a file, by its first bytes a BMP, GIF, JPEG, PNG or ICO. The null
/// image if it is none, or one of more than 64 MiB, that is 4096 by 4096 pixels.
[[nodiscard]] QImage DecodePicture(std::string_view bytes);

/// A skin names most of its files twice. So a file isn't decoded again while a picture made of it
/// is in use and the file hasn't changed. Each load is a new picture all the same; the two share
/// their pixels.
class QtPictures : public Pictures {
public:
    [[nodiscard]] PicturePtr LoadPicture(const Text& path) override;

private:
    /// Tells whether a file is the one that was decoded, unchanged: device, inode, size, time of
    /// the last change in nanoseconds.
    using FileIdentity = std::array<std::int64_t, 4>;

    [[nodiscard]] static std::optional<FileIdentity> IdentityOf(const Text& path);
    void ForgetUnused();

    std::map<FileIdentity, std::weak_ptr<const LoadedPicture>> m_decoded;
};
