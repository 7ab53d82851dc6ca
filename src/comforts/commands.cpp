// The display stops before the sound does. What is asked in between first gives the display back
// what plays, so that all goes on from there as ever.
#include "comforts/commands.h"

#include <algorithm>

#include "comforts/media_facts.h"
#include "display/ticker.h"
#include "playback/transport.h"
#include "playback/volume.h"

namespace {

void TakeUpTail(ComfortContext& context) {
    if (!IsInTail(context)) return;
    Velora& velora = context.State;
    velora.PlayerState = PlayerState::Playing;
    velora.frmMain.VFmp3scope1.Visible = true;
    velora.frmMain.lblStatusLabel.Caption = u"Playing";
    UpdateTicker(velora);
}

// The release on pause, once the play button shows stop, as it may not after a start with a file.
void TogglePause(Velora& velora) {
    SetPicture(velora.frmMain.picPlay, velora.frmMain.picStop1.Picture);
    picPause_MouseUp(velora, {kNoButton, 0, 0, 0});
}

} // namespace

void PauseTrack(ComfortContext& context) {
    TakeUpTail(context);
    if (context.State.PlayerState == PlayerState::Playing) TogglePause(context.State);
}

void GoOnWithTrack(ComfortContext& context) {
    if (context.State.PlayerState == PlayerState::Paused) TogglePause(context.State);
}

void PlayTrack(ComfortContext& context, ListWay& way) {
    if (context.State.PlayerState == PlayerState::Paused) return GoOnWithTrack(context);
    if (context.State.PlayerState == PlayerState::Stopped && !IsInTail(context)) way.StartAny();
}

void StopHeardTrack(ComfortContext& context) {
    if (IsSeeking(context.State)) return;
    if (context.State.PlayerState != PlayerState::Stopped || IsInTail(context))
        StopTrack(context.State);
}

void SeekInTrack(ComfortContext& context, Long milliseconds) {
    if (milliseconds == 0) return;
    const PlayerState state = context.State.PlayerState;
    if (IsSeeking(context.State) || (state == PlayerState::Stopped && !IsInTail(context))) return;
    TakeUpTail(context);
    context.State.VFmp3player1.SeekBy(milliseconds);
}

void StepVolume(ComfortContext& context, int direction) {
    const Integer step = StepNearest(context.Ear.Notes().VolumePercent);
    const auto goal = static_cast<Integer>(std::clamp(step + direction, 1, int{kVolumeSteps}));
    if (goal != step) GoToVolumeStep(context.State, goal);
}
