// The program's icon, for the window and its dialogs.
#pragma once

/// Gives the icon to all windows of the program, also to those that open later. The second call
/// does nothing.
void ShowProgramIcon();
