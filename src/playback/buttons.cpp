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
    PlaySoundFile(velora, velora.System.ApplicationDirectory() + u"\\click.wav");
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

void PlaySoundFile(Velora& velora, const Text& FileName) {
    velora.System.PlaySoundAndWait(FileName);
}

ButtonChange DecideButtonMove(const ButtonMoveFacts& facts) {
    if (facts.Button != kLeftButton) return ButtonChange::Keep;
    const auto width = static_cast<Single>(facts.WidthPx),
               height = static_cast<Single>(facts.HeightPx);
    const bool outside = facts.X > width || facts.X < -1 || facts.Y > height || facts.Y < -1;
    const bool inside = facts.X < width && facts.X > -1 && facts.Y < height && facts.Y > -1;
    if (facts.ShowsPressed) return outside ? ButtonChange::ShowNormal : ButtonChange::Keep;
    return facts.ShowsNormal && inside ? ButtonChange::ShowPressed : ButtonChange::Keep;
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

void picPause_MouseDown(Velora& velora, const MouseEvent& event) {
    ButtonDown(event.Button, velora.frmMain.picPause, velora.frmMain.picPause2);
}

void picPlaylist_MouseDown(Velora& velora, const MouseEvent& event) {
    ButtonDown(event.Button, velora.frmMain.picPlaylist, velora.frmMain.picPlaylist2);
}

void picEject_MouseDown(Velora& velora, const MouseEvent& event) {
    ButtonDown(event.Button, velora.frmMain.picEject, velora.frmMain.picEject2);
}

void picPlay_MouseMove(Velora& velora, const MouseEvent& event) {
    Form& form = velora.frmMain;
    if (ShowsPictureOf(form.picPlay, form.picPlay2))
        ButtonMove(event, form.picPlay, form.picPlay1, form.picPlay2);
    else if (ShowsPictureOf(form.picPlay, form.picStop2))
        ButtonMove(event, form.picPlay, form.picStop1, form.picStop2);
}

void picPause_MouseMove(Velora& velora, const MouseEvent& event) {
    Form& form = velora.frmMain;
    ButtonMove(event, form.picPause, form.picPause1, form.picPause2);
}

void picBackward_MouseMove(Velora& velora, const MouseEvent& event) {
    Form& form = velora.frmMain;
    ButtonMove(event, form.picBackward, form.picBackward1, form.picBackward2);
}

void picForward_MouseMove(Velora& velora, const MouseEvent& event) {
    Form& form = velora.frmMain;
    ButtonMove(event, form.picForward, form.picForeward1, form.picForeward2);
}

void picPlaylist_MouseMove(Velora& velora, const MouseEvent& event) {
    Form& form = velora.frmMain;
    ButtonMove(event, form.picPlaylist, form.picPlaylist1, form.picPlaylist2);
}

void picEject_MouseMove(Velora& velora, const MouseEvent& event) {
    Form& form = velora.frmMain;
    ButtonMove(event, form.picEject, form.picEject1, form.picEject2);
}
