// A font file is input like any other: what FreeType can't make of it is a missing letter.
#include "platform/letters/letters.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <map>
#include <optional>
#include <utility>

namespace {

// Far more than a letter of a label's size needs; a damaged file may ask for any amount.
constexpr unsigned kMostSidePx = 64;

int RoundedPixels(FT_Pos fixed) {
    return static_cast<int>((fixed + 32) >> 6);
}

// One row of a rendered letter as coverage. Only the two modes that are asked for come in here.
void AppendRow(const FT_Bitmap& bitmap, unsigned row, std::vector<std::uint8_t>& coverage) {
    const unsigned char* line = bitmap.buffer + static_cast<std::ptrdiff_t>(row) *
                                                    static_cast<std::ptrdiff_t>(bitmap.pitch);
    for (unsigned x = 0; x < bitmap.width; ++x)
        coverage.push_back(bitmap.pixel_mode == FT_PIXEL_MODE_GRAY ? line[x]
                           : (line[x / 8] >> (7 - x % 8) & 1) != 0 ? 255
                                                                   : 0);
}

std::optional<Glyph> GlyphOf(const FT_GlyphSlotRec& slot) {
    const FT_Bitmap& bitmap = slot.bitmap;
    const bool known =
        bitmap.pixel_mode == FT_PIXEL_MODE_GRAY || bitmap.pixel_mode == FT_PIXEL_MODE_MONO;
    if (bitmap.width > kMostSidePx || bitmap.rows > kMostSidePx) return std::nullopt;
    if (bitmap.rows != 0 && (!known || bitmap.pitch < 0)) return std::nullopt;
    Glyph glyph{slot.bitmap_left,
                slot.bitmap_top,
                static_cast<int>(bitmap.width),
                static_cast<int>(bitmap.rows),
                RoundedPixels(slot.advance.x),
                {}};
    for (unsigned row = 0; row < bitmap.rows; ++row)
        AppendRow(bitmap, row, glyph.Coverage);
    return glyph;
}

} // namespace

struct Letters::Face {
    using Strike = std::map<char32_t, std::optional<Glyph>>;

    FT_Library Library = nullptr;
    FT_Face Font = nullptr;
    std::map<int, Strike> Strikes;

    explicit Face(const std::vector<std::string>& files) {
        if (FT_Init_FreeType(&Library) != 0) return;
        for (const std::string& file : files)
            if (FT_New_Face(Library, file.c_str(), 0, &Font) == 0) return;
        Font = nullptr;
    }
    ~Face() {
        if (Font) FT_Done_Face(Font);
        if (Library) FT_Done_FreeType(Library);
    }
    Face(const Face&) = delete;
    Face& operator=(const Face&) = delete;

    [[nodiscard]] std::optional<Glyph> Draw(int sizePx, char32_t letter) const {
        if (!Font) return std::nullopt;
        const FT_UInt index = FT_Get_Char_Index(Font, letter);
        if (index == 0) return std::nullopt;
        if (FT_Set_Pixel_Sizes(Font, 0, static_cast<FT_UInt>(sizePx)) != 0) return std::nullopt;
        const bool strike = FT_HAS_FIXED_SIZES(Font);
        const FT_Int32 how =
            FT_LOAD_RENDER | (strike ? FT_LOAD_TARGET_MONO : FT_LOAD_TARGET_NORMAL);
        if (FT_Load_Glyph(Font, index, how) != 0) return std::nullopt;
        return GlyphOf(*Font->glyph);
    }
};

std::vector<std::string> Letters::Files() {
    // The first package installs its face outside the folders that the font configuration names.
    return {"/usr/share/wine/fonts/tahoma.ttf",
            "/usr/share/fonts/truetype/liberation/LiberationSans-Regular.ttf"};
}

Letters::Letters(std::vector<std::string> files) : m_files(std::move(files)) {}

Letters::~Letters() = default;

const Glyph* Letters::Find(int sizePx, char32_t letter) {
    if (!m_face) m_face = std::make_unique<Face>(m_files);
    Face::Strike& strike = m_face->Strikes[sizePx];
    const auto known = strike.find(letter);
    const std::optional<Glyph>& glyph =
        known != strike.end() ? known->second
                              : strike.emplace(letter, m_face->Draw(sizePx, letter)).first->second;
    return glyph ? &*glyph : nullptr;
}
