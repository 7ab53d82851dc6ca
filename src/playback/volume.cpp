// Everything here has been loaded with the skin: a drag runs through at every mouse event.
#include "playback/volume.h"

#include <cstdlib>

#include "platform/profile_strings.h"

std::optional<Integer> VolumeStepAt(Single y, std::span<const Integer, 10> volumeY) {
    for (Integer step = 1; step <= kVolumeSteps; ++step)
        if (static_cast<Single>(volumeY[static_cast<std::size_t>(step)]) == y) return step;
    return std::nullopt;
}

Integer VolumeValue(Integer step) {
    return RoundToEven<Integer>(step / 70.0 * 100).value_or(Integer{0});
}

void picVolume_MouseMove(Velora& velora, const MouseEvent& event) {
    if (event.Button == kLeftButton) PickVolumeStep(velora, event.X, event.Y);
}

void PickVolumeStep(Velora& velora, Single, Single Y) {
    const SkinRecord& skin = velora.Skins[static_cast<std::size_t>(velora.CurrentSkin)];
    const std::optional<Integer> hit = VolumeStepAt(Y, skin.VolumeY);
    if (!hit || std::abs(*hit - velora.frmMain.lCurVol) != 1) return;
    ShowVolumeStep(velora, *hit);
    velora.Window.Present();
    Integer value = VolumeValue(*hit);
    SendVolume(velora, value);
}

void ShowVolumeStep(Velora& velora, Integer step) {
    Form& form = velora.frmMain;
    SetPicture(form.picVolume, form.picVolumeArray[static_cast<std::size_t>(step)].Picture);
    form.lCurVol = step;
}

void SendVolume(Velora& velora, Integer& Value) {
    Value = Value == 1 ? Integer{0} : FitInto<Integer>(Value * 10).value_or(Value);
    velora.VFmp3player1.SetVolume(Value);
}

void RestoreVolume(Velora& velora) {
    const std::optional<Integer> step =
        FlooredNumber<Integer>(ReadProfileString(velora.SettingsIni, u"Settings", u"Volume", {}));
    if (!step || *step < 1 || *step > kVolumeSteps) return;
    if (velora.frmMain.lCurVol != 0) ShowVolumeStep(velora, *step);
    Integer value = VolumeValue(*step);
    SendVolume(velora, value);
}
