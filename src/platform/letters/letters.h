// The letters of the labels as pictures, one for each character, taken from a font file as they
// are: no font configuration, no shaping, no kerning. Source: FreeType, which this folder alone
// sees.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// One character of one size. The picture counts from the pen: `LeftPx` to the right of it, `TopPx`
/// above the base line. A blank has an advance and no pixel.
struct Glyph {
    int LeftPx = 0;
    int TopPx = 0;
    int WidthPx = 0;
    int HeightPx = 0;
    int AdvancePx = 0;                  ///< How far the pen goes on.
    std::vector<std::uint8_t> Coverage; ///< Row by row, 0 for nothing to 255 for the full colour.

    bool operator==(const Glyph&) const = default;
};

/// A face, read when the first letter is asked for. Each glyph is drawn once and kept.
class Letters {
public:
    /// The files of the program's face, the best one first.
    static std::vector<std::string> Files();

    /// Takes the first of `files` that can be read; with none every letter is missing.
    explicit Letters(std::vector<std::string> files = Files());
    ~Letters();
    Letters(const Letters&) = delete;
    Letters& operator=(const Letters&) = delete;

    /// The glyph of `letter` at `sizePx` pixels, or null if the face hasn't got it; whoever draws
    /// has to look elsewhere for it then. Stays valid as long as this object. A face with strikes
    /// gives hard pixels, any other grey edges. Combining marks are missing always, since they need
    /// shaping.
    [[nodiscard]] const Glyph* Find(int sizePx, char32_t letter);

private:
    struct Face;

    std::vector<std::string> m_files;
    std::unique_ptr<Face> m_face;
};
