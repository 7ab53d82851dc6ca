// Picture files by the toolkit's readers, each asked for by name after a look at the file's first
// bytes.
#pragma once

#include <QImage>
#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string_view>

#include "platform/picture.h"

/// A picture with its pixels, premultiplied; one device pixel is one skin pixel.
class QtPicture : public LoadedPicture {
public:
    explicit QtPicture(QImage image)
        : LoadedPicture(image.width(), image.height()), Image(std::move(image)) {}

    const QImage Image;
};

/// The picture that these bytes of a file are; the null image if they are none within the limits.
[[nodiscard]] QImage DecodePicture(std::string_view bytes);

/// Files that haven't changed since they were decoded for a picture that still lives are not
/// decoded again: a skin names most of its files twice. The pictures are different ones all the
/// same.
class QtPictures : public Pictures {
public:
    [[nodiscard]] PicturePtr LoadPicture(const Text& path) override;

private:
    /// What makes a file the one that was decoded: device, number, size, time of change in
    /// nanoseconds.
    using FileIdentity = std::array<std::int64_t, 4>;

    [[nodiscard]] static std::optional<FileIdentity> IdentityOf(const Text& path);
    void ForgetTheDead();

    std::map<FileIdentity, std::weak_ptr<const LoadedPicture>> m_decoded;
};
