// Message and question boxes as procedures use them. Each waits, with events going on, until the
// user has closed it. A box takes the mouse away from the control that has it: the release of a
// button that is still held goes to nobody.
#pragma once

#include "state/velora.h"

/// Shows `text` with an OK button.
void ShowMessage(Velora& velora, const Text& text);

/// Asks a question with the buttons Yes and No. True only for Yes.
[[nodiscard]] bool AskYesNo(Velora& velora, const Text& question);

/// Asks for one line of text; empty if the user cancels.
[[nodiscard]] Text AskForText(Velora& velora, const Text& prompt, const Text& title);
