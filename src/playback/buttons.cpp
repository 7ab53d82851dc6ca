// A press only moves picture objects between a control and its holders.
#include "playback/buttons.h"

void ButtonDown(Integer Button, PictureBox& control, const PictureBox& pressed) {
    if (Button == kLeftButton) SetPicture(control, pressed.Picture);
}

void ButtonUp(Velora& velora, Integer Button, PictureBox& control, const PictureBox& normal,
              const PictureBox& pressed) {
    if (Button != kLeftButton || !ShowsPictureOf(control, pressed)) return;
    SetPicture(control, normal.Picture);
    // The click holds everything up: what the user sees has to be right before it.
    velora.Window.Present();
    PlaySoundFile(velora.System, velora.System.ApplicationDirectory() + u"\\click.wav");
}

void ButtonMove(const MouseEvent& event, PictureBox& control, const PictureBox& normal,
                const PictureBox& pressed) {
    switch (DecideButtonMove({ShowsPictureOf(control, pressed), ShowsPictureOf(control, normal),
                              event.Button, event.X, event.Y, control.Width, control.Height})) {
    case ButtonChange::Keep:
        return;
    case ButtonChange::ShowNormal:
        return SetPicture(control, normal.Picture);
    case ButtonChange::ShowPressed:
        return SetPicture(control, pressed.Picture);
    }
}

void PlaySoundFile(System& system, const Text& FileName) {
    system.PlaySoundAndWait(FileName);
}

ButtonChange DecideButtonMove(const MoveOnControl& move) {
    if (move.Button != kLeftButton) return ButtonChange::Keep;
    const auto width = static_cast<Single>(move.WidthPx),
               height = static_cast<Single>(move.HeightPx);
    const bool outside = move.X > width || move.X < -1 || move.Y > height || move.Y < -1;
    const bool inside = move.X < width && move.X > -1 && move.Y < height && move.Y > -1;
    if (move.ShowsPressed) return outside ? ButtonChange::ShowNormal : ButtonChange::Keep;
    return move.ShowsNormal && inside ? ButtonChange::ShowPressed : ButtonChange::Keep;
}

bool ShowsPictureOf(const PictureBox& control, const PictureBox& other) {
    return control.Picture == other.Picture;
}

void picPlay_MouseDown(Velora& velora, const MouseEvent& event) {
    Form& form = velora.frmMain;
    if (ShowsPictureOf(form.picPlay, form.picPlay1))
        ButtonDown(event.Button, form.picPlay, form.picPlay2);
    else if (ShowsPictureOf(form.picPlay, form.picStop1))
        ButtonDown(event.Button, form.picPlay, form.picStop2);
}

void picPlay_MouseMove(Velora& velora, const MouseEvent& event) {
    Form& form = velora.frmMain;
    if (ShowsPictureOf(form.picPlay, form.picPlay2))
        ButtonMove(event, form.picPlay, form.picPlay1, form.picPlay2);
    else if (ShowsPictureOf(form.picPlay, form.picStop2))
        ButtonMove(event, form.picPlay, form.picStop1, form.picStop2);
}
