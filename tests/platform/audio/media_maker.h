// Media files for the tests, made when they run: by the encoders, or byte by byte.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/text.h"

/// Makes files in a temporary directory, which goes with the object.
class MediaMaker {
public:
    MediaMaker();
    ~MediaMaker();
    MediaMaker(const MediaMaker&) = delete;
    MediaMaker& operator=(const MediaMaker&) = delete;

    [[nodiscard]] const std::string& Directory() const { return m_directory; }

    /// Noise of `ms` milliseconds, the same in each run, or a tone of `toneHz`, encoded by `lame` or
    /// `twolame` with these arguments. The bytes of the file; none if the encoder fails.
    [[nodiscard]] std::string Encode(const std::string& encoder, int rateHz, int channels, int ms,
                                     double toneHz = 0) const;

    /// Writes a file and gives the system's text for its path.
    Text Write(const std::string& name, const std::string& bytes) const;

private:
    std::string m_directory;
};

/// Silent frames of layer I at 44,100 Hz and 128 kbit/s, stereo, of 384 samples each.
[[nodiscard]] std::string LayerOneFrames(int count);

/// An ID3v2 tag of `version` 2 to 4 around `frames`, of which the size is `declared` if that isn't negative.
[[nodiscard]] std::string Id3v2(int version, const std::string& frames, std::int64_t declared = -1);

/// A text frame of an ID3v2 tag of `version`: `text` as it is, behind the byte of its encoding.
[[nodiscard]] std::string TextFrame(int version, const std::string& id, char encoding,
                                    const std::string& text);

/// An ID3v1 tag.
[[nodiscard]] std::string Id3v1(const std::string& title, const std::string& artist);

/// All samples of a file, decoded in one go by our own decoder; empty if there is no sound in it.
[[nodiscard]] std::vector<std::int16_t> DecodeAll(const Text& path);
