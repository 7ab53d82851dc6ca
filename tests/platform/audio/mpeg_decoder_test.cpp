// The decoder against the kinds of files there are, and against files that are none.
#include "platform/audio/mpeg_decoder.h"

#include <gtest/gtest.h>

#include "platform/audio/media_maker.h"

namespace {

class MpegDecoderTest : public ::testing::Test {
protected:
    std::unique_ptr<MpegDecoder> Open(const std::string& bytes) {
        return MpegDecoder::Open(OpenForReading(TextView(m_media.Write("file", bytes))), &m_quit);
    }
    static std::int64_t CountFrames(MpegDecoder& decoder) {
        std::int64_t frames = 0;
        for (std::vector<std::int16_t> part;;) {
            decoder.Decode(10000, part);
            if (part.empty()) return frames;
            frames += static_cast<std::int64_t>(part.size()) / decoder.Facts().Format.Channels;
        }
    }
    std::int64_t LengthOf(MpegDecoder& decoder) {
        if (decoder.Facts().LengthFrames) return *decoder.Facts().LengthFrames;
        const std::optional<LengthScan> scan = decoder.Scan();
        return scan ? scan->LengthFrames : -1;
    }
    std::string Song(int ms = 2000) const { return m_media.Encode("lame --quiet -b 128", 44100, 2, ms); }

    MediaMaker m_media;
    std::atomic<bool> m_quit{false};
};

struct Kind {
    const char* Encoder;
    int RateHz;
    int Channels;
};

TEST_F(MpegDecoderTest, LengthIsWhatIsHeardInEveryKindOfFile) {
    const Kind kinds[] = {
        {"lame --quiet -b 128", 44100, 2},
        {"lame --quiet -b 320", 48000, 2},
        {"lame --quiet -b 64 -m m --resample 32", 32000, 1},
        {"lame --quiet -V4", 44100, 2},
        {"lame --quiet -V4 -t", 44100, 2},
        {"lame --quiet -b 64 -t -p --resample 22.05", 22050, 2},
        {"lame --quiet -b 32 -m m --resample 24", 24000, 1},
        {"lame --quiet -b 16 -m m --resample 8", 8000, 1},
        {"lame --quiet --abr 160 --resample 44.1", 44100, 2},
        {"lame --quiet --freeformat -b 350", 44100, 2},
        {"twolame --quiet -b 192", 44100, 2},
        {"twolame --quiet -b 64 -m m", 22050, 1},
        {"twolame --quiet --protect", 48000, 2},
    };
    for (const Kind& kind : kinds) {
        SCOPED_TRACE(kind.Encoder);
        const std::string file = m_media.Encode(kind.Encoder, kind.RateHz, kind.Channels, 1500);
        if (file.empty()) continue;
        const std::unique_ptr<MpegDecoder> decoder = Open(file);
        ASSERT_TRUE(decoder);
        EXPECT_EQ(decoder->Facts().Format, (SoundFormat{kind.RateHz, kind.Channels}));
        EXPECT_GT(decoder->Facts().BitrateKbps, 0);
        const std::int64_t length = LengthOf(*Open(file));
        EXPECT_EQ(CountFrames(*decoder), length);
        EXPECT_NEAR(static_cast<double>(length), kind.RateHz * 1.5, kind.RateHz * 0.2);
    }
}

TEST_F(MpegDecoderTest, LayerOneIsDecoded) {
    const std::unique_ptr<MpegDecoder> decoder = Open(LayerOneFrames(50));
    ASSERT_TRUE(decoder);
    EXPECT_EQ(decoder->Facts().BitrateKbps, 128);
    EXPECT_EQ(CountFrames(*decoder), 50 * 384);
}

TEST_F(MpegDecoderTest, AnEncodersOwnLengthIsKeptToTheSample) {
    const std::unique_ptr<MpegDecoder> decoder = Open(Song(2000));
    ASSERT_TRUE(decoder);
    EXPECT_EQ(decoder->Facts().LengthFrames, 88200);
    EXPECT_EQ(decoder->Facts().BitrateKbps, 128);
    EXPECT_EQ(CountFrames(*decoder), 88200);
}

TEST_F(MpegDecoderTest, AVariableRateShowsItsAverage) {
    const std::string file = m_media.Encode("lame --quiet -V2", 44100, 2, 4000);
    const std::unique_ptr<MpegDecoder> decoder = Open(file);
    ASSERT_TRUE(decoder);
    const double average = static_cast<double>(file.size()) * 8 / 4.0 / 1000;
    EXPECT_NEAR(decoder->Facts().BitrateKbps, average, average * 0.05);
}

TEST_F(MpegDecoderTest, ASeekGivesTheVerySamplesOfThatPlace) {
    for (const char* encoder : {"lame --quiet -b 128", "lame --quiet -V4 -t", "twolame --quiet"}) {
        SCOPED_TRACE(encoder);
        const std::string file = m_media.Encode(encoder, 44100, 2, 3000);
        const std::vector<std::int16_t> all = DecodeAll(m_media.Write("whole", file));
        const std::unique_ptr<MpegDecoder> decoder = Open(file);
        ASSERT_TRUE(decoder);
        const std::optional<LengthScan> scan = Open(file)->Scan();
        ASSERT_TRUE(scan);
        decoder->UseIndex(scan->Index);
        std::vector<std::int16_t> part;
        for (const std::int64_t goal : {100000, 1000, 70001, 0, 44100}) {
            ASSERT_EQ(decoder->SeekTo(goal), goal);
            decoder->Decode(3000, part);
            ASSERT_EQ(part.size(), 6000U);
            EXPECT_TRUE(std::equal(part.begin(), part.end(), all.begin() + goal * 2)) << goal;
        }
    }
}

TEST_F(MpegDecoderTest, ASeekBehindTheEndGivesNothing) {
    const std::unique_ptr<MpegDecoder> decoder = Open(Song());
    ASSERT_TRUE(decoder);
    decoder->SeekTo(1'000'000'000);
    std::vector<std::int16_t> part;
    decoder->Decode(1000, part);
    EXPECT_TRUE(part.empty());
    decoder->SeekTo(1000);
    decoder->Decode(1000, part);
    EXPECT_EQ(part.size(), 2000U);
}

TEST_F(MpegDecoderTest, WhatHoldsNoSoundIsRefused) {
    std::string random(300000, '\0');
    std::uint32_t state = 7;
    for (char& byte : random)
        byte = static_cast<char>((state = state * 1664525 + 1013904223) >> 24 & 0x7F);
    for (const std::string& bytes :
         {std::string(), std::string("x"), std::string("no music, only words"), std::string(1'000'000, '\0'),
          random, Id3v2(3, TextFrame(3, "TIT2", 0, "Alone")), Id3v2(3, "", 256 * 1024 * 1024 - 1) + "short",
          Id3v1("Alone", "")})
        EXPECT_FALSE(Open(bytes)) << bytes.size();
}

TEST_F(MpegDecoderTest, DamageCostsOnlyTheDamagedPart) {
    const std::string good = Song(4000);
    std::string torn = good;
    for (std::size_t i = 20000; i < 23000; ++i)
        torn[i] = static_cast<char>(i * 31);
    std::string zeroed = good;
    zeroed.replace(30000, 5000, std::string(5000, '\0'));
    const std::string cut = good.substr(0, good.size() / 2 + 100);
    const std::string junk = std::string(3000, '\x55') + good;
    EXPECT_GT(CountFrames(*Open(torn)), 4 * 44100 * 9 / 10);
    EXPECT_GT(CountFrames(*Open(zeroed)), 4 * 44100 * 8 / 10);
    EXPECT_NEAR(static_cast<double>(CountFrames(*Open(cut))), 2 * 44100, 4000);
    EXPECT_NEAR(static_cast<double>(CountFrames(*Open(junk))), 4 * 44100, 4000);
}

TEST_F(MpegDecoderTest, AFileCutOrGrownIsMeasuredAndNotBelieved) {
    const std::string good = Song(4000);
    const std::unique_ptr<MpegDecoder> cut = Open(good.substr(0, good.size() / 2));
    ASSERT_TRUE(cut);
    EXPECT_NEAR(static_cast<double>(LengthOf(*cut)), 2 * 44100, 4000);
    const std::unique_ptr<MpegDecoder> grown = Open(good + std::string(400000, 'x'));
    ASSERT_TRUE(grown);
    EXPECT_NEAR(static_cast<double>(LengthOf(*grown)), 4 * 44100, 4000);
}

TEST_F(MpegDecoderTest, AHeaderThatLiesIsMeasuredAndNotBelieved) {
    for (const std::string& lie :
         {std::string(4, '\0'), std::string(4, '\xFF'), std::string("\0\0\0\2", 4)}) {
        std::string file = m_media.Encode("lame --quiet -V4", 44100, 2, 4000);
        const std::size_t letters = file.find("Xing");
        ASSERT_NE(letters, std::string::npos);
        file.replace(letters + 8, 4, lie);
        const std::unique_ptr<MpegDecoder> decoder = Open(file);
        ASSERT_TRUE(decoder);
        EXPECT_FALSE(decoder->Facts().LengthFrames);
        EXPECT_NEAR(static_cast<double>(LengthOf(*decoder)), 4 * 44100, 4000);
    }
}

TEST_F(MpegDecoderTest, PiecesOfOtherFormatsComeOutInTheFirstOnes) {
    const std::string stereo = Song(1000);
    const std::string mono = m_media.Encode("lame --quiet -b 32 -m m -t", 22050, 1, 1000);
    const std::string two = m_media.Encode("twolame --quiet", 48000, 2, 1000);
    const std::string one = LayerOneFrames(60);
    const std::vector<std::string> orders[] = {{stereo, mono, two},
                                               {mono, stereo, one},
                                               {two, mono, stereo},
                                               {one, two, mono},
                                               {mono, two, one, stereo}};
    for (const std::vector<std::string>& order : orders) {
        std::string file;
        for (const std::string& piece : order)
            file += piece;
        const std::unique_ptr<MpegDecoder> decoder = Open(file);
        ASSERT_TRUE(decoder);
        EXPECT_GT(CountFrames(*decoder), decoder->Facts().Format.RateHz / 2);
        static_cast<void>(Open(file)->Scan());
        for (const std::int64_t goal : {50000, 10, 30000, 80000, 0}) {
            decoder->SeekTo(goal);
            std::vector<std::int16_t> part;
            decoder->Decode(2000, part);
        }
    }
}

TEST_F(MpegDecoderTest, TheTitleIsReadInEveryVersionAndEncoding) {
    const std::string song = Song(500);
    const std::string utf16 = std::string("\xFF\xFE\x4C\x00\x75\x00\x6E\x00\xE9\x00", 10);
    const std::string utf16Big = std::string("\x00\x4C\x00\x75\x00\x6E\x00\xE9", 8);
    const std::string utf8 = "Lun\xC3\xA9";
    struct Row {
        int Version;
        char Encoding;
        std::string Bytes;
    };
    for (const Row& row : {Row{2, 0, "Lun\xE9"}, Row{2, 1, utf16}, Row{3, 0, "Lun\xE9"}, Row{3, 1, utf16},
                           Row{4, 0, "Lun\xE9"}, Row{4, 1, utf16}, Row{4, 2, utf16Big}, Row{4, 3, utf8},
                           Row{4, 3, utf8 + '\0'}, Row{4, 3, utf8 + std::string("\0Second", 7)}}) {
        const std::string id = row.Version == 2 ? "TT2" : "TIT2";
        const std::string tag = Id3v2(row.Version, TextFrame(row.Version, id, row.Encoding, row.Bytes));
        const std::unique_ptr<MpegDecoder> decoder = Open(tag + song);
        ASSERT_TRUE(decoder);
        EXPECT_EQ(decoder->Facts().Tags.Title, u"Lun\u00E9") << row.Version << " " << int(row.Encoding);
    }
}

TEST_F(MpegDecoderTest, TheNewTagComesBeforeTheOldOneFieldByField) {
    const std::string song = Song(500);
    const TrackTags both =
        Open(Id3v2(3, TextFrame(3, "TIT2", 0, "New")) + song + Id3v1("Old", "Singer"))->Facts().Tags;
    EXPECT_EQ(both.Title, u"New");
    EXPECT_EQ(both.Artist, u"Singer");
    const TrackTags old = Open(song + Id3v1("Old   ", std::string(30, 'a')))->Facts().Tags;
    EXPECT_EQ(old.Title, u"Old");
    EXPECT_EQ(old.Artist, Text(30, u'a'));
    EXPECT_EQ(old.Genre, u"17");
    EXPECT_EQ(Open(song)->Facts().Tags, TrackTags());
}

TEST_F(MpegDecoderTest, StrangeTagsDoNoHarm) {
    const std::string song = Song(500);
    const std::string longTitle(10000, 'a');
    const TrackTags two =
        Open(Id3v2(3, TextFrame(3, "TIT2", 0, longTitle) + TextFrame(3, "TIT2", 0, "Short")) + song)
            ->Facts()
            .Tags;
    EXPECT_EQ(two.Title, u"Short");
    const TrackTags one = Open(Id3v2(3, TextFrame(3, "TIT2", 0, longTitle)) + song)->Facts().Tags;
    EXPECT_TRUE(one.Title == Text(10000, u'a'));
    const TrackTags format = Open(Id3v2(3, TextFrame(3, "TIT2", 0, "%s%n")) + song)->Facts().Tags;
    EXPECT_EQ(format.Title, u"%s%n");
    const TrackTags huge =
        Open(Id3v2(4, TextFrame(4, "TIT2", 3, std::string(1'000'000, 'b'))) + song)->Facts().Tags;
    EXPECT_EQ(huge.Title.substr(0, 1000), Text(1000, u'b'));
    // UTF-16 of odd length, a size above the tag's, half a surrogate pair, an unknown encoding.
    for (const std::string& frame :
         {TextFrame(3, "TIT2", 1, std::string("\xFF\xFE\x41\x00\x42", 5)),
          std::string("TIT2\x7F\xFF\xFF\xFF\0\0\0abc", 13),
          TextFrame(4, "TIT2", 2, std::string("\xD8\x00", 2)), TextFrame(4, "TIT2", 9, "abc"),
          std::string("TIT2\xFF\xFF\xFF\xFF\0\0\0abc", 13)})
        EXPECT_TRUE(Open(Id3v2(4, frame) + song));
}

TEST_F(MpegDecoderTest, BigTagsAreReadOrPassedOver) {
    const std::string song = Song(500);
    const std::int64_t frames = CountFrames(*Open(song));
    std::string picture = "APIC";
    picture += std::string("\0\x4C\x4B\x40\0\0", 6) + std::string(5'000'000, '\xFF');
    const std::unique_ptr<MpegDecoder> cover =
        Open(Id3v2(3, TextFrame(3, "TIT2", 0, "Cover") + picture) + song);
    ASSERT_TRUE(cover);
    EXPECT_EQ(cover->Facts().Tags.Title, u"Cover");
    EXPECT_EQ(CountFrames(*cover), frames);
    const std::unique_ptr<MpegDecoder> giant = Open(Id3v2(3, std::string(17 * 1024 * 1024, '\0')) + song);
    ASSERT_TRUE(giant);
    EXPECT_EQ(CountFrames(*giant), frames);
    const std::string ape = "APETAGEX" + std::string(24, '\0') + std::string(3000, 'p');
    EXPECT_EQ(LengthOf(*Open(song + ape)), frames);
}

TEST_F(MpegDecoderTest, AFileMayShrinkAndGrowWhileItIsRead) {
    const std::string song = Song(6000);
    const std::unique_ptr<MpegDecoder> decoder = Open(song);
    ASSERT_TRUE(decoder);
    std::vector<std::int16_t> part;
    decoder->Decode(10000, part);
    EXPECT_FALSE(part.empty());
    // The same file on the disk, shorter.
    m_media.Write("file", song.substr(0, song.size() / 3));
    EXPECT_LT(CountFrames(*decoder), 6 * 44100);
    decoder->SeekTo(20000);
    decoder->Decode(1000, part);
    EXPECT_EQ(part.size(), 2000U);
}

TEST_F(MpegDecoderTest, QuittingEndsAScan) {
    const std::unique_ptr<MpegDecoder> decoder = Open(Song());
    ASSERT_TRUE(decoder);
    m_quit = true;
    static_cast<void>(decoder->Scan());
    std::vector<std::int16_t> part;
    decoder->SeekTo(40000);
    decoder->Decode(100000, part);
    EXPECT_LT(part.size(), 88200U * 2);
}

} // namespace
