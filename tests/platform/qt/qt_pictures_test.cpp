// Picture files of every format, and what only looks like one.
#include "platform/qt/qt_pictures.h"

#include "platform/paths.h"
#include "qt_fixture.h"
#include "support/temp_directory.h"

namespace {

using namespace std::string_literals;

// 2 by 1 pixels.
const auto kGif = "GIF89a\2\0\1\0\x80\0\0\xFF\0\0\0\xFF\0,\0\0\0\0\2\0\1\0\0\2\2D\n\0;"s;

std::string Encoded(int widthPx, int heightPx, const char* format, QColor colour = {200, 100, 50}) {
    QImage image(widthPx, heightPx, widthPx < 1000 ? QImage::Format_RGB32 : QImage::Format_Mono);
    image.fill(widthPx < 1000 ? colour : Qt::color1);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes.toStdString();
}

// What a picture is, as its size and the colour of its first pixel.
std::string Described(const PicturePtr& picture) {
    if (!picture) return "none";
    const QImage& image = static_cast<const QtPicture&>(*picture).Image;
    return QString::asprintf("%dx%d %s%s", picture->WidthPx, picture->HeightPx,
                             qPrintable(image.pixelColor(0, 0).name()),
                             image.format() == QImage::Format_ARGB32_Premultiplied ? ""
                                                                                   : " unprepared")
        .toStdString();
}

class QtPicturesTest : public testing::Test {
protected:
    PicturePtr Load(const std::string& bytes, const std::string& name = "picture.gif") {
        return m_pictures.LoadPicture(m_temp.Put(name, bytes));
    }

    const TempDirectory m_temp;
    QtPictures m_pictures;
};

} // namespace

TEST_F(QtPicturesTest, TheFirstBytesDecideTheFormatAndOfAnIconTheLargestImageCounts) {
    const auto small = Encoded(3, 3, "png", Qt::red), large = Encoded(9, 9, "png", Qt::green);
    const auto row = [](char sizePx, const std::string& image, std::size_t at) {
        return std::string{sizePx, sizePx} + "\0\0\1\0\x20\0"s + char(image.size()) + "\0\0\0"s +
               char(at) + "\0\0\0"s;
    };
    const std::string icon = "\0\0\1\0\3\0"s + row(3, small, 54) +
                             row(9, large, 54 + small.size()) + row(3, small, 54) + small + large;
    // One size, one pixel: black in 1 bit, blue in 32, black in 1 again. The table says 32 of all.
    const auto one = "\x28\0\0\0\1\0\0\0\2\0\0\0\1\0"s, rest = std::string(24, '\0');
    const auto flat = one + "\1\0"s + rest + std::string(16, '\0');
    const auto deep = one + "\x20\0"s + rest + "\xFF\0\0\xFF\0\0\0\0"s;
    const std::string depths = "\0\0\1\0\3\0"s + row(1, flat, 54) + row(1, deep, 54 + flat.size()) +
                               row(1, flat, 54) + flat + deep;
    const std::pair<std::string, const char*> rows[] = {
        {Encoded(12, 7, "bmp"), "12x7 #c86432"},
        {Encoded(12, 7, "png"), "12x7 #c86432"},
        {Encoded(12, 7, "ico"), "12x7 #c86432"},
        {Encoded(12, 7, "jpeg"), "12x7 #c86432"},
        {kGif, "2x1 #ff0000"},
        {icon, "9x9 #00ff00"},
        {depths, "1x1 #0000ff"},
        {Encoded(4096, 4096, "png"), "4096x4096 #ffffff"}, // 64 MB, and no row more.
    };
    for (const auto& [bytes, picture] : rows)
        EXPECT_EQ(Described(Load(bytes, "wrong.gif")), picture);
}

TEST_F(QtPicturesTest, TwoLoadsAreTwoPicturesOfTheSamePixelsUntilTheFileChanges) {
    const auto key = [](const PicturePtr& picture) {
        return static_cast<const QtPicture&>(*picture).Image.cacheKey();
    };
    const Text path = m_temp.Put("twin", Encoded(3, 3, "png"));
    PicturePtr first = m_pictures.LoadPicture(path);
    const PicturePtr second = m_pictures.LoadPicture(path);
    EXPECT_NE(first, second);
    EXPECT_EQ(key(first), key(second));
    first.reset();
    EXPECT_EQ(key(m_pictures.LoadPicture(path)), key(second)) << "the second stands in";
    m_temp.Put("twin", Encoded(4, 3, "png"));
    EXPECT_EQ(Described(m_pictures.LoadPicture(path)), "4x3 #c86432");
}

TEST_F(QtPicturesTest, WhatIsNoPictureIsNothing) {
    for (const std::string& bytes : {""s, "G"s, "GIF89a"s, "BM"s, Encoded(4096, 4097, "png")})
        EXPECT_FALSE(Load(bytes)) << bytes;
    for (const Text& path : {m_temp.PathText(), m_temp.PathText("none"), Text(u"\\dev\\zero")})
        EXPECT_FALSE(m_pictures.LoadPicture(path));
}
