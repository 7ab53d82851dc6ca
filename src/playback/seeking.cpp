// Both directions are one procedure over what differs between them.
#include "playback/seeking.h"

namespace {

struct Direction {
    ::PlayerState State;
    PictureBox Form::*Button;
    Timer Form::*Blink;
    int StepSeconds;
};

constexpr Direction kBackward{PlayerState::SeekingBackward, &Form::picBackward,
                              &Form::tmrSeekBackward, -10};
constexpr Direction kForward{PlayerState::SeekingForward, &Form::picForward, &Form::tmrSeekForward,
                             10};

void Start(Velora& velora, const Direction& direction) {
    velora.SeekOffset = 0;
    velora.PlayerState = direction.State;
    (velora.frmMain.*direction.Blink).Enabled = true;
}

void End(Velora& velora, const Direction& direction) {
    (velora.frmMain.*direction.Blink).Enabled = false;
    velora.PlayerState = PlayerState::Playing;
    (velora.frmMain.*direction.Button).Visible = true;
    velora.VFmp3player1.Seek(velora.SeekOffset);
}

void Tick(Velora& velora, const Direction& direction) {
    if (velora.PlayerState != direction.State) return;
    PictureBox& button = velora.frmMain.*direction.Button;
    button.Visible = !button.Visible;
    if (button.Visible)
        velora.SeekOffset =
            FitInto<Integer>(velora.SeekOffset + direction.StepSeconds).value_or(velora.SeekOffset);
}

} // namespace

bool StartsSeek(Integer Shift, PlayerState state) {
    return Shift == 1 && state == PlayerState::Playing;
}

void StartSeekBackward(Velora& velora) {
    Start(velora, kBackward);
}

void StartSeekForward(Velora& velora) {
    Start(velora, kForward);
}

void EndSeekBackward(Velora& velora) {
    End(velora, kBackward);
}

void EndSeekForward(Velora& velora) {
    End(velora, kForward);
}

void EndBlinking(PictureBox& button, Timer& timer) {
    if (!timer.Enabled) return;
    timer.Enabled = false;
    button.Visible = true;
}

void tmrSeekBackward_Timer(Velora& velora) {
    Tick(velora, kBackward);
}

void tmrSeekForward_Timer(Velora& velora) {
    Tick(velora, kForward);
}
