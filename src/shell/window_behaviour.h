// What the window's own surface does: it has no caption to grab and no box to close, so the
// background moves the window and pops up a menu.
#pragma once

#include "state/mouse_event.h"
#include "state/velora.h"

/// Blanks the controls that a skin fills, so that one that the skin doesn't place stays away.
void ResetObjects(Form& form);

/// No picture, not visible.
void ClearObject(PictureBox& box);

/// Lets the window follow the pointer until `button` is up. Afterwards no control has the mouse.
void DragWindow(Velora& velora, Integer button);

/// The left button moves the window, any other pops up the menu.
void Form_MouseDown(Velora& velora, const MouseEvent& event);
void picBackground_MouseDown(Velora& velora, const MouseEvent& event);

/// Any button moves the window.
void lblFilescroll_MouseDown(Velora& velora, const MouseEvent& event);
void lblStatusLabel_MouseDown(Velora& velora, const MouseEvent& event);

void mnuMinimize_Click(Velora& velora);

/// Ends the process without a word to the player. Doesn't return.
void mnuExitVelora_Click(Velora& velora);

/// Starts the encoder beside the program, or tells that it isn't there. The menu keeps its entry
/// hidden, so nobody comes here; who makes that entry visible has the command.
void mnuRunPressdeck_Click(Velora& velora);

/// The platform closes the window: the player stops, the process ends. Doesn't return.
void Form_Unload(Velora& velora);
