// Numbers that convert and still don't do: sizes, texts, the rows of the volume, the lights.
#include <algorithm>

#include "maker/checks.h"
#include "platform/paths.h"
#include "skin/layout.h"
#include "state/stack.h"

namespace {

constexpr Long kLeastLightPx = 3, kLeastBarPx = 2, kLeastWindowPx = 40;

// A side of the window in twips, and what the window made of it.
void CheckSide(Report& report, const Long& asked, Long taken) {
    if (!report.Trial.ReadOf(&asked).Fits) return; // That was said of the text.
    if (asked != taken)
        report.At(&asked, Decimal(asked) + u" is no size for a window, so it keeps the size that "
                                           u"it had; count in twips, 15 to the pixel");
    else if (PixelsOfTwips(asked) < kLeastWindowPx)
        report.At(&asked, Decimal(asked) + u" are only " + Decimal(PixelsOfTwips(asked)) +
                              u" pixels, since this counts in twips, 15 to the pixel");
    else if (asked % kTwipsPerPixel != 0)
        report.At(&asked, Decimal(asked) + u" is no whole number of pixels; take a multiple of 15");
}

void CheckText(Report& report, const Label& label, const Label& playing, const Rect& needed) {
    if (!label.Visible || (label.Width >= needed.Right && label.Height >= needed.Bottom)) return;
    const SkinObjectRecord* placed = nullptr; // The last one counts.
    for (const SkinObjectRecord& object : report.Trial.Skin().Objects) {
        const ObjectType* const type = ObjectTypeOf(object.Type);
        if (object.Enabled && type && type->TextLabel &&
            &(report.Trial.State.frmMain.*type->TextLabel) == &label)
            placed = &object;
    }
    if (placed)
        report.At(label.Width < needed.Right ? &placed->Width : &placed->Height,
                  u"no room for " + Quoted(playing.Caption) + u", which needs " +
                      SizeWords(needed.Right, needed.Bottom));
}

// The highest of the pictures of the volume.
Long HeightOfVolume(const Form& form) {
    Long most = form.picVolume.Picture ? form.picVolume.Height : 0;
    for (const PictureBox& step : form.picVolumeArray)
        if (step.Picture) most = std::max(most, Long{step.Picture->HeightPx});
    return most;
}

// What is wrong with the row of one step by itself; empty if nothing is.
Text RowWords(const KeyRead& read, Integer row, Long heightPx) {
    if (!read.Given) return u"missing, so the step has row 0";
    if (!read.Fits) return {};
    if (row % kTwipsPerPixel != 0)
        return Decimal(row) + u" lies between two pixels, where no pointer comes; take a multiple "
                              u"of 15";
    if (row < 0 || (heightPx > 0 && row / kTwipsPerPixel >= heightPx))
        return Decimal(row) + u" lies outside of the picture, which has " + Decimal(heightPx) +
               u" rows";
    return {};
}

void CheckOrder(Report& report, const Integer& row, Integer before, bool falling) {
    if (row == before)
        report.At(&row, Decimal(row) + u" is the row of the step before, so this one can't be "
                                       u"reached");
    else if ((row < before) != falling)
        report.At(&row, Decimal(row) + u" is out of order: the rows go " +
                            (falling ? u"up" : u"down") + u" the picture from step to step");
}

} // namespace

void CheckSettings(Report& report) {
    const SkinRecord& skin = report.Trial.Skin();
    const Form& form = report.Trial.State.frmMain;
    CheckSide(report, skin.Width, form.Width);
    CheckSide(report, skin.Height, form.Height);
    const bool named = !!report.Trial.ReadOf(&skin.Graphic).Given;
    const Text wrong = named ? FileWords(report.Trial, skin.Graphic, FileKind::Picture) : Text();
    if (!wrong.empty())
        report.At(&skin.Graphic,
                  wrong + (form.picBackground.Visible ? Text()
                                                      : u"; without a background nothing shows"));
    else if (!form.picBackground.Picture)
        report.At(&skin.Graphic, u"missing, so the background is black");
}

void CheckTexts(Report& report, const Form& playing, const MeasureText& measure) {
    const Form& form = report.Trial.State.frmMain;
    CheckText(report, form.lblStatusLabel, playing.lblStatusLabel,
              measure(playing.lblStatusLabel.Caption, playing.lblStatusLabel.FontPx));
    // The title runs through its label, so a part of it will do.
    Rect title = measure(playing.lblFilescroll.Caption, playing.lblFilescroll.FontPx);
    title.Right = measure(u"velora", playing.lblFilescroll.FontPx).Right;
    CheckText(report, form.lblFilescroll, playing.lblFilescroll, title);
    for (const SkinObjectRecord& object : report.Trial.Skin().Objects)
        if (const ObjectType* type = ObjectTypeOf(object.Type);
            type && type->Scope && object.Enabled &&
            (object.Width < kLeastBarPx || object.Height < kLeastBarPx))
            report.At(object.Width < kLeastBarPx ? &object.Width : &object.Height,
                      u"no room for the visualisation");
}

void CheckVolume(Report& report) {
    const SkinRecord& skin = report.Trial.Skin();
    // Only a volume that was placed has asked for its rows.
    if (report.Trial.ReadOf(&skin.VolumeY[1]).Field == nullptr) return;
    const Long heightPx = HeightOfVolume(report.Trial.State.frmMain);
    const bool falling = skin.VolumeY[kVolumeSteps] < skin.VolumeY[1];
    for (Integer step = 1; step <= kVolumeSteps; ++step) {
        const Integer& row = skin.VolumeY[step];
        const KeyRead& read = report.Trial.ReadOf(&row);
        const Text wrong = RowWords(read, row, heightPx);
        if (!wrong.empty())
            report.At(&row, wrong);
        else if (step > 1 && read.Fits && report.Trial.ReadOf(&skin.VolumeY[step - 1]).Fits)
            CheckOrder(report, row, skin.VolumeY[step - 1], falling);
    }
}

void CheckLights(Report& report) {
    const auto& lights = report.Trial.State.frmMain.shpPercent;
    if (const Integer broken = report.Trial.BrokenLight(); broken > 0) {
        const auto end = std::ranges::find_if(report.Trial.Reads, [&](const KeyRead& read) {
            return read.Section == Decimal(broken) && !read.Fits && !read.Given;
        });
        if (end != report.Trial.Reads.end())
            report.Add({end->File, end->Section, end->Key,
                        u"missing, so this light and those behind it aren't made"});
    }
    for (Integer number = 1; number <= kLights && lights[number].Visible; ++number)
        for (const Long* const side : {&lights[number].Width, &lights[number].Height})
            if (*side < kLeastLightPx)
                report.At(side, u"a light needs 3 pixels to show its colour; this one has " +
                                    Decimal(*side));
}
