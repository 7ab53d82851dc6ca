// Lights only ever go on here during a track; a seek backward leaves the lit ones lit.
#include "display/progress.h"

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
    FillProgress(velora, Segments);
    const MediaEntry& entry = velora.MediaList[static_cast<std::size_t>(velora.CurrentTrack)];
    velora.frmMain.Caption = CaptionAt(velora.TrackTitle, velora.TrackArtist, entry.File, Percent);
    velora.frmMain.lblStatusLabel.Caption = u"Playing " + Decimal(Percent) + u"%";
    if (Segments == kLights) ResetDisplay(velora);
}

void FillProgress(Velora& velora, Integer Segments) {
    for (int light = 1; light <= Segments; ++light) {
        if (light > kLights) return;
        Shape& shape = velora.frmMain.shpPercent[static_cast<std::size_t>(light)];
        if (!shape.Exists) return;
        shape.FillColour = kPassedColour;
    }
}

void ResetDisplay(Velora& velora) {
    Form& form = velora.frmMain;
    velora.PlayerState = PlayerState::Stopped;
    form.Caption = u"..:: velora-pro.team qu><llo ::..";
    form.lblStatusLabel.Caption = u"Ready";
    SetPicture(form.picPlay, form.picPlay1.Picture);
    form.lblFilescroll.Caption.clear();
    for (std::size_t light = 1; light <= kLights; ++light) {
        if (form.shpPercent[light].Exists) form.shpPercent[light].FillColour = kResetColour;
        Delay(velora.Loop, kSecondsPerLight);
    }
    form.VFmp3scope1.Visible = false;
}
