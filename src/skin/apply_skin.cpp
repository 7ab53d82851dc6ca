// The order is fixed: the frame is measured after the window has its new size, and the background
// comes last, over a background object.
#include "skin/apply_skin.h"

#include <algorithm>

#include "platform/paths.h"
#include "skin/layout.h"
#include "skin/picture_object.h"
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
std::optional<Rect> MovedSides(const SkinRegionRecord& region, std::int64_t offsetX,
                               std::int64_t offsetY) {
    const auto left = FitInto<Long>(offsetX + region.X1),
               right = FitInto<Long>(offsetX + region.X2);
    const auto top = FitInto<Long>(offsetY + region.Y1),
               bottom = FitInto<Long>(offsetY + region.Y2);
    if (!left || !top || !right || !bottom) return std::nullopt;
    return Rect{*left, *top, *right, *bottom};
}

void BuildRegion(Velora& velora, SkinRegionRecord& region) {
    const std::optional<Rect> sides =
        MovedSides(region, velora.RegionOffsetX, velora.RegionOffsetY);
    if (!sides || !IsRegionType(region.Type)) return;
    const Rect outer = OuterRectangle(velora.frmMain);
    ReleaseRegion(velora.Regions, region.Handle);
    if (region.Type == kRectangle)
        region.Handle = CreateRectRgn(velora.Regions, outer, *sides);
    else if (region.Type == kEllipse)
        region.Handle = CreateEllipticRgn(velora.Regions, outer, *sides);
    else
        region.Handle = CreateRoundRectRgn(velora.Regions, outer, *sides, region.X3, region.Y3);
}

// A number that is no element's has the handle of element 0, with which nothing is combined.
void CombineRegions(RegionTable& table, const SkinRecord& skin, const SkinRegionRecord& region) {
    const auto handle = [&](Integer number) { return skin.Regions[number].Handle; };
    CombineRgn(table, handle(region.DestRgn), handle(region.SrcRgn1), handle(region.SrcRgn2),
               region.CombineMode);
}

} // namespace

void ApplySkin(Velora& velora, Integer Slot) {
    const SkinRecord& skin = velora.Skins[Slot];
    if (skin.Type != 1) return;
    velora.CurrentSkin = Slot;
    SetOuterSize(velora.frmMain.Width, skin.Width);
    SetOuterSize(velora.frmMain.Height, skin.Height);
    LayoutSkinObjects(velora, Slot);
    BuildWindowRegion(velora, Slot);
    PictureBox& background = velora.frmMain.picBackground;
    if (FileExists(skin.Graphic))
        PlacePictureObject(velora.Pictures, {.Control = background,
                                             .NormalHolder = background,
                                             .PressedHolder = background,
                                             .FileName = skin.Graphic,
                                             .FileName2 = skin.Graphic});
}

bool IsRegionType(Long Type) {
    return Type >= kRectangle && Type <= kRoundedRectangle;
}

void BuildWindowRegion(Velora& velora, Integer Slot) {
    MeasureWindowFrame(velora);
    SkinRecord& skin = velora.Skins[Slot];
    const Integer last = std::min(skin.ShapeCount, skin.Regions.kLast);
    for (Integer number = 1; number <= last; ++number) {
        SkinRegionRecord& region = skin.Regions[number];
        if (region.Enabled) BuildRegion(velora, region);
    }
    for (Integer number = 1; number <= last; ++number) {
        const SkinRegionRecord& region = skin.Regions[number];
        if (region.Enabled) CombineRegions(velora.Regions, skin, region);
    }
    velora.frmMain.Region = FindRegion(velora.Regions, skin.Regions[1].Handle);
}

void MeasureWindowFrame(Velora& velora) {
    const Rect outer = OuterRectangle(velora.frmMain), client = ClientArea(velora.frmMain);
    velora.RegionOffsetY = static_cast<Integer>(outer.Bottom - client.Bottom);
    // The two edges of the frame less 2 pixels: skins are drawn for a shape that far to the left.
    velora.RegionOffsetX = static_cast<Integer>(outer.Right - client.Right - 2);
}
