// Lights only ever go on here during a track; a seek backward leaves the lit ones lit.
#include "display/progress.h"

#include <algorithm>

namespace {

constexpr Long kResetColour = 0x0000FF;
constexpr double kSecondsPerLight = 0.02;

Integer ScaledPosition(Long Position, Long Length, int scale) {
    return RoundToEven<Integer>(static_cast<double>(Position) / static_cast<double>(Length) * scale)
        .value_or(Integer{0});
}

} // namespace

Progress ProgressAt(Long Position, Long Length) {
    return {ScaledPosition(Position, Length, kLights), ScaledPosition(Position, Length, 100)};
}

Text CaptionAt(TextView title, TextView artist, TextView file, Integer percent) {
    const bool tagged = !title.empty() && !artist.empty();
    const Text name = tagged ? LowerCase(title) + u" - " + LowerCase(artist) : LowerCase(file);
    return u"..:: " + name + u" " + Decimal(percent) + u"% ::.. velora ";
}

void UpdateProgress(Velora& velora, Long Position, Long Length) {
    if (Length == 0 || Position == 0 || velora.PlayerState != PlayerState::Playing) return;
    const auto [Segments, Percent] = ProgressAt(Position, Length);
    FillProgress(velora.frmMain, Segments);
    const MediaEntry& entry = velora.MediaList[velora.CurrentTrack];
    velora.frmMain.Caption = CaptionAt(velora.TrackTitle, velora.TrackArtist, entry.File, Percent);
    velora.frmMain.lblStatusLabel.Caption = u"Playing " + Decimal(Percent) + u"%";
    if (Segments == kLights) ResetDisplay(velora);
}

void FillProgress(Form& form, Integer Segments) {
    const Integer last = std::min(Segments, kLights);
    for (Integer number = 1; number <= last; ++number) {
        Shape& light = form.shpPercent[number];
        if (!light.Exists) return;
        light.FillColour = kPassedColour;
    }
}

void ResetDisplay(Velora& velora) {
    Form& form = velora.frmMain;
    velora.PlayerState = PlayerState::Stopped;
    form.Caption = u"..:: velora-pro.team qu><llo ::..";
    form.lblStatusLabel.Caption = u"Ready";
    SetPicture(form.picPlay, form.picPlay1.Picture);
    form.lblFilescroll.Caption.clear();
    for (Integer number = 1; number <= kLights; ++number) {
        Shape& light = form.shpPercent[number];
        if (light.Exists) light.FillColour = kResetColour;
        Delay(velora.Loop, kSecondsPerLight);
    }
    // A track that a click has started meanwhile keeps its spectrum.
    if (velora.PlayerState == PlayerState::Stopped) form.VFmp3scope1.Visible = false;
}
