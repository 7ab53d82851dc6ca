// The program's icon, for the window and its dialogs.
#pragma once

/// Gives the icon to all windows of the program, those to come among them. Cheap when it has been
/// done.
void ShowProgramIcon();
