// What the six buttons do when the mouse is released on them, and the transitions of `PlayerState`.
// What is done is decided first, by what the buttons show, the state and the modifier keys.
#pragma once

#include "state/mouse_event.h"
#include "state/velora.h"

enum class PlayCommand { None, AskForFile, ShowStop, StopTrack };
enum class PauseCommand { None, Hold, GoOn };
enum class StepCommand { None, EndSeek, Step };
enum class EjectCommand { None, SelectMedia, SelectPlaylist };

/// By what `picPlay` shows. After a start by the command line it shows play while a track plays:
/// then a click only brings up the stop picture.
[[nodiscard]] PlayCommand DecidePlay(bool showsPlayPressed, bool showsStopPressed,
                                     PlayerState state);

/// `playShowsStop` asks about `picPlay`, not about `picPause`: how the press went doesn't count.
[[nodiscard]] PauseCommand DecidePause(bool playShowsStop, PlayerState state);

/// Any release of any button counts.
[[nodiscard]] StepCommand DecideBackward(PlayerState state);

/// `atRest` keeps out the click of another button on a fresh control.
[[nodiscard]] StepCommand DecideForward(bool atRest, PlayerState state);

/// `atRest` ends a press that was dragged off; `Shift` is any modifier key.
[[nodiscard]] EjectCommand DecideEject(bool atRest, Integer Shift);

/// Stops the track and the display.
void StopTrack(Velora& velora);

/// Asks for a file and starts it.
void SelectMediaFile(Velora& velora);

/// Asks for a playlist and its name and enters it in the catalogue.
void SelectPlaylist(Velora& velora);

// The presses that can begin a seek.
void picBackward_MouseDown(Velora& velora, const MouseEvent& event);
void picForward_MouseDown(Velora& velora, const MouseEvent& event);

void picPlay_MouseUp(Velora& velora, const MouseEvent& event);
void picPause_MouseUp(Velora& velora, const MouseEvent& event);
void picBackward_MouseUp(Velora& velora, const MouseEvent& event);
void picForward_MouseUp(Velora& velora, const MouseEvent& event);
void picPlaylist_MouseUp(Velora& velora, const MouseEvent& event);
void picEject_MouseUp(Velora& velora, const MouseEvent& event);
