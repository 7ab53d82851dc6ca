// The window's own surface: what moves it, what pops up the menu, and the ways to end.
#include "support/use.h"

TEST(WindowBehaviour, BySurfaceAndButton) {
    ExpectUses({
        {"background", "", "picBackground +L -L +R -R +M -M", "BeginMove 1, PopupMenu, PopupMenu"},
        {"the form beside it", "", "beside +L -L +R -R +M -M", "BeginMove 1, PopupMenu, PopupMenu"},
        {"a light is background, too", "", "shpPercent +L -L +R -R", "BeginMove 1, PopupMenu"},
        {"texts move it by any button", "", "lblStatusLabel +L -L +R -R lblFilescroll +M -M +L -L",
         "BeginMove 1, BeginMove 2, BeginMove 4, BeginMove 1"},
        {"the visualisation and the volume do nothing", "track:1",
         "VFmp3scope1 +L -L +R -R picVolume +R -R", ""},
        {"minimise can be chosen again after a restore", "menu:mnuMinimize beside +R -R restored",
         "+R", "PopupMenu, window state 1"},
        {"exit does not stop", "track:1 menu:mnuExitVelora", "beside +R", "PopupMenu, EndProcess"},
        {"closing stops once", "track:1", "close", "Stop, EndProcess"},
        {"a missing encoder is told", "menu:mnuRunPressdeck", "beside +R",
         "PopupMenu, MessageBox Pressdeck could not be found"},
    });
}
