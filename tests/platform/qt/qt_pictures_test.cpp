// Picture files of every format, and what only looks like one.
#include "platform/qt/qt_pictures.h"

#include <QBuffer>
#include <gtest/gtest.h>
#include <random>
#include <sys/stat.h>

#include "platform/paths.h"
#include "support/temp_directory.h"

namespace {

using namespace std::string_literals;

// A number in little-endian bytes.
std::string Bytes(std::size_t number, int count) {
    std::string bytes;
    for (int at = 0; at < count; ++at)
        bytes += static_cast<char>(number >> (8 * at));
    return bytes;
}

// 2 by 1 pixels.
const std::string kGif = "GIF89a\2\0\1\0\x80\0\0\xFF\0\0\0\xFF\0,\0\0\0\0\2\0\1\0\0\2\2\x44\x0A\0;"s;

std::string Encoded(int widthPx, int heightPx, const char* format, QColor colour = QColor(200, 100, 50)) {
    QImage image(widthPx, heightPx, widthPx < 1000 ? QImage::Format_RGB32 : QImage::Format_Mono);
    image.fill(widthPx < 1000 ? colour : Qt::color1);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes.toStdString();
}

// An icon of square images, in their order.
std::string Icon(const std::vector<std::pair<std::size_t, QColor>>& images) {
    std::string head = "\0\0\1\0"s + Bytes(images.size(), 2), data;
    for (const auto& [sizePx, colour] : images) {
        const std::string image = Encoded(static_cast<int>(sizePx), static_cast<int>(sizePx), "png", colour);
        head += Bytes(sizePx * 0x101, 4) + "\1\0\x20\0"s + Bytes(image.size(), 4) +
                Bytes(6 + 16 * images.size() + data.size(), 4);
        data += image;
    }
    return head + data;
}

// What a picture is, as its size and the colour of its first pixel.
std::string Described(const PicturePtr& picture) {
    if (!picture) return "none";
    const QImage& image = static_cast<const QtPicture&>(*picture).Image;
    return QString::asprintf("%dx%d %s%s", picture->WidthPx, picture->HeightPx,
                             qPrintable(image.pixelColor(0, 0).name()),
                             image.format() == QImage::Format_ARGB32_Premultiplied ? "" : " unprepared")
        .toStdString();
}

bool IsSmall(const PicturePtr& picture) {
    return !picture || std::int64_t{picture->WidthPx} * picture->HeightPx <= 16 << 20;
}

class QtPicturesTest : public testing::Test {
protected:
    PicturePtr Load(const std::string& bytes, const std::string& name = "picture.gif") {
        return m_pictures.LoadPicture(m_temp.Put(name, bytes));
    }

    const TempDirectory m_temp;
    QtPictures m_pictures;
};

const QColor kRed(255, 0, 0), kGreen(0, 255, 0), kBlue(0, 0, 255);

} // namespace

TEST_F(QtPicturesTest, TheFirstBytesDecideTheFormatAndOfAnIconTheLargestImageCounts) {
    const std::pair<std::string, const char*> rows[] = {
        {Encoded(12, 7, "bmp"), "12x7 #c86432"},
        {Encoded(12, 7, "png"), "12x7 #c86432"},
        {Encoded(12, 7, "ico"), "12x7 #c86432"},
        {Encoded(12, 7, "jpeg"), "12x7 #c86432"},
        {kGif, "2x1 #ff0000"},
        {Icon({{3, kRed}, {9, kGreen}, {5, kBlue}}), "9x9 #00ff00"},
        {Icon({{3, kRed}, {3, kGreen}}), "3x3 #ff0000"},
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
    EXPECT_EQ(key(m_pictures.LoadPicture(path)), key(second)) << "the second stands in for the first";
    m_temp.Put("twin", Encoded(4, 3, "png"));
    EXPECT_EQ(Described(m_pictures.LoadPicture(path)), "4x3 #c86432");
}

TEST_F(QtPicturesTest, WhatIsNoPictureIsNothing) {
    for (const std::string& bytes :
         {""s, "G"s, "GIF89a"s, "BM"s, "[Settings]\r\nWidth=200\r\n"s, "P3 1 1 255 1 2 3"s, "\0\0\1\0\0\0"s,
          "\0\0\1\0\1\0"s + "\x10\x10\0\0\1\0\x20\0"s + Bytes(64, 4) + Bytes(0x7FFFFFFF, 4)})
        EXPECT_FALSE(Load(bytes)) << bytes;
    ASSERT_EQ(mkfifo(m_temp.Path("fifo").c_str(), 0600), 0);
    for (const Text& path :
         {m_temp.PathText(), m_temp.PathText("fifo"), m_temp.PathText("none"), Text(u"\\dev\\zero"), Text()})
        EXPECT_FALSE(m_pictures.LoadPicture(path));
}

TEST_F(QtPicturesTest, NoNumberInAFileMakesItLarge) {
    EXPECT_TRUE(Load(Encoded(4096, 4096, "png"))) << "64 MB, and not a pixel more:";
    EXPECT_FALSE(Load(Encoded(24929, 673, "png")));
    const auto with = [](std::string bytes, std::size_t at, std::size_t number) {
        return bytes.replace(at, 4, Bytes(number, 4));
    };
    const std::string bmp = Encoded(3, 3, "bmp");
    EXPECT_FALSE(Load(with(kGif, 6, 0xFFFFFFFF)) || Load(with(bmp, 18, 0x7FFFFFFF)));
    // These may come out as something or nothing, but small: a frame far away, the pixels, size and depth.
    for (const std::string& bytes :
         {with(kGif, 20, 60000), with(bmp, 10, 0x7FFFFFFF), with(bmp, 18, 0), with(bmp, 22, 0x80000000),
          with(bmp, 22, 0xFFFFFFFD), with(bmp, 26, 0x1010001)})
        EXPECT_TRUE(IsSmall(Load(bytes)));
}

TEST_F(QtPicturesTest, DamageAnywhereIsSurvived) {
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        const char* formats[] = {"bmp", "jpeg", "png", "ico"};
        std::string damaged = round % 5 == 4 ? kGif : Encoded(16, 16, formats[round % 5]);
        for (int change = 0; change < 4; ++change)
            damaged[random() % damaged.size()] = static_cast<char>(random());
        if (round % 3 == 0) damaged.resize(random() % damaged.size());
        EXPECT_TRUE(IsSmall(Load(damaged)));
    }
}
