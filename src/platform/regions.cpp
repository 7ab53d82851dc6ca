// Regions are merged row by row. A rectangle and an ellipse are rounded rectangles, with corners of
// no size and of full size.
#include "platform/regions.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>

namespace {

constexpr std::int32_t kNoRow = std::numeric_limits<std::int32_t>::max();

// One bit for each of the four cases in which a pixel can be: bit 0 outside both sources, 1 in the
// second alone, 2 in the first alone, 3 in both. The modes count from 1.
constexpr unsigned kModes[] = {0b1000, 0b1110, 0b0110, 0b0100, 0b1100};

// A rectangle with corners in order and the size of its corner ellipses, wide enough for all sums.
struct RoundedRectangle {
    double Left, Top, Right, Bottom;
    double CornerWidth, CornerHeight;
};

RoundedRectangle InOrder(const Rect& sides, double cornerWidth, double cornerHeight) {
    RoundedRectangle shape{};
    shape.Left = std::min(sides.Left, sides.Right);
    shape.Right = std::max(sides.Left, sides.Right);
    shape.Top = std::min(sides.Top, sides.Bottom);
    shape.Bottom = std::max(sides.Top, sides.Bottom);
    shape.CornerWidth = std::min(std::fabs(cornerWidth), shape.Right - shape.Left);
    shape.CornerHeight = std::min(std::fabs(cornerHeight), shape.Bottom - shape.Top);
    return shape;
}

// How far the edge of row `y` stands inside the rectangle's side, measured at the row's middle.
double InsetAt(const RoundedRectangle& shape, std::int32_t y) {
    const double middle = y + 0.5;
    const double intoRows = std::min(middle - shape.Top, shape.Bottom - middle);
    const double radius = shape.CornerHeight / 2;
    const double height = std::max(0.0, (radius - intoRows) / radius);
    return shape.CornerWidth / 2 * (1 - std::sqrt(1 - height * height));
}

// The first column whose pixel's centre is at or behind `edge`, brought between the two limits.
std::int32_t FirstColumn(double edge, std::int32_t least, std::int32_t most) {
    return static_cast<std::int32_t>(
        std::clamp(std::ceil(edge - 0.5), static_cast<double>(least), static_cast<double>(most)));
}

Long AddRegion(RegionTable& table, Region region) {
    table.Regions[++table.LastHandle] = std::make_shared<const Region>(std::move(region));
    return table.LastHandle;
}

Long CreateRounded(RegionTable& table, const Rect& outer, const RoundedRectangle& shape) {
    Region region;
    if (!outer.IsEmpty()) {
        const std::int32_t top = FirstColumn(shape.Top + 0.5, outer.Top, outer.Bottom);
        const std::int32_t bottom = FirstColumn(shape.Bottom + 0.5, outer.Top, outer.Bottom);
        for (std::int32_t y = top; y < bottom; ++y) {
            const double inset = InsetAt(shape, y);
            const RowSpan span{FirstColumn(shape.Left + inset, outer.Left, outer.Right),
                               FirstColumn(shape.Right - inset, outer.Left, outer.Right)};
            if (span.Left < span.Right) region.Append(y, y + 1, {&span, 1});
        }
    }
    return AddRegion(table, std::move(region));
}

// Reads a region from its top to its bottom.
class RowReader {
public:
    explicit RowReader(const Region& region) : m_region(region), m_bands(region.Bands()) {}

    // The spans at row `y`; `y` never falls from call to call. `changesAt` comes down to the first
    // row beneath at which they may be others.
    std::span<const RowSpan> SpansAt(std::int32_t y, std::int32_t& changesAt) {
        while (m_at < m_bands.size() && m_bands[m_at].Bottom <= y)
            ++m_at;
        if (m_at == m_bands.size()) return {};
        const Region::Band& band = m_bands[m_at];
        changesAt = std::min(changesAt, y < band.Top ? band.Top : band.Bottom);
        return y < band.Top ? std::span<const RowSpan>{} : m_region.SpansOf(band);
    }

private:
    const Region& m_region;
    std::span<const Region::Band> m_bands;
    std::size_t m_at = 0;
};

// The edges of a row's spans in turn, left and right ones alternating.
class EdgeReader {
public:
    explicit EdgeReader(std::span<const RowSpan> spans) : m_spans(spans) {}
    [[nodiscard]] bool Inside() const { return m_edge % 2 == 1; }
    [[nodiscard]] std::optional<std::int32_t> Next() const {
        if (m_edge / 2 == m_spans.size()) return std::nullopt;
        const RowSpan& span = m_spans[m_edge / 2];
        return Inside() ? span.Right : span.Left;
    }
    void PassAt(std::int32_t x) {
        if (Next() == x) ++m_edge;
    }

private:
    std::span<const RowSpan> m_spans;
    std::size_t m_edge = 0;
};

void CombineSpans(std::span<const RowSpan> first, std::span<const RowSpan> second, unsigned cases,
                  std::vector<RowSpan>& result) {
    result.clear();
    EdgeReader one(first), two(second);
    bool inside = false;
    while (one.Next() || two.Next()) {
        const std::int32_t x = std::min(one.Next().value_or(kNoRow), two.Next().value_or(kNoRow));
        one.PassAt(x);
        two.PassAt(x);
        const unsigned where = (one.Inside() ? 2u : 0u) + (two.Inside() ? 1u : 0u);
        const bool nowInside = (cases >> where & 1u) != 0;
        if (nowInside && !inside) result.push_back({x, x});
        if (!nowInside && inside) result.back().Right = x;
        inside = nowInside;
    }
}

Region Combine(const Region& first, const Region& second, unsigned cases) {
    Region result;
    RowReader one(first), two(second);
    std::vector<RowSpan> spans;
    std::int32_t y = std::numeric_limits<std::int32_t>::min();
    while (y < kNoRow) {
        std::int32_t next = kNoRow;
        const std::span<const RowSpan> firstSpans = one.SpansAt(y, next);
        const std::span<const RowSpan> secondSpans = two.SpansAt(y, next);
        CombineSpans(firstSpans, secondSpans, cases, spans);
        result.Append(y, next, spans);
        y = next;
    }
    return result;
}

} // namespace

std::span<const RowSpan> Region::SpansOf(const Band& band) const {
    return std::span(m_spans).subspan(band.FirstSpan, band.SpanCount);
}

std::vector<Rect> Region::Rectangles(const Rect& view) const {
    std::vector<Rect> rectangles;
    for (const Band& band : m_bands)
        for (const RowSpan& span : SpansOf(band)) {
            const Rect part = Intersection({span.Left, band.Top, span.Right, band.Bottom}, view);
            if (part.IsEmpty()) continue;
            rectangles.push_back({part.Left - view.Left, part.Top - view.Top,
                                  part.Right - view.Left, part.Bottom - view.Top});
        }
    return rectangles;
}

void Region::Append(std::int32_t top, std::int32_t bottom, std::span<const RowSpan> spans) {
    if (spans.empty()) return;
    if (!m_bands.empty() && m_bands.back().Bottom == top &&
        std::ranges::equal(SpansOf(m_bands.back()), spans)) {
        m_bands.back().Bottom = bottom;
        return;
    }
    m_bands.push_back({top, bottom, static_cast<std::uint32_t>(m_spans.size()),
                       static_cast<std::uint32_t>(spans.size())});
    m_spans.insert(m_spans.end(), spans.begin(), spans.end());
}

Long CreateRectRgn(RegionTable& table, const Rect& outer, const Rect& sides) {
    return CreateRounded(table, outer, InOrder(sides, 0, 0));
}

Long CreateEllipticRgn(RegionTable& table, const Rect& outer, const Rect& sides) {
    constexpr double kFull = std::numeric_limits<double>::max();
    return CreateRounded(table, outer, InOrder(sides, kFull, kFull));
}

Long CreateRoundRectRgn(RegionTable& table, const Rect& outer, const Rect& sides, Long cornerWidth,
                        Long cornerHeight) {
    return CreateRounded(table, outer, InOrder(sides, cornerWidth, cornerHeight));
}

bool IsCombineMode(Long mode) {
    return mode >= 1 && mode <= Long{std::size(kModes)};
}

void CombineRgn(RegionTable& table, Long dest, Long source1, Long source2, Long mode) {
    const std::shared_ptr<const Region> first = FindRegion(table, source1);
    const std::shared_ptr<const Region> second = FindRegion(table, source2);
    const auto target = table.Regions.find(dest);
    if (!IsCombineMode(mode) || !first || !second || target == table.Regions.end()) return;
    target->second = std::make_shared<const Region>(Combine(*first, *second, kModes[mode - 1]));
}

std::shared_ptr<const Region> FindRegion(const RegionTable& table, Long handle) {
    const auto found = table.Regions.find(handle);
    return found == table.Regions.end() ? nullptr : found->second;
}

void ReleaseRegion(RegionTable& table, Long handle) {
    table.Regions.erase(handle);
}
