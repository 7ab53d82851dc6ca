// The order is fixed: the frame is measured after the window has its new size, and the background
// comes last, over a background object.
#include "skin/apply_skin.h"

#include <algorithm>

#include "platform/paths.h"
#include "skin/layout.h"
#include "state/stack.h"

namespace {

constexpr std::int64_t kLeastOuterPx = 1, kMostOuterPx = 16383;
constexpr Long kRectangle = 1, kEllipse = 2, kRoundedRectangle = 3;

void SetOuterSize(Long& side, Long twips) {
    const std::int64_t pixels = PixelsOfTwips(twips);
    if (pixels >= kLeastOuterPx && pixels <= kMostOuterPx) side = twips;
}

Rect OuterRectangle(const Form& form) {
    return {0, 0, static_cast<std::int32_t>(PixelsOfTwips(form.Width)),
            static_cast<std::int32_t>(PixelsOfTwips(form.Height))};
}

// The rectangle of a region in the window; nothing if a sum doesn't fit.
std::optional<Rect> MovedSides(const Velora& velora, const SkinRegionRecord& region) {
    const std::int64_t offsetX = velora.RegionOffsetX, offsetY = velora.RegionOffsetY;
    const auto left = FitInto<Long>(offsetX + region.X1),
               right = FitInto<Long>(offsetX + region.X2);
    const auto top = FitInto<Long>(offsetY + region.Y1),
               bottom = FitInto<Long>(offsetY + region.Y2);
    if (!left || !top || !right || !bottom) return std::nullopt;
    return Rect{*left, *top, *right, *bottom};
}

void BuildRegion(Velora& velora, SkinRegionRecord& region) {
    const std::optional<Rect> sides = MovedSides(velora, region);
    if (!sides || region.Type < kRectangle || region.Type > kRoundedRectangle) return;
    const Rect outer = OuterRectangle(velora.frmMain);
    ReleaseRegion(velora.Regions, region.Handle);
    if (region.Type == kRectangle)
        region.Handle = CreateRectRgn(velora.Regions, outer, *sides);
    else if (region.Type == kEllipse)
        region.Handle = CreateEllipticRgn(velora.Regions, outer, *sides);
    else
        region.Handle = CreateRoundRectRgn(velora.Regions, outer, *sides, region.X3, region.Y3);
}

// The handle of a numbered element; 0, with which nothing is combined, if it has no region or isn't
// there.
Long HandleOf(const SkinRecord& skin, Integer number) {
    const auto index = static_cast<std::size_t>(number);
    return index < skin.Regions.size() ? skin.Regions[index].Handle : 0;
}

void CombineRegions(Velora& velora, const SkinRecord& skin, const SkinRegionRecord& region) {
    CombineRgn(velora.Regions, HandleOf(skin, region.DestRgn), HandleOf(skin, region.SrcRgn1),
               HandleOf(skin, region.SrcRgn2), region.CombineMode);
}

} // namespace

void ApplySkin(Velora& velora, Integer Slot) {
    const auto index = static_cast<std::size_t>(Slot);
    if (index >= velora.Skins.size()) return;
    const SkinRecord& skin = velora.Skins[index];
    if (skin.Type != 1) return;
    velora.CurrentSkin = Slot;
    SetOuterSize(velora.frmMain.Width, skin.Width);
    SetOuterSize(velora.frmMain.Height, skin.Height);
    LayoutSkinObjects(velora, Slot);
    BuildWindowRegion(velora, Slot);
    PictureBox& background = velora.frmMain.picBackground;
    if (FileExists(skin.Graphic))
        PlacePictureObject(velora, background, background, background, skin.Graphic, skin.Graphic,
                           0, 0);
}

void BuildWindowRegion(Velora& velora, Integer Slot) {
    MeasureWindowFrame(velora);
    SkinRecord& skin = velora.Skins[static_cast<std::size_t>(Slot)];
    const Integer last = std::min(skin.ShapeCount, static_cast<Integer>(skin.Regions.size() - 1));
    for (Integer number = 1; number <= last; ++number) {
        SkinRegionRecord& region = skin.Regions[static_cast<std::size_t>(number)];
        if (region.Enabled) BuildRegion(velora, region);
    }
    for (Integer number = 1; number <= last; ++number) {
        const SkinRegionRecord& region = skin.Regions[static_cast<std::size_t>(number)];
        if (region.Enabled) CombineRegions(velora, skin, region);
    }
    velora.frmMain.Region = FindRegion(velora.Regions, skin.Regions[1].Handle);
}

void MeasureWindowFrame(Velora& velora) {
    const Rect outer = OuterRectangle(velora.frmMain), client = ClientArea(velora.frmMain);
    velora.RegionOffsetY = static_cast<Integer>(outer.Bottom - client.Bottom);
    // The two edges of the frame less 2 pixels: skins are drawn for a shape that far to the left.
    velora.RegionOffsetX = static_cast<Integer>(outer.Right - client.Right - 2);
}
