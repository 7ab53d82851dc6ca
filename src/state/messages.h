// The message box as procedures use it.
#pragma once

#include "state/velora.h"

/// Shows `text` with an OK button and waits until the user has closed it. The mouse is nobody's
/// afterwards.
void ShowMessage(Velora& velora, const Text& text);
