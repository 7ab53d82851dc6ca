// What the player reports, and when it counts.
#include "support/use.h"

TEST(PlayerReports, InEachState) {
    ExpectUses({
        {"tags show only with the next stream info", "track:1", "tags | stream",
         "tags Moon Tide | rates 320 48000, title  ..:: velora is curr"},
        {"a position", "track:1 tags length:1000", "at:410 | at:200 | at:0",
         "caption ..:: moon - tide 41% ::.. velora , status Playing 41%, lights 5 | "
         "caption ..:: moon - tide 20% ::.. velora , status Playing 20% | "},
        {"the end, and the next track, which clears nothing of what was told",
         "track:1 tags length:900 at:450", "at:900 | track:1 at:450",
         "picPlay picPlay1, Stopped, caption ..:: velora-pro.team qu><llo ::.., status Ready, "
         "title , lights 0, scope off, 260 ms | picPlay picStop1, Stop, TrackFile 1_x.mp3, Play, "
         "Playing, caption ..:: moon - tide 50% ::.. velora , status Playing 50%, title 1_x ... , "
         "lights 6, scope on"},
        {"stopped: the scope hears", "length:1000", "at:410 at:1000 bars:7", "Scope.ShowVisData 7"},
        {"seeking: only the scope hears, so an end goes unnoticed",
         "track:1 length:1000 picForward shift +L", "at:410 at:1000 bars:7", "Scope.ShowVisData 7"},
        {"a second end during the reset changes nothing", "track:1 length:1000 later:at:1000",
         "at:1000", "picPlay picPlay1, Stopped, status Ready, title , scope off, 260 ms"},
        {"a track can end in a dialog", "track:1 length:1000 picEject later:at:1000 +L", "-L",
         "picPlay picPlay1, picEject picEject1, free, click, over picEject1, ChooseFile Select "
         "Media ..., Stopped, status Ready, title , scope off, 260 ms"},
    });
}
