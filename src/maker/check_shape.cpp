// The shape is judged by the regions that were built, not by the numbers that they came from.
#include <algorithm>

#include "maker/checks.h"
#include "skin/apply_skin.h"
#include "skin/load_skin.h"

namespace {

std::shared_ptr<const Region> BuiltFrom(const Trial& trial, Integer number) {
    return FindRegion(trial.State.Regions, trial.Skin().Regions[number].Handle);
}

Text NameOf(Integer number) {
    return Text(kRegionSection) + Decimal(number);
}

// Whether a region goes into another one, as all but region 1 have to.
bool IsSource(const SkinRecord& skin, Integer number) {
    return std::ranges::any_of(skin.Regions, [&](const SkinRegionRecord& region) {
        return region.CombineMode != 0 && (region.SrcRgn1 == number || region.SrcRgn2 == number);
    });
}

// A combination is done only with four numbers that all mean something.
void CheckCombination(Report& report, const SkinRegionRecord& region) {
    if (region.CombineMode == 0 && region.DestRgn == 0 && region.SrcRgn1 == 0 &&
        region.SrcRgn2 == 0)
        return;
    if (!IsCombineMode(region.CombineMode))
        return report.At(&region.CombineMode,
                         (region.CombineMode == 0 ? u"missing" : Decimal(region.CombineMode)) +
                             u", so nothing is combined; it has to be 1 to 5");
    for (const Integer* const number : {&region.DestRgn, &region.SrcRgn1, &region.SrcRgn2})
        if (*number == 0)
            report.At(number, u"missing, so nothing is combined");
        else if (!BuiltFrom(report.Trial, *number))
            report.At(number, NameOf(*number) + u" is no region, so nothing is combined");
}

void CheckRegion(Report& report, Integer number) {
    const SkinRegionRecord& region = report.Trial.Skin().Regions[number];
    const std::shared_ptr<const Region> built = BuiltFrom(report.Trial, number);
    if (!built && IsRegionType(region.Type))
        return report.In(NameOf(number), u"a side is too large a number, so this is no region");
    if (!built)
        return report.At(&region.Type, Decimal(region.Type) + u" makes no region; it has to be 1 "
                                                              u"(rectangle), 2 (ellipse) or 3");
    if (number > 1 && !IsSource(report.Trial.Skin(), number))
        report.In(NameOf(number), u"no combination takes this region, so it is no part of the "
                                  u"shape");
    else if (number > 1 && built->Bands().empty())
        report.In(NameOf(number), u"the region has no pixel inside of the window");
    CheckCombination(report, region);
}

} // namespace

void CheckShape(Report& report) {
    const SkinRecord& skin = report.Trial.Skin();
    const Form& form = report.Trial.State.frmMain;
    if (skin.ShapeCount > skin.Regions.kLast)
        report.At(&skin.ShapeCount, u"only " + Decimal(skin.Regions.kLast) + u" regions are read");
    for (Integer number = 1; number <= std::min(skin.ShapeCount, skin.Regions.kLast); ++number)
        if (skin.Regions[number].Enabled) CheckRegion(report, number);
    if (skin.ShapeCount > 0 && !form.Region)
        report.In(NameOf(1), u"there is no such region, so the window has no shape and gets the "
                             u"desktop's frame");
    if (form.Region && VisiblePart(form).empty())
        report.In(NameOf(1), u"the shape is empty, so nothing of the window shows");
}
