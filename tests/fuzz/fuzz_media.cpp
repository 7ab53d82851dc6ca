// Any bytes as a media file: what the decoder says of it, its samples, seeks to and fro, and the
// scan.
#include <cstddef>
#include <cstdint>
#include <sys/mman.h>
#include <unistd.h>

#include "platform/audio/decode/mpeg_decoder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const FileHandle file(memfd_create("media", MFD_CLOEXEC));
    if (write(file.Descriptor(), data, size) != static_cast<ssize_t>(size)) return 0;
    const std::atomic<bool> quit{false};
    const auto open = [&] { return MpegDecoder::Open(FileHandle(dup(file.Descriptor())), &quit); };
    const std::unique_ptr<MpegDecoder> decoder = open();
    if (!decoder) return 0;
    std::vector<std::int16_t> samples;
    decoder->Decode(32000, samples);
    if (const std::optional<LengthScan> scan = open()->Scan()) decoder->UseIndex(scan->Index);
    for (const std::int64_t goal : {20000, 100, 1'000'000, 5000}) {
        decoder->SeekTo(goal);
        decoder->Decode(2000, samples);
    }
    return 0;
}
