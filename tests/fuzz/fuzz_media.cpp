// Any bytes as a media file: what the decoder says of it, its samples, seeks to and fro, and the scan.
#include <cstddef>
#include <cstdint>
#include <sys/mman.h>
#include <unistd.h>

#include "platform/audio/mpeg_decoder.h"

namespace {

FileHandle FileOf(const std::uint8_t* data, std::size_t size) {
    FileHandle file(memfd_create("media", MFD_CLOEXEC));
    if (file && write(file.Descriptor(), data, size) != static_cast<ssize_t>(size)) return {};
    return file;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kLargest = 256 * 1024;
    if (size > kLargest) return 0;
    const std::atomic<bool> quit{false};
    const std::unique_ptr<MpegDecoder> decoder = MpegDecoder::Open(FileOf(data, size), &quit);
    if (!decoder) return 0;
    std::vector<std::int16_t> samples;
    for (int i = 0; i < 8; ++i)
        decoder->Decode(4000, samples);
    if (const std::unique_ptr<MpegDecoder> scanner = MpegDecoder::Open(FileOf(data, size), &quit))
        if (const std::optional<LengthScan> scan = scanner->Scan()) decoder->UseIndex(scan->Index);
    for (const std::int64_t goal : {20000, 100, 1'000'000, 5000}) {
        decoder->SeekTo(goal);
        decoder->Decode(2000, samples);
    }
    return 0;
}
