// The picture boxes that behave like push buttons. What a button shows is all that is known of its
// condition, and pictures are told apart by identity.
#pragma once

#include "state/mouse_event.h"
#include "state/velora.h"

/// The left button shows the picture of `pressed`; other buttons do nothing.
void ButtonDown(Integer Button, PictureBox& control, const PictureBox& pressed);

/// With the left button, and only if the pressed picture shows: the picture at rest comes back and
/// the click sounds. Returns when the sound has ended.
void ButtonUp(Velora& velora, Integer Button, PictureBox& control, const PictureBox& normal,
              const PictureBox& pressed);

/// Takes the pressed picture off when the pointer is dragged off, and shows it again when it comes
/// back. Counts with the left button alone held. No sound.
void ButtonMove(const MouseEvent& event, PictureBox& control, const PictureBox& normal,
                const PictureBox& pressed);

/// Plays a wave file and returns when it has ended.
void PlaySoundFile(System& system, const Text& FileName);

/// What a move does to a button's picture.
enum class ButtonChange { Keep, ShowNormal, ShowPressed };

/// A move on a button: which of its two pictures the control shows, and where the pointer is. Past
/// -1 or the control's own size is outside, short of them is inside, exactly on them changes
/// nothing.
struct MoveOnControl {
    bool ShowsPressed = false, ShowsNormal = false;
    Integer Button = 0; ///< The set of held buttons.
    Single X = 0, Y = 0;
    Long WidthPx = 0, HeightPx = 0;
};

[[nodiscard]] ButtonChange DecideButtonMove(const MoveOnControl& move);

/// Whether two boxes show one and the same picture; no picture equals no picture.
[[nodiscard]] bool ShowsPictureOf(const PictureBox& control, const PictureBox& other);

/// A button of the form, with the holders of its picture at rest and of its pressed one.
struct PushButton {
    PictureBox Form::*Control;
    PictureBox Form::*Normal;
    PictureBox Form::*Pressed;
};

constexpr PushButton kPauseButton{&Form::picPause, &Form::picPause1, &Form::picPause2};
constexpr PushButton kBackwardButton{&Form::picBackward, &Form::picBackward1, &Form::picBackward2};
constexpr PushButton kForwardButton{&Form::picForward, &Form::picForeward1, &Form::picForeward2};
constexpr PushButton kPlaylistButton{&Form::picPlaylist, &Form::picPlaylist1, &Form::picPlaylist2};
constexpr PushButton kEjectButton{&Form::picEject, &Form::picEject1, &Form::picEject2};

/// The handler of a press on a button that does nothing else at a press.
template<const PushButton& Button>
void PressButton(Velora& velora, const MouseEvent& event) {
    Form& form = velora.frmMain;
    ButtonDown(event.Button, form.*Button.Control, form.*Button.Pressed);
}

/// The handler of a move while the button has the mouse.
template<const PushButton& Button>
void MoveOnButton(Velora& velora, const MouseEvent& event) {
    Form& form = velora.frmMain;
    ButtonMove(event, form.*Button.Control, form.*Button.Normal, form.*Button.Pressed);
}

// The handlers of `picPlay`, which has two pairs of pictures. It looks at what it shows first: a
// fresh one takes no press, and since its moves look for the pressed pictures alone, a drag-off is
// final there.
void picPlay_MouseDown(Velora& velora, const MouseEvent& event);
void picPlay_MouseMove(Velora& velora, const MouseEvent& event);
