// One media file being decoded: what it says about itself, its samples from any place, its exact
// length.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "platform/audio/decode/media_file.h"
#include "platform/audio/decode/track_tags.h"
#include "platform/audio/sound_format.h"

struct mpg123_handle_struct;

/// What is known about a track once its first frame has been found.
struct TrackFacts {
    SoundFormat Format;
    int BitrateKbps = 0; ///< As `PlayerEvents::OnStreamInfo` tells it.
    TrackTags Tags;
    /// In frames of samples, as the file's own tag has it; nothing if the file has no such tag or
    /// the tag can't be true.
    std::optional<std::int64_t> LengthFrames;
};

/// Where MPEG frames begin in a file: every `Step`th, byte positions as the decoder counts them.
struct FrameIndex {
    std::vector<off_t> Offsets;
    off_t Step = 0;
};

/// The result of reading a whole file without decoding it.
struct LengthScan {
    std::int64_t LengthFrames = 0;
    FrameIndex Index;
};

/// Layers I to III, all their versions. Every call may read the file and take as long as that
/// takes. Of a damaged file only the damaged frames are missing. A frame whose rate or channels
/// differ from the first one's is converted.
class MpegDecoder {
public:
    /// Takes `file` over. Null if no sound is found in it. When `*quit` becomes true, calls come
    /// back soon; it must stay as long as the decoder.
    [[nodiscard]] static std::unique_ptr<MpegDecoder> Open(FileHandle file,
                                                           const std::atomic<bool>* quit);
    ~MpegDecoder();
    MpegDecoder(const MpegDecoder&) = delete;
    MpegDecoder& operator=(const MpegDecoder&) = delete;

    [[nodiscard]] const TrackFacts& Facts() const { return m_facts; }

    /// Decodes up to `frames` frames into `samples` and gives it their size. Empty at the end.
    void Decode(std::size_t frames, std::vector<std::int16_t>& samples);

    /// Goes to `frame`, counted from the first that is heard, and returns the frame that `Decode`
    /// gives next. Behind the end `Decode` gives nothing.
    std::int64_t SeekTo(std::int64_t frame);

    /// Lets later seeks find their place by another decoder's scan of the same file.
    void UseIndex(const FrameIndex& index);

    /// Reads the file to its end. Nothing if that fails.
    [[nodiscard]] std::optional<LengthScan> Scan();

private:
    MpegDecoder(FileHandle file, const std::atomic<bool>* quit);
    bool Start();
    void CollectFacts();
    [[nodiscard]] bool CanBelieve(std::int64_t mpegFrames, std::int64_t bytes,
                                  std::int64_t fromByte);

    MediaFile m_file;
    mpg123_handle_struct* m_handle;
    TrackFacts m_facts;
};
