// The decoder against the kinds of files there are, and against files that are none: what each says of itself
// and how much of it is heard; and the thread that reads a track by it. Frames of silence are made here, byte
// by byte; what only must do no harm is a seed of the fuzzing's, as are the short files by encoders.
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/mman.h>
#include <unistd.h>

#include "platform/audio/media_maker.h"
#include "platform/audio/track_reader.h"

namespace {

using namespace std::string_literals;

// `count` frames of `size` bytes that are zeros but for this head.
std::string Silence(const std::string& head, std::size_t size, int count) {
    std::string frames;
    while (--count >= 0)
        frames.append(head).append(size - head.size(), '\0');
    return frames;
}

const std::string kSeeds = VELORA_SOURCE_DIR "/tests/fuzz/seeds/media/";

std::string Seed(const std::string& name) {
    return ReadFileBytes(OpenForReading(kSeeds + name), 1 << 20).value();
}

struct Row {
    const char* What;
    std::string Bytes;
    const char* Dump;
};

class MpegDecoderTest : public ::testing::Test {
protected:
    // Frames of layer III, stereo: 128 kbit/s at 44,100 Hz, and 320 at 48,000.
    static std::string Song(int frames) { return Silence("\xFF\xFB\x90\0"s, 417, frames); }
    static std::string BigSong(int frames) { return Silence("\xFF\xFB\xE4\0"s, 960, frames); }
    // A number of four bytes of `bits` bits, the highest first.
    static std::string Big(std::size_t number, int bits = 8) {
        std::string bytes;
        for (int at = 3; at >= 0; --at)
            bytes += static_cast<char>(number >> bits * at & ((1U << bits) - 1));
        return bytes;
    }
    // A song behind a copy of its first frame, which has `tag` so many bytes from its beginning, and junk.
    static std::string Tagged(const std::string& song, const std::string& tag, std::size_t offset = 36,
                              std::size_t junk = 0) {
        const std::size_t size = song[2] == '\x90' ? 417 : 960;
        return song.substr(0, size).replace(offset, tag.size(), tag) + std::string(junk, 'x') + song;
    }
    // What two kinds of encoders tell: MPEG frames and bytes.
    static std::string Xing(std::size_t frames, std::size_t bytes) {
        return "Xing" + Big(3) + Big(frames) + Big(bytes);
    }
    static std::string Vbri(std::size_t frames, std::size_t bytes) {
        return "VBRI\0\1\x99\x98\0\x64"s + Big(bytes) + Big(frames);
    }
    // An ID3v2 tag, one of its frames, a tag with a title, and one with a title that has `size` bytes.
    static std::string Tag(const std::string& frames, char flags = 0) {
        return "ID3\4\0"s + flags + Big(frames.size(), 7) + frames;
    }
    static std::string Field(const std::string& id, const std::string& content) {
        return id + Big(content.size(), 7) + "\0\0"s + content;
    }
    static std::string Title(const std::string& content) { return Tag(Field("TIT2", content)); }
    static std::string Giant(std::size_t size, char flags = 0) {
        return Tag(Field("TIT2", "\3Big") + std::string(size - 24, '\0'), flags);
    }
    std::unique_ptr<MpegDecoder> Open(const std::string& bytes) {
        FileHandle file(memfd_create("media", MFD_CLOEXEC));
        EXPECT_EQ(write(file.Descriptor(), bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
        return MpegDecoder::Open(std::move(file), &m_quit);
    }
    // "rate x channels, kbit/s", the length in samples as the file says it or a scan finds it, what is heard
    // if that is another, and title, artist, album, year, comment and genre; of a long one how long it is.
    std::string Dump(const std::string& bytes) {
        const std::unique_ptr<MpegDecoder> decoder = Open(bytes);
        if (!decoder) return "refused";
        const TrackFacts& facts = decoder->Facts();
        std::size_t heard = 0;
        for (Samples16 part(1); !part.empty(); heard += part.size() / facts.Format.Channels)
            decoder->Decode(5760, part);
        const std::size_t length = facts.LengthFrames.value_or(Open(bytes)->Scan().value().LengthFrames);
        std::ostringstream dump;
        dump << facts.Format.RateHz << 'x' << facts.Format.Channels << ' ' << facts.BitrateKbps << "k "
             << (facts.LengthFrames ? "says " : "scans ") << length;
        if (heard != length) dump << " hears " << heard;
        const auto& [title, artist, album, year, comment, genre] = facts.Tags;
        for (const Text& text : {title, artist, album, year, comment, genre})
            dump << '|' << (text.size() < 40 ? Utf8(text) : std::to_string(text.size()));
        const std::string text = dump.str();
        return text.substr(0, text.find_last_not_of('|') + 1);
    }

    std::atomic<bool> m_quit{false};
};

class TrackReaderTest : public ::testing::Test {
protected:
    /// Only `m_found` can be opened, and only `opens` times; it is a file of these bytes.
    void Start(const Text& path, const std::string& bytes, int opens) {
        m_asked.clear();
        m_session = std::make_shared<TrackSession>(std::make_shared<Bell>());
        const auto open = [this, file = m_media.Write("song", bytes), opens](const Text& asked) mutable {
            m_asked += Utf8(asked) + " ";
            return asked == u"\\n\\found" && opens-- > 0 ? OpenForReading(TextView(file)) : FileHandle();
        };
        StartReading({path, {u"\\m", u"\\n\\", u"/o/", u""}, open}, m_session);
    }
    /// Tells the reading threads to end, and waits until they have let go.
    void End() {
        m_session->Quit();
        EXPECT_TRUE(WaitUntil([&] { return m_session.use_count() == 1; }));
    }
    /// The next pieces of a track of one channel, at most `count`, and its end: their first frame, and how
    /// many they are. Each is to be what `m_whole` has in its place.
    std::string Pieces(int count) {
        std::string pieces;
        while (count-- > 0) {
            std::optional<Chunk> chunk;
            EXPECT_TRUE(WaitUntil([&] { return (chunk = m_session->TakeChunk()) || m_session->AtEnd(); }));
            if (!chunk) return pieces + "end ";
            pieces += std::to_string(chunk->StartFrame) + "+" + std::to_string(chunk->Samples.size()) + " ";
            // A decoder that comes from elsewhere may round a sample the other way.
            const auto isNear = [](int one, int other) { return std::abs(one - other) <= 1; };
            EXPECT_TRUE(std::equal(chunk->Samples.begin(), chunk->Samples.end(),
                                   m_whole.begin() + chunk->StartFrame, isNear))
                << pieces;
        }
        return pieces;
    }

    MediaMaker m_media;
    std::shared_ptr<TrackSession> m_session;
    std::string m_asked;
    Samples16 m_whole;
};

} // namespace

TEST_F(MpegDecoderTest, EveryFileTellsWhatItIsAndHowLongItIsHeard) {
    const std::string song = Song(20);
    const std::string big = BigSong(100);
    const std::string mixed = song + Seed("low.mp3") + Seed("two.mp2") + Seed("one.mp1");
    const std::string cut = Tagged(song, Xing(20, 8757 + 2882));
    const Row rows[] = {
        {"a free format", Seed("free.mp3"), "22050x1 99k scans 8064"},
        {"a tag longer than the file", Seed("giant.bin"), "22050x1 64k says 6615 hears 47"},
        {"other formats in between", mixed, "44100x2 128k scans 36288 hears 61394"},
        // What an encoder says of the whole file.
        {"a constant rate", Tagged(song, "Info" + Big(3) + Big(20) + Big(8757)), "44100x2 128k says 22511"},
        {"the average of a varying rate", Tagged(song, Xing(20, 8779)), "44100x2 134k says 22511"},
        {"unknown bytes", Tagged(song, "Xing" + Big(1) + Big(20) + Big(99999)), "44100x2 128k says 22511"},
        {"unknown frames", Tagged(song, "Xing" + Big(2) + Big(8757)), "44100x2 128k scans 23040"},
        {"VBRI is believed in its rate only", Tagged(song, Vbri(20, 8779)), "44100x2 134k scans 24192"},
        {"MPEG 1, behind a checksum", Tagged(song, Xing(20, 0), 38), "44100x2 128k says 24192"},
        {"mono", Tagged(song, Xing(20, 0), 21), "44100x2 128k says 24192"},
        {"mono, behind a checksum", Tagged(song, Xing(20, 0), 23), "44100x2 128k says 24192"},
        {"MPEG 2, mono", Tagged(song, Xing(20, 0), 13), "44100x2 128k says 24192"},
        {"the same behind a checksum", Tagged(song, Xing(20, 0), 15), "44100x2 128k says 24192"},
        {"where no kind has it", Tagged(song, Xing(20, 0), 37), "44100x2 128k scans 24192"},
        {"a longest frame before", Tagged(song, Xing(20, 0), 36, 2464),
         "44100x2 128k says 30999 hears 23040"},
        {"further before", Tagged(song, Xing(20, 0), 36, 2465), "44100x2 128k scans 23040"},
        {"no frames", Tagged(song, Xing(0, 0)), "44100x2 128k scans 23040"},
        {"most frames that can be", Tagged(song, Xing(364, 0)), "44100x2 128k says 418799 hears 22511"},
        {"more than can be", Tagged(song, Xing(365, 0)), "44100x2 128k scans 23040 hears 22511"},
        {"endless", Tagged(song, Vbri(0xFFFFFFFF, 0xFFFFFFFF)), "44100x2 128k scans 24192"},
        {"fewest frames that can be", Tagged(big, Xing(16, 0)), "48000x2 320k says 17903 hears 114671"},
        {"fewer than can be", Tagged(big, Xing(15, 0)), "48000x2 320k scans 115200 hears 114671"},
        {"cut by a frame", Tagged(song, Xing(20, 8757 + 2881)), "44100x2 178k says 22511"},
        {"cut by more", cut, "44100x2 128k scans 22511"},
        {"the same behind a tag", Title("\3Cut") + cut, "44100x2 128k scans 22511|Cut"},
        {"a tail of other tags", Tagged(big, Xing(100, 19304)), "48000x2 64k says 114671"},
        {"a longer tail", Tagged(big, Xing(100, 19303)), "48000x2 320k scans 114671"},
        // Damage, and what isn't sound.
        {"junk in front", std::string(3000, 'U') + song, "44100x2 128k scans 23040"},
        {"too much of it", std::string(3 << 19, 'U') + song, "refused"},
        {"the same between", song + std::string(3 << 19, 'U') + song, "44100x2 128k scans 23040 hears 46080"},
        {"nothing", "", "refused"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Dump(row.Bytes), row.Dump) << row.What;
}

TEST_F(MpegDecoderTest, TagsOfEveryKindGiveTheirTexts) {
    const std::string all = Field("TIT2", "\0Moon"s) + Field("TPE1", "\0Sun"s) + Field("TALB", "\0Sky"s);
    const std::string rest = Field("TYER", "\0Y"s) + Field("COMM", "\0eng\0C"s) + Field("TCON", "\0Jazz"s);
    const std::string comments = Field("COMM", "\0enga\0One"s) + Field("COMM", "\0engb\0Two"s);
    const std::string giant = Giant((16 << 20) + 1);
    const Row rows[] = {
        {"all that there are", Tag(all + rest), "|Moon|Sun|Sky|Y|C|Jazz"},
        {"Latin letters", Title("\0Lun\xE9"s), "|Luné"},
        {"no UTF-8", Title("\3\xC3(\xFF"), "|Ã(ÿ"},
        {"two in one field", Title("\3Moon\0Second"s), "|Moon"},
        {"the last of two titles", Tag(Field("TIT2", "\3Long") + Field("TIT2", "\3Short")), "|Short"},
        {"the year before the date", Tag(Field("TDRC", "\3Date") + Field("TYER", "\3Year")), "||||Year"},
        {"a date", Tag(Field("TDRC", "\3Date")), "||||Date"},
        {"the first comment", Tag(comments), "|||||One"},
        {"one without a name before it", Tag(comments + Field("COMM", "\0eng\0Three"s)), "|||||Three"},
        {"an empty one doesn't count", Tag(Field("COMM", "\0eng\0"s) + comments), "|||||One"},
        {"a megabyte", Title("\3" + std::string(1 << 20, 'M')), "|65536"},
        {"cut between two halves", Title("\3" + std::string(65535, 'M') + "\U00010000"), "|65535"},
        {"cut behind both", Title("\3" + std::string(65534, 'M') + "\U00010000+"), "|65536"},
        {"16 MiB are read", Giant(16 << 20), "|Big"},
        {"one byte more isn't, nor another behind it", giant + giant, ""},
        {"a footer has its size, too", Giant((16 << 20) - 9, '\x10') + "3DI1234567", ""},
    };
    const std::string song = Song(20);
    for (const Row& row : rows)
        EXPECT_EQ(Dump(row.Bytes + song), "44100x2 128k scans 23040"s + row.Dump) << row.What;
    // The old kind of tag stands behind, and fills in what the new one lacks.
    const std::string old = song + "TAGOld  " + std::string(25, '\0') + std::string(30, 'a') + "Disc" +
                            std::string(26, ' ') + "1999Words" + std::string(25, '\0');
    const std::string fields = "|aaaaaaaaaaaaaaaaaaaaaaaaaaaaaa|Disc|1999|Words";
    EXPECT_EQ(Dump(old + '\x11'), "44100x2 128k scans 23040|Old" + fields + "|17");
    EXPECT_EQ(Dump(Title("\3New") + old + '\xFF'), "44100x2 128k scans 23040|New" + fields);
    m_quit = true;
    EXPECT_FALSE(Open(song));
}

TEST_F(MpegDecoderTest, StrangeFilesArePlayedAndOnlyThoseWithoutASoundRefused) {
    for (const auto& entry : std::filesystem::directory_iterator(kSeeds)) {
        const std::string name = entry.path().filename();
        EXPECT_EQ(Dump(Seed(name)) == "refused", name.starts_with("silent_")) << name;
    }
}

TEST_F(TrackReaderTest, ARelativePathIsLookedForInTheDirectoriesInTheirOrderAndThenAsItIs) {
    const std::pair<Text, std::string> rows[] = {
        {u"a.mp3", "\\m\\a.mp3 \\n\\a.mp3 /o/a.mp3 a.mp3 a.mp3 "},
        {u"b\\a", "\\m\\b\\a \\n\\b\\a /o/b\\a b\\a b\\a "},
        {u"b/a", "\\m\\b/a \\n\\b/a /o/b/a b/a b/a "},
        {u"\\a.mp3", "\\a.mp3 "},
        {u"/a.mp3", "/a.mp3 "},
        {u"", "\\m\\ \\n\\ /o/   "},
        {u"found", "\\m\\found \\n\\found "},
    };
    for (const auto& [path, asked] : rows) {
        Start(path, Seed("vbr.mp3"), 1);
        EXPECT_TRUE(WaitUntil([&] { return m_session.use_count() == 1 || m_session->TakeFacts(); }));
        End();
        EXPECT_EQ(m_asked, asked);
    }
}

TEST_F(TrackReaderTest, PiecesAreTheSamplesOfThePlaceThatIsSoughtAndNothingBetweenIsReadForThem) {
    const std::string song = m_media.Encode("lame --quiet -V4 -t", 44100, 1, 26000);
    m_whole = DecodeAll(m_media.Write("whole", song));
    Start(u"\\n\\found", song, 2);
    std::optional<std::int64_t> length;
    EXPECT_TRUE(WaitUntil([&] { return (length = m_session->TakeScannedLength()).has_value(); }));
    EXPECT_EQ(length, std::ssize(m_whole));
    EXPECT_EQ(m_session->TakeFacts()->Format, (SoundFormat{44100, 1}));
    EXPECT_EQ(Pieces(3), "0+2205 2205+44100 46305+44100 ");
    // The reader hasn't come to this yet.
    const FileHandle file(open((m_media.Directory() + "/song").c_str(), O_WRONLY | O_CLOEXEC));
    EXPECT_EQ(pwrite(file.Descriptor(), std::string(70000, '\0').data(), 70000, 140000), 70000);
    m_session->RequestSeek(1111111);
    EXPECT_EQ(Pieces(3), "1111111+2205 1113316+" + std::to_string(*length - 1113316) + " end ");
    m_session->RequestSeek(1'000'000'000);
    EXPECT_EQ(Pieces(1), "end ");
    m_session->RequestSeek(-7);
    EXPECT_EQ(Pieces(2), "0+2205 2205+44100 ");
    End();
}

TEST_F(TrackReaderTest, ALengthThatTheFileTellsIsNotLookedForAndOneThatIsNotFoundIsTold) {
    m_whole = DecodeAll(m_media.Write("whole", Seed("mono.mp3")));
    Start(u"\\n\\found", Seed("mono.mp3"), 2);
    EXPECT_EQ(Pieces(3), "0+1102 1102+5513 end ");
    End();
    EXPECT_EQ(m_asked, "\\n\\found ");
    Start(u"\\n\\found", Seed("one.mp1"), 1);
    EXPECT_TRUE(WaitUntil([&] { return m_session->ScanFailed(); }));
    End();
}
