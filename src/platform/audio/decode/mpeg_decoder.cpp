// libmpg123, which reads by our functions and puts out the format of the first frame only.
#include "platform/audio/decode/mpeg_decoder.h"

#include <algorithm>
#include <mpg123.h>
#include <utility>

#include "platform/audio/decode/info_tag.h"

namespace {

/// Frames decoded in front of a seek's goal, so that the bit reservoir is full when it is reached.
constexpr long kPreFrames = 16;
constexpr long kJunkBytes = 1024 * 1024;
constexpr int kErrorLimit = 16;
constexpr std::int64_t kShortestFrameBytes = 24;

ssize_t ReadMedia(void* file, void* bytes, std::size_t count) {
    return static_cast<MediaFile*>(file)->Read(bytes, count);
}

off_t SeekMedia(void* file, off_t offset, int whence) {
    return static_cast<MediaFile*>(file)->Seek(offset, whence);
}

} // namespace

std::unique_ptr<MpegDecoder> MpegDecoder::Open(FileHandle file, const std::atomic<bool>* quit) {
    if (!file) return nullptr;
    std::unique_ptr<MpegDecoder> decoder(new MpegDecoder(std::move(file), quit));
    if (!decoder->Start()) return nullptr;
    return decoder;
}

MpegDecoder::MpegDecoder(FileHandle file, const std::atomic<bool>* quit)
    : m_file(std::move(file), quit), m_handle(mpg123_new(nullptr, nullptr)) {}

MpegDecoder::~MpegDecoder() {
    mpg123_delete(m_handle);
}

bool MpegDecoder::Start() {
    mpg123_param2(m_handle, MPG123_ADD_FLAGS, MPG123_QUIET | MPG123_GAPLESS, 0);
    mpg123_param2(m_handle, MPG123_PREFRAMES, kPreFrames, 0);
    mpg123_param2(m_handle, MPG123_RESYNC_LIMIT, kJunkBytes, 0);
    mpg123_format_none(m_handle);
    mpg123_format2(m_handle, 0, MPG123_MONO | MPG123_STEREO, MPG123_ENC_SIGNED_16);
    mpg123_replace_reader_handle(m_handle, ReadMedia, SeekMedia, nullptr);
    // Without a handle, for want of memory, all of this fails, and this last one, too.
    if (mpg123_open_handle(m_handle, &m_file) != MPG123_OK) return false;
    long rateHz = 0;
    int channels = 0;
    int encoding = 0;
    if (mpg123_getformat(m_handle, &rateHz, &channels, &encoding) != MPG123_OK) return false;
    // From here on the library converts what differs, and the output never has to change.
    mpg123_format_none(m_handle);
    mpg123_format(m_handle, rateHz, channels, MPG123_ENC_SIGNED_16);
    m_facts.Format = {static_cast<int>(rateHz), channels};
    CollectFacts();
    return true;
}

bool MpegDecoder::CanBelieve(std::int64_t mpegFrames, std::int64_t bytes, std::int64_t fromByte) {
    const std::int64_t there = m_file.Size() - fromByte;
    if (mpegFrames < 1 || mpegFrames > there / kShortestFrameBytes) return false;
    if (mpegFrames < there / kLongestFrameBytes / 2) return false;
    // By the tag's count of bytes a file is known that was cut or added to. Other tags at its end
    // may add a few kB.
    return bytes == 0 ||
           (bytes <= there + kLongestFrameBytes && there - bytes <= there / 8 + 65536);
}

void MpegDecoder::CollectFacts() {
    m_facts.Tags = ReadTags(m_handle);
    mpg123_frameinfo2 frame{};
    if (mpg123_info2(m_handle, &frame) != MPG123_OK) return;
    const int samplesPerFrame = mpg123_spf(m_handle);
    m_facts.BitrateKbps = frame.bitrate;
    // A free format names no rate; its frames still have a size.
    if (frame.bitrate <= 0)
        m_facts.BitrateKbps =
            static_cast<int>(frame.framesize * 8 * frame.rate / samplesPerFrame / 1000);
    const std::int64_t framePosition = mpg123_framepos(m_handle);
    const std::optional<InfoTag> tag = FindInfoTag(m_file, framePosition);
    if (!tag || !CanBelieve(tag->Frames, tag->Bytes, tag->At)) return;
    if ((frame.vbr != MPG123_CBR || tag->IsVbri) && tag->Bytes > 0) {
        const double seconds =
            static_cast<double>(tag->Frames) * samplesPerFrame / static_cast<double>(frame.rate);
        m_facts.BitrateKbps =
            static_cast<int>(static_cast<double>(tag->Bytes) * 8 / seconds / 1000 + 0.5);
    }
    if (tag->IsVbri) return;
    if (const std::int64_t length = mpg123_length(m_handle); length > 0)
        m_facts.LengthFrames = length;
}

void MpegDecoder::Decode(std::size_t frames, std::vector<std::int16_t>& samples) {
    samples.resize(frames * static_cast<std::size_t>(m_facts.Format.Channels));
    const std::size_t wanted = samples.size() * sizeof(std::int16_t);
    std::size_t filled = 0;
    int errors = 0;
    off_t lastErrorAt = -1;
    while (filled < wanted) {
        std::size_t done = 0;
        const int result =
            mpg123_read(m_handle, reinterpret_cast<unsigned char*>(samples.data()) + filled,
                        wanted - filled, &done);
        filled += done;
        if (result == MPG123_OK || result == MPG123_NEW_FORMAT) continue;
        if (result == MPG123_DONE || ++errors > kErrorLimit) break;
        // After damage that it gave up on, the library goes on from where it stopped; only standing
        // still is the end.
        const off_t at = mpg123_tell_stream(m_handle);
        if (at == lastErrorAt) break;
        lastErrorAt = at;
    }
    samples.resize(filled / sizeof(std::int16_t));
}

std::int64_t MpegDecoder::SeekTo(std::int64_t frame) {
    const off_t reached = mpg123_seek(m_handle, std::max<std::int64_t>(0, frame), SEEK_SET);
    return reached >= 0 ? reached : frame;
}

void MpegDecoder::UseIndex(const FrameIndex& index) {
    if (index.Offsets.empty()) return;
    std::vector<off_t> offsets = index.Offsets;
    mpg123_set_index(m_handle, offsets.data(), index.Step, offsets.size());
}

std::optional<LengthScan> MpegDecoder::Scan() {
    // Junk behind the last frame ends the scan with an error, when all that matters has been
    // counted.
    mpg123_scan(m_handle);
    LengthScan scan;
    scan.LengthFrames = mpg123_length(m_handle);
    if (scan.LengthFrames < 0) return std::nullopt;
    off_t* offsets = nullptr;
    std::size_t fill = 0;
    mpg123_index(m_handle, &offsets, &scan.Index.Step, &fill);
    scan.Index.Offsets.assign(offsets, offsets + fill);
    return scan;
}
