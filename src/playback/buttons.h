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
void PlaySoundFile(Velora& velora, const Text& FileName);

/// What a move does to a button's picture.
enum class ButtonChange { Keep, ShowNormal, ShowPressed };

/// Whether the control shows one picture or the other, and where the pointer is: past -1 or the
/// control's own size is outside, short of them is inside, exactly on them changes nothing.
struct ButtonMoveFacts {
    bool ShowsPressed = false, ShowsNormal = false;
    Integer Button = 0; ///< The set of held buttons.
    Single X = 0, Y = 0;
    Long WidthPx = 0, HeightPx = 0;
};

[[nodiscard]] ButtonChange DecideButtonMove(const ButtonMoveFacts& facts);

/// Whether two boxes show one and the same picture; no picture equals no picture.
[[nodiscard]] bool ShowsPictureOf(const PictureBox& control, const PictureBox& other);

// Presses and moves. `picPlay` looks at what it shows first: a fresh one takes no press, and since
// its moves look for the pressed pictures alone, a drag-off is final there.
void picPlay_MouseDown(Velora& velora, const MouseEvent& event);
void picPause_MouseDown(Velora& velora, const MouseEvent& event);
void picPlaylist_MouseDown(Velora& velora, const MouseEvent& event);
void picEject_MouseDown(Velora& velora, const MouseEvent& event);

void picPlay_MouseMove(Velora& velora, const MouseEvent& event);
void picPause_MouseMove(Velora& velora, const MouseEvent& event);
void picBackward_MouseMove(Velora& velora, const MouseEvent& event);
void picForward_MouseMove(Velora& velora, const MouseEvent& event);
void picPlaylist_MouseMove(Velora& velora, const MouseEvent& event);
void picEject_MouseMove(Velora& velora, const MouseEvent& event);
