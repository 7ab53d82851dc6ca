// Start-up, with the product's own skins: the command line as a raw text, the files, the volume.
#include "shell/startup.h"

#include "playback/volume.h"
#include "support/use.h"

TEST(StartUp, ShowsASkinAndStartsTheFileOfTheCommandLine) {
    const std::string skin =
        "picVolume fresh, picStop fresh, picPause fresh, picBackward fresh, picForward fresh, "
        "picPlaylist fresh, picEject fresh, ";
    const std::string companion = "Size 312 x 100, Region, skin 2";
    ExpectUses<Program>({
        {"without a command line", "", "start", skin + "skin 1, limit 2500"},
        {"a file: play shows while it plays", R"(command:"C:\Music\a.mp3")", "start",
         skin +
             "Stop, TrackFile C:\\Music\\a.mp3, Play, Playing, track 1, skin 1, limit 2500, entry "
             "C:\\Music\\a.mp3 kind 3 flag 1, status Playing, title a ... , scope on, scroll on"},
        {"a refused file gives its message and no track", R"(command:"C:\Music\a.txt")", "start",
         skin + "MessageBox That file format is not supported by Velora, skin 1, limit 2500"},
        {"a companion skin leaves the player alone and play usable", R"(command:"a\b.mp3" start)",
         "picPlaylist +L | -L | picPlay +L -L",
         "picPlaylist picPlaylist2, held by picPlaylist, Size 312 x 153, Region | "
         "picPlay picStop1, picPlaylist fresh, free, click, over picPlaylist1, " +
             companion +
             " | picPlay picPlay1, Stop, Stopped, status Ready, title , scope off, 260 ms"},
        {"playlist dragged off changes the skin without a click", "start picPlaylist +L off", "-L",
         "picPlaylist fresh, free, " + companion},
        {"without a skin the form is blank, whatever it showed",
         R"(picPlay file:\a.mp3 +L -L put:velskins.ini=[Settings]&Count=1&[1]&Filename=gone.vs4)",
         "start",
         "picStop hidden empty, picPlay hidden picPlay1, picPause hidden empty, picBackward hidden "
         "empty, picForward hidden empty, picPlaylist hidden empty, picEject hidden empty, "
         "MessageBox Couldn't find \"gone.vs4\", limit 2500, title , scope off, labels off and "
         "off"},
    });
}

TEST(StartUp, FindsItsFilesBesideTheProgramAndThePlaylistsBeforeTheCommandLine) {
    Program program;
    program.Do(
        "put:pressdeck.exe= put:velsettings.ini=[Settings]&Volume=4 put:l.m3u=one.mp3&two.mp3& "
        "put:velplaylists.ini=[Settings]&Count=5&[1]&Enabled=1&File=l.m3u&Path=~&[2]&Path=\\off&"
        "[3]&Enabled=1&Path=\\more&[5]&Enabled=1&Path=~ "
        "command:\"C:\\Music\\a.mp3\" start menu:mnuRunPressdeck input:Mine file:\\new.m3u");
    EXPECT_EQ(program.velora.CurrentTrack, 3);
    EXPECT_EQ(program.player.Directories,
              (std::vector<Text>{u"\\home\\", program.machine.Directory + u"\\", u"\\more\\"}));
    EXPECT_EQ(program.NameOf(program.form.picVolume.Picture), "step 4");
    EXPECT_EQ(program.Tell("picEject shift +R -R | beside +R"),
              "Size 312 x 153, Region, ChooseFile Select Playlist ..., InputBox Velora: Name of "
              "playlist:, in \\ | PopupMenu, StartProgram ~\\pressdeck.exe");
    EXPECT_EQ(program.dialogs.LastRows.size(), 2U);
    EXPECT_EQ(program.velora.Playlists[6].Name, u"Mine");
}

TEST(CommandLine, LosesItsFirstAndItsLastCharacterWhateverTheyAre) {
    const std::tuple<TextView, TextView, TextView> rows[] = {
        {u"", u"", u""},
        {u"x", u"", u""},
        {u"C:\\Music\\a.mp3", u":\\Music\\", u"a.mp"},
        {u"\"a.mp3\"", u"", u"a.mp3"},
        {u"\"C:\\a.mp3\" \"C:\\b.mp3\"", u"C:\\a.mp3\" \"C:\\", u"b.mp3"},
        {u"\"C:\\Music\\\"", u"C:\\Music\\", u""}};
    for (const auto& [raw, directory, fileName] : rows)
        EXPECT_EQ(FileOfCommandLine(raw), (CommandLineFile{Text(directory), Text(fileName)}))
            << Utf8(raw);
}

TEST(StartUp, RestoresAVolumeFromOneToSevenCutDownward) {
    Program program;
    program.form.lCurVol = 0; // As on a skin without a volume object, which shows no step.
    (void)program.journal.Take();
    for (const char* value : {"", "0", "1", "2.9", "7", "8", "loud", "1e9"}) {
        program.velora.SettingsIni = program.directory.Put("v.ini", "[Settings]\nVolume="s + value);
        RestoreVolume(program.velora);
    }
    EXPECT_EQ(program.journal.Take(),
              (Lines{"Player.SetVolume 0", "Player.SetVolume 30", "Player.SetVolume 100"}));
    EXPECT_EQ(program.form.lCurVol, 0);
}
