// The six buttons: what they show while the mouse works on them, when they click, and what they
// command, by picture, state, mouse button and keys.
#include "playback/buttons.h"

#include "support/use.h"

namespace {

const std::string kStops = "Stop, Stopped, status Ready, title , scope off, 260 ms";
const std::string kHolds = "TogglePause, Paused, status Paused, scope off";

std::string StepsTo(const std::string& track) {
    return "Stop, Stop, TrackFile " + track + "_x.mp3, Play, track " + track + ", title " + track +
           "_x ... , 460 ms";
}

struct OrdinaryButton {
    std::string Name, Holder, Command;
    bool OffCommands, RightCommands, RightOnFreshCommands;
};

} // namespace

TEST(Buttons, OrdinaryOnesByGesture) {
    const OrdinaryButton buttons[] = {
        {"picPause", "picPause", kHolds, true, true, true},
        {"picForward", "picForeward", StepsTo("3"), true, true, false},
        {"picBackward", "picBackward", StepsTo("1"), true, true, true},
        {"picEject", "picEject", "ChooseFile Select Media ...", false, false, true},
        {"picPlaylist", "picPlaylist", "", false, false, false},
    };
    for (const auto& [name, holder, command, offCommands, rightCommands, rightOnFreshCommands] :
         buttons) {
        const auto told = [command = command](bool commands) { return commands ? command : ""s; };
        const std::string rest = name + " " + holder + "1", down = name + " " + holder + "2";
        const std::string held = down + ", held by " + name,
                          then = command.empty() ? "" : ", " + command;
        const std::string click = rest + ", free, click, over " + holder + "1" + then;
        ExpectUses({
            {name + " pressed, dragged off and back", "track:2 " + name, "+L | off | in | -L",
             held + " | " + rest + " | " + down + " | " + click},
            {name + " dragged off", "track:2 " + name, "+L off -L", told(offCommands)},
            {name + " under another one", "track:2 " + name, "+R off in -R", told(rightCommands)},
            {name + " fresh takes a press", "track:2 " + name + " fresh", "+L | -L",
             held + " | " + click},
            {name + " fresh under another button", "track:2 " + name + " fresh", "+M off in -M",
             told(rightOnFreshCommands)},
        });
    }
}

TEST(Buttons, PlayAndStop) {
    const std::string ask = "ChooseFile Select Media ...", stops = "picPlay picPlay1, " + kStops;
    ExpectUses({
        {"stopped: a drag-off is final", "", "picPlay +L | off | in | -L",
         "picPlay picPlay2, held by picPlay | picPlay picPlay1 |  | free"},
        {"stopped: asks without a click; cancelled, all is as it was", "", "picPlay +L -L", ask},
        {"stopped: starts that file, not the list", "", "picPlay file:\\music\\new.mp2 +L -L",
         "picPlay picStop1, ChooseFile Select Media ..., Stop, TrackFile \\music\\new.mp2, Play, "
         "Playing, track 4, entry \\music\\new.mp2 kind 2 flag 0, in \\music, status Playing, "
         "title new ... , scope on, scroll on"},
        {"playing: a drag-off is final", "track:1", "picPlay +L | off | in | -L",
         "picPlay picStop2, held by picPlay | picPlay picStop1 |  | free"},
        {"playing: stops without a click", "track:1", "picPlay +L -L", stops},
        {"paused: stops", "track:1 picPause +L -L", "picPlay +L -L",
         "picPlay picPlay1, Stop, Stopped, status Ready, title , 260 ms"},
        {"fresh: no press", "track:1 picPlay fresh", "+L | -L +R -R", "held by picPlay | free"},
        {"playing, but showing play: a click only shows stop, and until then pause does nothing",
         "track:1 showsplay", "picPause +L -L | picPlay +L -L | +L -L",
         "click, over picPause1 | picPlay picStop1 | " + stops},
    });
}

TEST(Buttons, OthersInOtherStates) {
    const std::string ask = "click, over picEject1, ChooseFile Select Media ...";
    const std::string edge = " | picPause picPause1 |  | picPause picPause2";
    ExpectUses({
        {"pause, paused: goes on", "track:1 picPause +L -L", "+R -R",
         "TogglePause, Playing, status Playing, scope on"},
        {"pause, stopped: only clicks", "", "picPause +L -L", "click, over picPause1"},
        {"forward, paused: shift is a plain step, which plays", "track:2 picPause +L -L",
         "picForward shift +R -R",
         "Stop, Stop, TrackFile 3_x.mp3, Play, Playing, track 3, status Playing, title 3_x ... , "
         "scope on, 460 ms"},
        {"eject starts the file, here one that the list has", "track:1",
         "picEject file:\\music\\2_X.MP3 +L -L",
         ask + ", Stop, TrackFile 2_x.mp3, Play, track 2, in \\music, title 2_x ... "},
        {"eject with a key asks for a playlist and its name; each box takes the mouse", "",
         "picEject ctrl file:\\lists\\l.m3u +L later:picPause&+L -L",
         "picPause picPause2, click, over picEject1, ChooseFile Select Playlist ..., "
         "InputBox Velora: Name of playlist:, in \\lists"},
        {"with shift, too; that dialog takes the mouse from a button that is still held", "",
         "picEject +L +R shift -L | -R",
         "click, over picEject1, ChooseFile Select Playlist ... | "},
        {"the limits are -1 and the size, and both are strict", "picPause +L",
         "30,5 | 31,5 | 30,5 | 29,5 | 5,20 | 5,21 | 5,20 | 5,19 | "
         "-1,5 | -2,5 | -1,5 | 0,5 | 5,-1 | 5,-2 | 5,-1 | 5,0",
         edge + " | " + edge + " | " + edge + " | " + edge},
    });
}

TEST(Seeking, Gestures) {
    ExpectUses({
        {"the first tick only hides, every second one adds a step; none comes after the release",
         "track:1 untitled", "picForward shift +L | 0.2s | 0.2s | 1s | -L | 2s",
         "picForward picForeward2, held by picForward, SeekingForward, blink forward on | "
         "picForward hidden picForeward2, 200 ms | picForward picForeward2, seek 10, 200 ms | "
         "picForward hidden picForeward2, seek 30, 1000 ms | "
         "picForward picForeward1, free, click, Seek 30, Playing, blink forward off | 2000 ms"},
        {"backward, by any mouse button; each gesture begins at zero", "track:1 untitled",
         "picBackward shift +R 1.8s | -R | +R 0.8s -R",
         "picBackward hidden picBackward1, held by picBackward, SeekingBackward, seek -40, blink "
         "backward on, 1800 ms | picBackward picBackward1, free, Seek -40, Playing, blink backward "
         "off | Seek -20, seek -20, 800 ms"},
        {"too short, dragged off, shift let go: no click, but the seek", "track:1",
         "picForward shift +L off shift -L", "Seek 0"},
        {"a step that leaves the range of an Integer is skipped", "track:1 untitled",
         "picForward shift +R 1400s -R", "Seek 32760, seek 32760, 1400000 ms"},
        {"shift with more keys: steps", "track:1", "picForward shift ctrl +R -R", StepsTo("2")},
        {"another key is a plain step", "track:1", "picBackward ctrl +R -R", StepsTo("3")},
        {"a lost release is delivered", "track:1", "picForward shift +L lost",
         "click, over picForeward1, Seek 0"},
        {"a lost one of another is delivered", "track:1", "picBackward shift +R lost", "Seek 0"},
    });
}
