// The decoder against the kinds of files there are, and against files that are none: what each says
// of itself and how much of it is heard; and the thread that reads a track by it. Frames of silence
// are made here, byte by byte; what only must do no harm is a seed of the fuzzing's, as are the
// short files by encoders.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <mutex>
#include <sstream>

#include "platform/audio/decode/track_reader.h"
#include "platform/audio/media_maker.h"

namespace {

using namespace std::string_literals;

// 200 frames of layer III, stereo, 128 kbit/s at 44,100 Hz: silence, but for its heads.
const std::string kSong = [] {
    std::string frames;
    for (int at = 0; at < 200; ++at)
        frames.append("\xFF\xFB\x90\0"s).append(413, '\0');
    return frames;
}();

const std::string kSeeds = VELORA_SOURCE_DIR "/tests/fuzz/seeds/media/";

class MediaTest : public ::testing::Test {
protected:
    static std::string Seed(const std::string& name) {
        return *ReadFileBytes(OpenForReading(kSeeds + name), 1 << 20);
    }
    // A number of four bytes of `bits` bits, the highest first.
    static std::string Big(std::size_t number, int bits = 8) {
        std::string bytes;
        for (int at = 3; at >= 0; --at)
            bytes += char(number >> bits * at & ((1U << bits) - 1));
        return bytes;
    }
    // The song behind a copy of its first frame, which has `tag` so many bytes from its beginning,
    // and junk.
    static std::string Tagged(const std::string& tag, std::size_t at = 36, std::size_t junk = 0) {
        return kSong.substr(0, 417).replace(at, tag.size(), tag) + std::string(junk, 'x') + kSong;
    }
    // What an encoder tells: MPEG frames and bytes.
    static std::string Xing(std::size_t frames, std::size_t bytes) {
        return "Xing" + Big(3) + Big(frames) + Big(bytes);
    }
    // An ID3v2 tag, one of its frames, and a tag with a title.
    static std::string Tag(const std::string& frames, char flags = 0) {
        return "ID3\4\0"s + flags + Big(frames.size(), 7) + frames;
    }
    static std::string Field(const std::string& id, const std::string& content) {
        return id + Big(content.size() + 1, 7) + "\0\0\3"s + content;
    }
    static std::string Title(const std::string& content) { return Tag(Field("TIT2", content)); }
    // "rate x channels, kbit/s", the length in samples as the file says it or a scan finds it, what
    // is heard if that is another, and title, artist, album, year, comment and genre; of a long one
    // how long it is.
    std::string Dump(const std::string& bytes, bool quits = false) {
        const Text path = m_media.Write("media", bytes);
        const std::atomic<bool> quit{quits};
        const std::unique_ptr<MpegDecoder> decoder =
            MpegDecoder::Open(OpenForReading(TextView(path)), &quit);
        if (!decoder) return "refused";
        const auto& [format, bitrateKbps, tags, told] = decoder->Facts();
        const std::int64_t length = told ? *told : decoder->Scan()->LengthFrames;
        std::ostringstream dump;
        dump << format.RateHz << 'x' << format.Channels << ' ' << bitrateKbps << "k "
             << (told ? "says " : "scans ") << length;
        const std::int64_t heard = std::ssize(DecodeAll(path)) / format.Channels;
        if (heard != length) dump << " hears " << heard;
        const auto& [title, artist, album, year, comment, genre] = tags;
        for (const Text& text : {title, artist, album, year, comment, genre})
            dump << '|' << (text.size() < 40 ? Utf8(text) : std::to_string(text.size()));
        return dump.str().substr(0, dump.str().find_last_not_of('|') + 1);
    }

    /// Only `\n\found` can be opened, and only `opens` times; it is a file of these bytes.
    void Start(const Text& path, const std::string& bytes, int opens) {
        m_asked.clear();
        m_session = std::make_shared<TrackSession>(std::make_shared<Bell>());
        const auto open = [this, file = m_media.Write("song", bytes),
                           opens](const Text& asked) mutable {
            const std::lock_guard lock(m_mutex);
            m_asked += Utf8(asked) + " ";
            return asked == u"\\n\\found" && opens-- > 0 ? OpenForReading(TextView(file))
                                                         : FileHandle();
        };
        StartReading({path, {u"\\m", u"\\n\\", u"/o/", u""}, open}, m_session);
    }
    /// Tells the reading threads to end, and waits until they have let go.
    void End() {
        m_session->Quit();
        EXPECT_TRUE(WaitUntil([&] { return m_session.use_count() == 1; }));
    }
    /// The next pieces of a track of one channel, at most `count`, and its end: their first frame,
    /// and how many they are. Each is to be what `m_whole` has in its place.
    std::string Pieces(int count) {
        std::string pieces;
        while (count-- > 0) {
            std::optional<Chunk> chunk;
            EXPECT_TRUE(
                WaitUntil([&] { return (chunk = m_session->TakeChunk()) || m_session->AtEnd(); }));
            if (!chunk) return pieces + "end ";
            const auto& [start, samples] = *chunk;
            pieces += std::to_string(start) + "+" + std::to_string(samples.size()) + " ";
            // A decoder that comes from elsewhere may round a sample the other way.
            const auto isNear = [](int one, int other) { return std::abs(one - other) <= 1; };
            EXPECT_TRUE(std::equal(samples.begin(), samples.end(), m_whole.begin() + start, isNear))
                << pieces;
        }
        return pieces;
    }

    MediaMaker m_media;
    std::shared_ptr<TrackSession> m_session;
    std::mutex m_mutex;
    std::string m_asked;
    Samples16 m_whole;
};

} // namespace

TEST_F(MediaTest, EveryFileTellsWhatItIsAndHowLongItIsHeard) {
    const std::string rows[][3] = {
        {"a free format", Seed("free.mp3"), "22050x1 99k scans 8064"},
        {"a tag longer than the file", Seed("giant.bin"), "22050x1 64k says 6615 hears 47"},
        {"other formats", kSong + Seed("low.mp3") + Seed("two.mp2"),
         "44100x2 128k scans 241344 hears 266450"},
        // What an encoder says of the whole file.
        {"constant", Tagged("Info" + Big(3) + Big(200) + Big(86596)), "44100x2 128k says 229871"},
        {"the average of a varying rate", Tagged(Xing(200, 86596)), "44100x2 133k says 229871"},
        {"no bytes", Tagged("Xing" + Big(1) + Big(200) + Big(99999)), "44100x2 128k says 229871"},
        {"unknown frames", Tagged("Xing" + Big(2) + Big(83817)), "44100x2 128k scans 230400"},
        {"VBRI: its rate only", Tagged("VBRI\0\1abcd"s + Big(86596) + Big(200)),
         "44100x2 133k scans 231552"},
        {"a frame before", Tagged(Xing(200, 0), 36, 2464), "44100x2 128k says 238359 hears 230400"},
        {"further before", Tagged(Xing(200, 0), 36, 2465), "44100x2 128k scans 230400"},
        {"no frames", Tagged(Xing(0, 0)).substr(0, 4170), "44100x2 128k scans 10368"},
        {"most frames can be", Tagged(Xing(3492, 0)), "44100x2 128k says 4022255 hears 229871"},
        {"more than can be", Tagged(Xing(3493, 0)), "44100x2 128k scans 230400 hears 229871"},
        {"fewest frames that can be", Tagged(Xing(14, 0)), "44100x2 128k says 15599 hears 229871"},
        {"fewer than can be", Tagged(Xing(13, 0)), "44100x2 128k scans 230400 hears 229871"},
        {"cut by a frame", Tagged(Xing(200, 83817 + 2881)), "44100x2 133k says 229871"},
        {"more", Title("Cut") + Tagged(Xing(200, 83817 + 2882)), "44100x2 128k scans 229871|Cut"},
        {"a tail of other tags", Tagged(Xing(200, 7804)), "44100x2 12k says 229871"},
        {"a longer tail", Tagged(Xing(200, 7803)), "44100x2 128k scans 229871"},
        {"junk in front", std::string(3000, 'U') + kSong, "44100x2 128k scans 230400"},
        {"more between", kSong + std::string(3 << 19, 'U') + kSong,
         "44100x2 128k scans 230400 hears 460800"},
    };
    for (const auto& [what, bytes, dump] : rows)
        EXPECT_EQ(Dump(bytes), dump) << what;
    // Of MPEG 1 and 2, stereo and mono, behind a checksum or not.
    for (const std::size_t offset : {38U, 21U, 23U, 13U, 15U})
        EXPECT_EQ(Dump(Tagged(Xing(200, 0), offset)), "44100x2 128k says 231552") << offset;
    EXPECT_EQ(Dump(kSong, true), "refused") << "the reader is told to quit";
    // Strange files are played.
    for (const auto& entry : std::filesystem::directory_iterator(kSeeds)) {
        const std::string name = entry.path().filename();
        EXPECT_EQ(Dump(Seed(name)) == "refused", name.starts_with("silent_")) << name;
    }
}

TEST_F(MediaTest, TagsOfEveryKindGiveTheirTexts) {
    const std::string all = Field("TIT2", "Moon") + Field("TPE1", "Sun") + Field("TALB", "Sky") +
                            Field("TDRC", "D") + Field("TYER", "Y") + Field("COMM", "eng\0C"s) +
                            Field("TCON", "Jazz");
    const std::string comments =
        Field("COMM", "eng\0"s) + Field("COMM", "enga\0One"s) + Field("COMM", "engb\0Two"s);
    const std::string big = Field("TIT2", "Big") + std::string((16 << 20) - 23, '\0');
    const std::string rows[][3] = {
        {"all that there are, the year before the date", Tag(all), "|Moon|Sun|Sky|Y|C|Jazz"},
        {"a date", Tag(Field("TDRC", "Date")), "||||Date"},
        {"two in one field", Title("Moon\0Second"s), "|Moon"},
        {"the first comment that isn't empty", Tag(comments), "|||||One"},
        {"one without a name first", Tag(comments + Field("COMM", "eng\0Three"s)), "|||||Three"},
        {"cut between two halves", Title(std::string(65535, 'M') + "\U00010000"), "|65535"},
        {"cut behind both", Title(std::string(65534, 'M') + "\U00010000+"), "|65536"},
        {"16 MiB are read", Tag(big.substr(0, big.size() - 1)), "|Big"},
        {"one byte more isn't, nor another behind it", Tag(big) + Tag(big), ""},
        {"a footer counts, too", Tag(big.substr(0, big.size() - 10), '\x10') + "3DI1234567", ""},
    };
    // The old kind of tag stands behind, and fills in what the new one lacks; one of these has
    // nothing.
    const std::string empty = kSong + "TAG" + std::string(124, '\0') + '\xFF';
    for (const auto& [what, bytes, dump] : rows)
        EXPECT_EQ(Dump(bytes + empty), "44100x2 128k scans 230400" + dump) << what;
    const std::string old = "TAGOld" + std::string(27, '\0') + "Sun" + std::string(27, '\0') +
                            "Disc" + std::string(26, ' ') + "1999Words" + std::string(25, '\0') +
                            '\x11';
    EXPECT_EQ(Dump(Title("New") + kSong + old),
              "44100x2 128k scans 230400|New|Sun|Disc|1999|Words|17");
}

TEST_F(MediaTest, ARelativePathIsLookedForInTheDirectoriesInTheirOrderAndThenAsItIs) {
    const std::pair<Text, std::string> rows[] = {
        {u"a.mp3", "\\m\\a.mp3 \\n\\a.mp3 /o/a.mp3 a.mp3 a.mp3 "},
        {u"\\a.mp3", "\\a.mp3 "},
        {u"/a.mp3", "/a.mp3 "},
        // It tells its length, so it isn't opened again to find that.
        {u"found", "\\m\\found \\n\\found "},
    };
    for (const auto& [path, asked] : rows) {
        Start(path, Seed("mono.mp3"), 2);
        EXPECT_TRUE(WaitUntil([&] { return m_session.use_count() < 2 || m_session->TakeChunk(); }));
        End();
        const std::lock_guard lock(m_mutex);
        EXPECT_EQ(m_asked, asked);
    }
    Start(u"\\n\\found", Seed("one.mp1"), 1);
    EXPECT_TRUE(WaitUntil([&] { return m_session->ScanFailed(); })) << "it can't be opened twice";
    End();
}

TEST_F(MediaTest, PiecesAreTheSamplesOfThePlaceThatIsSoughtAndNothingBetweenIsReadForThem) {
    const std::string song = m_media.Encode("lame --quiet -V4 -t", 44100, 1, 26000);
    m_whole = DecodeAll(m_media.Write("whole", song));
    Start(u"\\n\\found", song, 2);
    EXPECT_TRUE(WaitUntil([&] { return m_session->TakeScannedLength() == std::ssize(m_whole); }));
    EXPECT_EQ(Pieces(3), "0+2205 2205+44100 46305+44100 ");
    // The reader hasn't come to this yet.
    std::fstream file(m_media.Directory() + "/song", std::ios::in | std::ios::out);
    EXPECT_TRUE(file.seekp(140000) << std::string(70000, '\0') << std::flush);
    m_session->RequestSeek(1111111);
    EXPECT_EQ(Pieces(3),
              "1111111+2205 1113316+" + std::to_string(m_whole.size() - 1113316) + " end ");
    m_session->RequestSeek(1'000'000'000);
    EXPECT_EQ(Pieces(1), "end ");
    m_session->RequestSeek(-7);
    EXPECT_EQ(Pieces(2), "0+2205 2205+44100 ");
    End();
}
