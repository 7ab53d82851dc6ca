// Picture files of every format, and what only looks like one.
#include <QBuffer>
#include <QImage>
#include <gtest/gtest.h>
#include <random>
#include <sys/stat.h>

#include "platform/paths.h"
#include "platform/qt/qt_pictures.h"
#include "support/temp_directory.h"

namespace {

using namespace std::string_literals;

// A number in little-endian bytes.
std::string Bytes(std::uint32_t number, int count) {
    std::string bytes;
    for (int at = 0; at < count; ++at)
        bytes += static_cast<char>(number >> (8 * at));
    return bytes;
}

std::string Encoded(int widthPx, int heightPx, const char* format) {
    QImage image(widthPx, heightPx, QImage::Format_RGB32);
    image.fill(qRgb(200, 100, 50));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes.toStdString();
}

// A GIF of one frame, 2 by 1 pixels, on a screen of the given size.
std::string Gif(std::uint32_t width, std::uint32_t height, std::uint32_t frameLeft = 0) {
    return "GIF89a" + Bytes(width, 2) + Bytes(height, 2) + "\x80\0\0"s + "\xFF\0\0\0\xFF\0"s + "," +
           Bytes(frameLeft, 2) + "\0\0\2\0\1\0\0"s + "\2\2\x44\x0A\0"s + ";";
}

// A BMP header of 54 bytes without pixels behind it.
std::string BmpHeader(std::uint32_t width, std::uint32_t height, std::uint32_t bits, std::uint32_t offset) {
    return "BM" + Bytes(54, 4) + Bytes(0, 4) + Bytes(offset, 4) + Bytes(40, 4) + Bytes(width, 4) +
           Bytes(height, 4) + Bytes(1, 2) + Bytes(bits, 2) + std::string(24, '\0');
}

bool IsSmall(const LoadedPicture& picture) {
    return std::int64_t{picture.WidthPx} * picture.HeightPx <= 16 << 20;
}

class QtPicturesTest : public testing::Test {
protected:
    PicturePtr Load(const std::string& bytes, const std::string& name = "picture.gif") {
        return m_pictures.LoadPicture(m_temp.Put(name, bytes));
    }

    const TempDirectory m_temp;
    const std::string m_directory = m_temp.Path();
    QtPictures m_pictures;
};

} // namespace

TEST_F(QtPicturesTest, TheFirstBytesDecideTheFormatAndNotTheName) {
    for (const char* format : {"bmp", "jpeg", "png", "ico"}) {
        const PicturePtr picture = Load(Encoded(12, 7, format), "wrong.gif");
        ASSERT_TRUE(picture) << format;
        EXPECT_EQ(picture->WidthPx, 12) << format;
        EXPECT_EQ(picture->HeightPx, 7) << format;
    }
    const PicturePtr gif = Load(Gif(2, 1), "picture.bmp");
    ASSERT_TRUE(gif);
    EXPECT_EQ(gif->WidthPx, 2);
}

TEST_F(QtPicturesTest, TwoLoadsAreTwoPictures) {
    EXPECT_NE(Load(Encoded(3, 3, "png")), Load(Encoded(3, 3, "png")));
}

TEST_F(QtPicturesTest, SizesAreTheFilesOwnPixelsWhateverItsResolution) {
    QImage image(20, 10, QImage::Format_RGB32);
    image.setDotsPerMeterX(11811);
    image.setDevicePixelRatio(2);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "png");
    EXPECT_EQ(Load(bytes.toStdString())->WidthPx, 20);
}

TEST_F(QtPicturesTest, WhatIsNoPictureIsNothing) {
    EXPECT_FALSE(Load(""));
    EXPECT_FALSE(Load("G"));
    EXPECT_FALSE(Load("GIF89a"));
    EXPECT_FALSE(Load("BM"));
    EXPECT_FALSE(Load("[Settings]\r\nWidth=200\r\n"));
    EXPECT_FALSE(Load("\0\0\1\0\0\0"s)) << "an icon without images";
    EXPECT_FALSE(Load("\0\0\1\0\1\0"s + "\x10\x10\0\0\1\0\x20\0"s + Bytes(64, 4) + Bytes(0x7FFFFFFF, 4)));
    EXPECT_FALSE(m_pictures.LoadPicture(PathText(m_directory)));
    EXPECT_FALSE(m_pictures.LoadPicture(u"\\dev\\zero"));
    EXPECT_FALSE(m_pictures.LoadPicture(u""));
    ASSERT_EQ(mkfifo((m_directory + "/fifo").c_str(), 0600), 0);
    EXPECT_FALSE(m_pictures.LoadPicture(PathText(m_directory + "/fifo")));
}

TEST_F(QtPicturesTest, NoNumberInAFileMakesItLarge) {
    EXPECT_FALSE(Load(Gif(65535, 65535)));
    EXPECT_FALSE(Load(BmpHeader(0x7FFFFFFF, 1, 24, 54)));
    EXPECT_FALSE(Load(BmpHeader(0x7FFFFFFF, 0x7FFFFFFF, 32, 54)));
    EXPECT_FALSE(Load(Encoded(5000, 5000, "png"))) << "a small file of 100 MB";
    // These may come out as something or nothing, but small.
    for (const std::string& bytes :
         {Gif(2, 1, 60000), BmpHeader(3, 0x80000000, 24, 54), BmpHeader(3, 0xFFFFFFFD, 8, 54),
          BmpHeader(3, 3, 24, 0x7FFFFFFF), BmpHeader(0, 0, 24, 54), BmpHeader(3, 3, 257, 54)}) {
        const PicturePtr picture = Load(bytes);
        EXPECT_TRUE(!picture || IsSmall(*picture));
    }
}

TEST_F(QtPicturesTest, DamageAnywhereIsSurvived) {
    std::mt19937 random(7);
    for (const std::string& whole : {Encoded(16, 16, "bmp"), Encoded(16, 16, "jpeg"), Encoded(16, 16, "png"),
                                     Encoded(16, 16, "ico"), Gif(16, 16)})
        for (int round = 0; round < 60; ++round) {
            std::string damaged = whole;
            for (int change = 0; change < 4; ++change)
                damaged[random() % damaged.size()] = static_cast<char>(random());
            if (round % 3 == 0) damaged.resize(random() % damaged.size());
            const PicturePtr picture = Load(damaged);
            EXPECT_TRUE(!picture || IsSmall(*picture));
        }
}
