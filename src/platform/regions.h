// The shapes that a window can be cut to: sets of pixels, and the numbered objects by which a skin
// combines them. All numbers are pixels from the top left corner of the window's outer rectangle.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <vector>

#include "platform/numbers.h"
#include "platform/rect.h"

/// The pixels of one row from `Left` up to and not including `Right`.
struct RowSpan {
    std::int32_t Left = 0;
    std::int32_t Right = 0;

    bool operator==(const RowSpan&) const = default;
};

/// A set of pixels, kept as bands of rows that look alike. A region never changes once it is
/// shared. Equal sets are equal regions, however they came about.
class Region {
public:
    /// The part of the region inside `view`, as rectangles that don't overlap, from top to bottom
    /// and left to right, counted from the corner of `view`. With the place of the client area as
    /// `view` they are what a window layer cuts its surface to.
    [[nodiscard]] std::vector<Rect> Rectangles(const Rect& view) const;

    /// Adds the rows from `top` up to and not including `bottom` beneath all that the region has.
    /// `spans` go from left to right, with a gap between any two; no spans add nothing.
    void Append(std::int32_t top, std::int32_t bottom, std::span<const RowSpan> spans);

    bool operator==(const Region&) const = default;

    /// Rows that have the same spans: `SpanCount` of them from `FirstSpan` on.
    struct Band {
        std::int32_t Top = 0;
        std::int32_t Bottom = 0;
        std::uint32_t FirstSpan = 0;
        std::uint32_t SpanCount = 0;

        bool operator==(const Band&) const = default;
    };
    /// From top to bottom; none if the region is empty.
    [[nodiscard]] std::span<const Band> Bands() const { return m_bands; }
    /// The spans of each row of a band, from left to right, with a gap between any two.
    [[nodiscard]] std::span<const RowSpan> SpansOf(const Band& band) const;

private:
    std::vector<Band> m_bands;
    std::vector<RowSpan> m_spans;
};

/// The region objects that have a handle. A handle is a number from 1 on, never given out twice in
/// a run.
struct RegionTable {
    std::map<Long, std::shared_ptr<const Region>> Regions;
    Long LastHandle = 0;
};

// The makers. A rectangle's right and bottom edges are outside, corners that stand the wrong way
// round are put in order, and what lies outside `outer` is left out: it could never show, and every
// combination works pixel by pixel. So no number makes a region slow or large. The result is the
// new object's handle.

[[nodiscard]] Long CreateRectRgn(RegionTable& table, const Rect& outer, const Rect& sides);

/// The ellipse that fills `sides`: the pixels whose centre lies in it.
[[nodiscard]] Long CreateEllipticRgn(RegionTable& table, const Rect& outer, const Rect& sides);

/// `sides` with each corner rounded by an ellipse of that width and height, whose sign doesn't
/// count and which are at most the sides. A width or height of 0 rounds nothing.
[[nodiscard]] Long CreateRoundRectRgn(RegionTable& table, const Rect& outer, const Rect& sides,
                                      Long cornerWidth, Long cornerHeight);

/// Whether a number is one of the modes of `CombineRgn`.
[[nodiscard]] bool IsCombineMode(Long mode);

/// Puts the combination of two regions in the place of the region `dest`, which may be one of them.
/// `mode` is 1 for what both have, 2 for what any has, 3 for what one of them has, 4 for the first
/// without the second, 5 for the first. Nothing changes for a handle that isn't in `table` (also
/// one that the mode doesn't look at) and for any other mode.
void CombineRgn(RegionTable& table, Long dest, Long source1, Long source2, Long mode);

/// The region as it is now; it stays as it is when the object is combined anew or released. The
/// null pointer for a handle that isn't in `table`.
[[nodiscard]] std::shared_ptr<const Region> FindRegion(const RegionTable& table, Long handle);

/// Forgets the object. Any other handle, 0 among them, does nothing.
void ReleaseRegion(RegionTable& table, Long handle);
