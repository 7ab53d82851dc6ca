// The comforts on the null platform: what is done, as words, and what comes of it at the player, on
// the bus and at the window.
#include "comforts/comforts.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

#include "comforts/media_address.h"
#include "platform/null/null_extras.h"
#include "platform/paths.h"
#include "playback/navigation.h"
#include "playback/player_events.h"
#include "support/null_platform.h"
#include "support/temp_directory.h"

namespace {

using namespace std::string_literals;

class Everyday : NullPlatform {
public:
    // A list of a letter for each entry, `x` for one that can be played.
    Everyday(const std::string& list, std::string keys)
        : state({window, dialogs, loop, pictures, machine, ear, scope}) {
        std::ranges::replace(keys, ' ', '\n');
        directory.Put("velsettings.ini", "[Comforts]\nEnabled=True\n" + keys);
        machine.Directory = PathText(directory.Path());
        for (const char kind : list)
            state.MediaList[++state.Count] = {true, u"\\m\\", Decimal(state.Count) + u".mp3",
                                              kind == 'x' ? 3 : 5, 1};
        state.MediaLimit = 9;
        window.Attach(state.frmMain);
        all.emplace(state, ear, ReadComforts(machine.Directory + u"\\velsettings.ini"), bus,
                    extras);
        ear.Attach(playerEvents);
        loop.AfterEvent = [this] { all->Look(); };
        all->Load();
        all->Begin();
        (void)journal.Take();
    }

    std::string Tell(const std::string& deeds) {
        std::istringstream rest(deeds);
        for (std::string word; rest >> word;) {
            const std::size_t colon = std::min(word.find(':'), word.size());
            const std::string verb = word.substr(0, colon);
            const std::string what = word.substr(std::min(colon + 1, word.size()));
            loop.Post([&] { Do(verb, what); });
            loop.Turn();
        }
        std::string told;
        for (const std::string& line : journal.Take())
            if (!line.starts_with("Player.TrackFile")) told += line + ", ";
        const char* const states[] = {"stopped", "playing", "paused", "forward", "backward"};
        return told + states[int(state.PlayerState)] + " " + std::to_string(state.CurrentTrack);
    }

private:
    void Do(const std::string& verb, const std::string& what) {
        const Long n = std::atoi(what.c_str());
        if (verb == "start") StartTrack(state, Integer(n));
        if (verb == "facts") ear.OnTrackLength(n), ear.OnTagInfo(u"T", u"A", u"", u"", u"", u"");
        if (verb == "at") ear.OnPosition(n);
        if (verb == "bad") ear.OnUnplayable();
        if (verb == "hand") NextTrack(state);
        if (verb == "quiet") (void)journal.Take();
        if (verb == "key") extras.Events->OnKey(Key(n), false);
        if (verb == "drop") extras.Events->OnDrop({AddressOfPath(machine.Directory) + "/" + what});
        if (verb == "row") extras.Row = std::size_t(n);
        if (verb == "menu") state.Listeners.MenuChosen(what);
        if (verb == "file") directory.Put(what, "#EXTM3U\nnew.mp3\nold.wav\n/b/last.MP2");
        if (verb == "ini") journal.Note(Contents());
        if (!bus.Requests) return;
        MediaRequests& ask = *bus.Requests;
        if (verb == "next") ask.OnNext();
        if (verb == "flood")
            for (int call = 0; call < 1000; ++call)
                ask.OnNext();
        if (verb == "previous") ask.OnPrevious();
        if (verb == "playpause") ask.OnPlayPause();
        if (verb == "stop") ask.OnStop();
        if (verb == "seek") ask.OnSeek(std::int64_t{n} * 1000);
        if (verb == "place") ask.OnSetPosition(1, std::int64_t{n} * 1000);
        if (verb == "loud")
            journal.Note("answer " + std::to_string(int(ask.OnVolume(std::stod(what)))));
        if (verb == "open") journal.Note("answer " + std::to_string(int(ask.OnOpenUri(what))));
    }

    std::string Contents() {
        std::ifstream file(directory.Path("velsettings.ini"));
        std::string text{std::istreambuf_iterator<char>(file), {}};
        std::ranges::replace(text, '\n', ' ');
        return text;
    }

    TempDirectory directory;
    NullPictures pictures;
    PlayerEar ear{player, loop};
    Velora state;
    PlayerHandlers playerEvents{state};
    NullMediaBus bus{journal};
    NullExtras extras{journal};
    std::optional<Comforts> all;
};

TEST(Comforts, WhatIsDoneAndWhatComesOfIt) {
    const std::string step = "Player.Stop, Player.Stop, Player.Play, Changed Metadata CanSeek, ";
    const std::string one = "start:1 facts:9000 at:1000 quiet ", tail = "at:8700 ";
    const std::string limit = "MessageBox Media Limit reached, ";
    const std::string started = "Player.Stop, Player.Play, Changed PlaybackStatus Metadata, ";
    const struct {
        std::string Name, List, Keys, Deeds, Outcome;
    } rows[] = {
        {"the desktop sees a track play through its last piece, and the next one begin", "xx", "",
         one + tail + "at:9000", step + "playing 2"},
        {"the last track ends", "x", "", one + tail + "at:9000",
         "Changed PlaybackStatus, stopped 1"},
        {"going on is switched off", "xx", "GoOn=False", one + tail + "at:9000",
         "Changed PlaybackStatus, stopped 1"},
        {"a short track is reset once", "xx", "Repeat=True", one + "at:9000", step + "playing 2"},
        {"a track that can't be played is passed over", "xxx", "", "start:1 quiet bad",
         "Player.Stop, Player.Stop, Player.Play, Changed Metadata, playing 2"},
        {"where none can be played it stops", "xx", "Repeat=True", "start:1 bad bad quiet bad",
         "Player.Stop, Changed PlaybackStatus, stopped 1"},
        {"backward passes over it backward", "xxx", "", "start:3 facts:9 at:1 previous quiet bad",
         "Player.Stop, Player.Stop, Player.Play, Changed Metadata, playing 1"},
        {"a pause in the last piece is one", "x", "", one + tail + "playpause playpause",
         "Player.TogglePause, Changed PlaybackStatus, Player.TogglePause, "
         "Changed PlaybackStatus, playing 1"},
        {"a stop there keeps the next one back", "xx", "", one + tail + "stop at:9000",
         "Player.Stop, Changed PlaybackStatus CanSeek, stopped 1"},
        {"a jump is told", "x", "", one + "seek:-5000", "Player.SeekBy -1000, Seeked 0, playing 1"},
        {"one beyond the end is the next track", "xx", "", one + "seek:8001", step + "playing 2"},
        {"a place outside is no place", "xx", "", one + "place:-1 place:9001 place:9000",
         "Player.SeekBy 8000, Seeked 9000, playing 1"},
        {"nor is one in another track", "xx", "", "start:2 facts:9000 at:1000 quiet place:5000",
         "playing 2"},
        {"a flood is a few steps", "xxxxx", "", one + "flood",
         [&] {
             std::string all;
             for (int count = 0; count < 8; ++count)
                 all += "Player.Stop, Player.Stop, Player.Play, Changed Metadata" +
                        std::string(count ? ", " : " CanSeek, ");
             return all + "playing 4";
         }()},
        {"the nearest step of the volume", "", "",
         "loud:0.64 loud:0.62 loud:-3 loud:1e308 loud:nan",
         "Player.SetVolume 60, answer 0, Changed Volume, answer 0, Player.SetVolume 0, answer 0, "
         "Changed Volume, Player.SetVolume 100, answer 0, Changed Volume, answer 1, stopped 0"},
        {"a step by the keys", "", "", "key:4 key:5",
         "Player.SetVolume 90, Changed Volume, stopped 0"},
        {"play by a key starts what is there", "xx", "", "key:1", started + "playing 1"},
        {"and stops", "xx", "", one + "key:1",
         "Player.Stop, Changed PlaybackStatus CanSeek, stopped 1"},
        {"no keys", "xx", "Keys=False", "key:1 key:4 key:10", "stopped 0"},
        {"jump", "xxx", "", "start:1 quiet row:3 key:9",
         "ChooseRow 3 1, Player.Stop, Player.Play, Changed Metadata, playing 3"},
        {"a list that is dropped", "x", "", "file:l.m3u drop:l.m3u",
         started.substr(0, started.find(" M")) + " Metadata CanGoNext CanGoPrevious, playing 2"},
        {"what can't be played is told once", "", "", "drop:a.txt",
         "MessageBox That file format is not supported by Velora, stopped 0"},
        {"the list is full", "xxxxxxxxx", "", "drop:a.mp3", limit + "stopped 0"},
        {"addresses of the bus", "", "",
         "open:http://a/b.mp3 open:file:///a%0.mp3 open:file:///a.c",
         "answer 1, answer 1, answer 2, stopped 0"},
        {"a file of the bus", "", "", "open:file://localhost/b/%C3%A4.mp3",
         "answer 0, Player.Stop, Player.Play, Changed PlaybackStatus Metadata CanPlay CanPause, "
         "playing 1"},
        {"a switch of the menu holds at once and in the file", "", "", "menu:mnuMediaKeys ini",
         "Door open, Disappear, [Comforts] Enabled=True MediaKeys=False , stopped 0"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Everyday(row.List, row.Keys).Tell(row.Deeds), row.Outcome) << row.Name;
}

TEST(Comforts, AChangeIsWrittenOnceFiveSecondsAfterTheLast) {
    RememberClock clock;
    clock.SetWritten({70, 1});
    EXPECT_FALSE(clock.Note({70, 1}, 0));
    EXPECT_TRUE(clock.Note({90, 1}, 100));
    EXPECT_FALSE(clock.Note({100, 1}, 4000)) << "one waits already";
    EXPECT_EQ(clock.DueIn(5100), 3900);
    EXPECT_EQ(clock.DueIn(9000), 0);
    clock.SetWritten({100, 1});
    EXPECT_TRUE(clock.IsWritten());
    EXPECT_TRUE(clock.Note({100, 2}, 9500));
}

} // namespace
