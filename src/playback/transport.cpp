// The handlers of the releases: one decision each, then the steps that it names.
#include "playback/transport.h"

#include "display/progress.h"
#include "playback/buttons.h"
#include "playback/navigation.h"
#include "playback/seeking.h"
#include "playlist/media_list.h"
#include "playlist/playlist_catalogue.h"
#include "skin/skin_catalogue.h"
#include "state/file_dialogs.h"
#include "state/messages.h"

namespace {

// The user's choice of a file; 0 if there is none.
Integer AskForMedia(Velora& velora) {
    Text directory, fileName;
    return AddMedia(velora, 0, directory, fileName);
}

void ChangePause(Velora& velora, PauseCommand command) {
    if (command == PauseCommand::None) return;
    const bool goesOn = command == PauseCommand::GoOn;
    velora.frmMain.VFmp3scope1.Visible = goesOn;
    velora.VFmp3player1.TogglePause();
    velora.frmMain.lblStatusLabel.Caption = goesOn ? u"Playing" : u"Paused";
    velora.PlayerState = goesOn ? PlayerState::Playing : PlayerState::Paused;
}

} // namespace

PlayCommand DecidePlay(bool showsPlayPressed, bool showsStopPressed, PlayerState state) {
    if (showsPlayPressed && state == PlayerState::Stopped) return PlayCommand::AskForFile;
    if (showsPlayPressed && state == PlayerState::Playing) return PlayCommand::ShowStop;
    const bool stoppable = state == PlayerState::Playing || state == PlayerState::Paused;
    return showsStopPressed && stoppable ? PlayCommand::StopTrack : PlayCommand::None;
}

PauseCommand DecidePause(bool playShowsStop, PlayerState state) {
    if (!playShowsStop) return PauseCommand::None;
    if (state == PlayerState::Playing) return PauseCommand::Hold;
    return state == PlayerState::Paused ? PauseCommand::GoOn : PauseCommand::None;
}

StepCommand DecideBackward(PlayerState state) {
    return state == PlayerState::SeekingBackward ? StepCommand::EndSeek : StepCommand::Step;
}

StepCommand DecideForward(bool atRest, PlayerState state) {
    if (state == PlayerState::SeekingForward) return StepCommand::EndSeek;
    return atRest ? StepCommand::Step : StepCommand::None;
}

EjectCommand DecideEject(bool atRest, Integer Shift) {
    if (atRest) return EjectCommand::None;
    return Shift == 0 ? EjectCommand::SelectMedia : EjectCommand::SelectPlaylist;
}

void StopTrack(Velora& velora) {
    SetPicture(velora.frmMain.picPlay, velora.frmMain.picPlay1.Picture);
    velora.VFmp3player1.Stop();
    ResetDisplay(velora);
}

void SelectMediaFile(Velora& velora) {
    StartTrack(velora, AskForMedia(velora));
}

void SelectPlaylist(Velora& velora) {
    const Text file = OpenFileDialog(velora, velora.PlaylistFilter, u"Select Playlist ...",
                                     velora.System.CurrentDirectory());
    if (file.empty()) return;
    AddPlaylist(velora, AskForText(velora, u"Name of playlist:", u"Velora"), file);
}

void picBackward_MouseDown(Velora& velora, const MouseEvent& event) {
    ButtonDown(event.Button, velora.frmMain.picBackward, velora.frmMain.picBackward2);
    if (StartsSeek(event.Shift, velora.PlayerState)) StartSeekBackward(velora);
}

void picForward_MouseDown(Velora& velora, const MouseEvent& event) {
    ButtonDown(event.Button, velora.frmMain.picForward, velora.frmMain.picForeward2);
    if (StartsSeek(event.Shift, velora.PlayerState)) StartSeekForward(velora);
}

void picPlay_MouseUp(Velora& velora, const MouseEvent&) {
    Form& form = velora.frmMain;
    switch (DecidePlay(ShowsPictureOf(form.picPlay, form.picPlay2),
                       ShowsPictureOf(form.picPlay, form.picStop2), velora.PlayerState)) {
    case PlayCommand::None:
        return;
    case PlayCommand::AskForFile:
        SetPicture(form.picPlay, form.picPlay1.Picture);
        return StartTrack(velora, AskForMedia(velora));
    case PlayCommand::ShowStop:
        return SetPicture(form.picPlay, form.picStop1.Picture);
    case PlayCommand::StopTrack:
        return StopTrack(velora);
    }
}

void picPause_MouseUp(Velora& velora, const MouseEvent& event) {
    Form& form = velora.frmMain;
    ButtonUp(velora, event.Button, form.picPause, form.picPause1, form.picPause2);
    ChangePause(velora,
                DecidePause(ShowsPictureOf(form.picPlay, form.picStop1), velora.PlayerState));
}

void picBackward_MouseUp(Velora& velora, const MouseEvent& event) {
    Form& form = velora.frmMain;
    ButtonUp(velora, event.Button, form.picBackward, form.picBackward1, form.picBackward2);
    if (DecideBackward(velora.PlayerState) == StepCommand::EndSeek) return EndSeekBackward(velora);
    EndBlinking(form.picBackward, form.tmrSeekBackward);
    PreviousTrack(velora);
}

void picForward_MouseUp(Velora& velora, const MouseEvent& event) {
    Form& form = velora.frmMain;
    ButtonUp(velora, event.Button, form.picForward, form.picForeward1, form.picForeward2);
    const bool atRest = ShowsPictureOf(form.picForward, form.picForeward1);
    const StepCommand command = DecideForward(atRest, velora.PlayerState);
    if (command == StepCommand::EndSeek) return EndSeekForward(velora);
    EndBlinking(form.picForward, form.tmrSeekForward);
    if (command == StepCommand::Step) NextTrack(velora);
}

void picPlaylist_MouseUp(Velora& velora, const MouseEvent& event) {
    Form& form = velora.frmMain;
    ButtonUp(velora, event.Button, form.picPlaylist, form.picPlaylist1, form.picPlaylist2);
    if (ShowsPictureOf(form.picPlaylist, form.picPlaylist1)) ShowCompanionSkin(velora);
}

void picEject_MouseUp(Velora& velora, const MouseEvent& event) {
    Form& form = velora.frmMain;
    const bool atRest = ShowsPictureOf(form.picEject, form.picEject1);
    const EjectCommand command = DecideEject(atRest, event.Shift);
    if (command == EjectCommand::None) return;
    ButtonUp(velora, event.Button, form.picEject, form.picEject1, form.picEject2);
    if (command == EjectCommand::SelectMedia) return SelectMediaFile(velora);
    SelectPlaylist(velora);
}
