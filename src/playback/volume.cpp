// Everything here has been loaded with the skin: a drag runs through at every mouse event.
#include "playback/volume.h"

#include <cstdlib>

#include "platform/profile_strings.h"

std::optional<Integer> VolumeStepAt(Single y, const SkinRecord& skin) {
    for (Integer step = 1; step <= kVolumeSteps; ++step)
        if (static_cast<Single>(skin.VolumeY[step]) == y) return step;
    return std::nullopt;
}

Integer VolumeValue(Integer step) {
    return RoundToEven<Integer>(step / 70.0 * 100).value_or(Integer{0});
}

void picVolume_MouseMove(Velora& velora, const MouseEvent& event) {
    if (event.Button == kLeftButton) PickVolumeStep(velora, event.X, event.Y);
}

void PickVolumeStep(Velora& velora, Single, Single Y) {
    const std::optional<Integer> hit = VolumeStepAt(Y, velora.Skins[velora.CurrentSkin]);
    if (!hit || std::abs(*hit - velora.frmMain.lCurVol) != 1) return;
    ShowVolumeStep(velora.frmMain, *hit);
    velora.Window.Present();
    Integer value = VolumeValue(*hit);
    SendVolume(velora.VFmp3player1, value);
}

void ShowVolumeStep(Form& form, Integer step) {
    SetPicture(form.picVolume, form.picVolumeArray[step].Picture);
    form.lCurVol = step;
}

void SendVolume(Player& player, Integer& Value) {
    Value = Value == 1 ? Integer{0} : FitInto<Integer>(Value * 10).value_or(Value);
    player.SetVolume(Value);
}

void RestoreVolume(Velora& velora) {
    const std::optional<Integer> step =
        FlooredNumber<Integer>(ReadProfileString(velora.SettingsIni, u"Settings", u"Volume", {}));
    if (!step || *step < 1 || *step > kVolumeSteps) return;
    GoToVolumeStep(velora, *step);
}

void GoToVolumeStep(Velora& velora, Integer step) {
    if (velora.frmMain.lCurVol != 0) ShowVolumeStep(velora.frmMain, step);
    Integer value = VolumeValue(step);
    SendVolume(velora.VFmp3player1, value);
}
