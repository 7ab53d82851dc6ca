// The form as it comes up, literal by literal.
#include <gtest/gtest.h>

#include "support/form_text.h"

TEST(Form, ComesUpAsItWasDrawn) {
    const Form form;
    std::string expected =
        "frmMain 5835x4185 0 ..:: velora.team-qu><llo::..; step 0; tmrSeekBackward 200 off; "
        "tmrSeekForward 200 off; tmrScrollFiletitle 100 off; 0 mnuHidden hidden &Hidden; 1 "
        "mnuVelora ::QU><LLO.VELORA::; 1 mnuRunPressdeck hidden ::RUN.PRESSDECK::; 1 "
        "mnuRunTrackhut hidden ::RUN.TRACKHUT::; 1 mnuSep397927329 hidden -; 1 mnuPlaylists hidden "
        "::PLAYLISTS::; 2 mnuPlaylist grey <Empty>; 1 mnuSep38267893692 -; 1 mnuMinimize "
        "::MINIMIZE::; 1 mnuExitVelora ::EXIT QU><LLO.VELORA::; picBackground 8,8 369x89 hidden -; "
        "picMemoryGFX 8,104 369x89 hidden -; picActiveX 8,200 369x49 hidden -; picVolume 248,8 "
        "33x33 -; picPlay 8,8 33x33 hidden -; picPause 48,8 33x33 hidden -; picBackward 88,8 33x33 "
        "hidden -; picForward 128,8 33x33 hidden -; picPlaylist 168,8 33x33 hidden -; picEject "
        "208,8 33x33 hidden -; picBackground1 8,8 33x33 hidden -; picBackground2 8,48 33x33 hidden "
        "-; picPlay1 48,8 33x33 hidden -; picPlay2 48,48 33x33 hidden -; picPause1 88,8 33x33 "
        "hidden -; picPause2 88,48 33x33 hidden -; picStop1 128,8 33x33 hidden -; picStop2 128,48 "
        "33x33 hidden -; picBackward1 168,8 33x33 hidden -; picBackward2 168,48 33x33 hidden -; "
        "picForeward1 208,8 33x33 hidden -; picForeward2 208,48 33x33 hidden -; picPlaylist1 248,8 "
        "33x33 hidden -; picPlaylist2 248,48 33x33 hidden -; picEject1 288,8 33x33 hidden -; "
        "picEject2 288,48 33x33 hidden -; picStop 88,8 33x33 hidden -; picVolumeArray 328,48 33x33 "
        "hidden - - - - - - - -; lblStatusLabel 8,48 33x33 11 80ffff Ready; lblFilescroll 48,48 "
        "33x33 9 80ffff ; Label1 8,0 81x17 11 ffffff ActiveX; VFmp3scope1 288,8 33x33; shpPercent "
        "288,64 5x5 form 2 0 0";
    for (int light = 1; light <= kLights; ++light)
        expected += "; shpPercent 288,64 5x5 hidden unmade form 2 0 0";
    EXPECT_EQ(Changes({}, FormText(form)), expected);
}
