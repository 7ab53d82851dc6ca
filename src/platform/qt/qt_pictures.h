// Picture files by the toolkit's readers, each asked for by name after a look at the file's first bytes.
#pragma once

#include <QImage>

#include "platform/picture.h"

/// A picture with its pixels, premultiplied; one device pixel is one skin pixel.
class QtPicture : public LoadedPicture {
public:
    explicit QtPicture(QImage image)
        : LoadedPicture(image.width(), image.height()), Image(std::move(image)) {}

    const QImage Image;
};

class QtPictures : public Pictures {
public:
    [[nodiscard]] PicturePtr LoadPicture(const Text& path) override;
};
