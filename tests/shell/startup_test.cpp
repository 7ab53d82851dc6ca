// Start-up, with the product's own skins: the command line as a raw text, the files, the volume.
#include "shell/startup.h"

#include "playback/volume.h"
#include "support/use.h"

TEST(StartUp, ShowsASkinAndStartsTheFileOfTheCommandLine) {
    const std::string skin =
        "picVolume fresh, picStop fresh, picPause fresh, picBackward fresh, picForward fresh, "
        "picPlaylist fresh, picEject fresh, ";
    const std::string companion = "Size 312 x 100, Region, skin 2";
    struct Row {
        const char *Name, *Arguments, *Before, *Deeds;
        std::string Outcome;
    };
    const Row rows[] = {
        {"without a command line", "", "", "start", skin + "skin 1, limit 2500"},
        {"a file: play shows while it plays", R"("C:\Music\a.mp3")", "", "start",
         skin + "Stop, TrackFile C:\\Music\\a.mp3, Play, Playing, track 1, skin 1, limit 2500, "
                "entry C:\\Music\\a.mp3 kind 3 flag 1, status Playing, title a ... , scope on, scroll on"},
        {"a refused file gives its message and no track", R"("C:\Music\a.txt")", "", "start",
         skin + "MessageBox That file format is not supported by Velora, skin 1, limit 2500"},
        {"a companion skin leaves the player alone and play usable", R"("a\b.mp3")", "start",
         "picPlaylist +L | -L | picPlay +L -L",
         "picPlaylist picPlaylist2, held by picPlaylist, Size 312 x 153, Region | "
         "picPlay picStop1, picPlaylist fresh, free, click, over picPlaylist1, " +
             companion + " | picPlay picPlay1, Stop, Stopped, status Ready, title , scope off, 260 ms"},
        {"playlist pressed, dragged off and back", "", "start picPlaylist", "+L | off | in | -L",
         "picPlaylist picPlaylist2, held by picPlaylist | picPlaylist picPlaylist1 | "
         "picPlaylist picPlaylist2 | picPlaylist fresh, free, click, over picPlaylist1, " +
             companion},
        {"playlist dragged off changes the skin without a click", "", "start picPlaylist +L off", "-L",
         "picPlaylist fresh, free, " + companion},
        {"playlist fresh under another button does nothing", "", "start picPlaylist", "+R -R", ""},
        {"playlist at rest under another button changes the skin", "", "start picPlaylist +L off lost in",
         "+R -R", "picPlaylist fresh, " + companion},
    };
    for (const Row& row : rows) {
        Program program;
        program.machine.Arguments = TextFromBytes(row.Arguments);
        program.Do(row.Before);
        EXPECT_EQ(program.Tell(row.Deeds), row.Outcome) << row.Name;
        EXPECT_EQ(program.directory.Names(), Lines{"VELORA_MAIN"}) << "nothing was written";
    }
}

TEST(StartUp, WithoutASkinTheFormIsBlank) {
    Program program;
    program.directory.Put("velskins.ini", "[Settings]\nCount=1\n[1]\nFilename=gone.vs4\n");
    SetPicture(program.form.picStop, Stage::NewPicture());
    program.form.picStop.Visible = true;
    program.form.lblFilescroll.Caption = u"old";
    program.form.VFmp3scope1.Visible = true;
    EXPECT_EQ(
        program.Tell("start"),
        "picStop hidden empty, picPlay hidden picPlay1, picPause hidden empty, picBackward hidden empty, "
        "picForward hidden empty, picPlaylist hidden empty, picEject hidden empty, "
        "MessageBox Couldn't find \"gone.vs4\", limit 2500, title , scope off, labels off and off");
}

TEST(StartUp, FindsItsFilesBesideTheProgramAndThePlaylistsBeforeTheCommandLine) {
    Program program;
    const std::string home = Utf8(program.machine.Directory);
    program.directory.Put("pressdeck.exe", "");
    program.directory.Put("velsettings.ini", "[Settings]\nVolume=4\n");
    program.directory.Put("velplaylists.ini",
                          "[Settings]\nCount=1\n[1]\nEnabled=True\nFile=l.m3u\nPath=" + home);
    program.directory.Put("l.m3u", "one.mp3\r\ntwo.mp3\r\n");
    program.machine.Arguments = u"\"C:\\Music\\a.mp3\"";
    program.Do("start menu:mnuRunPressdeck input:Mine file:\\new.m3u");
    EXPECT_EQ(program.velora.CurrentTrack, 3);
    EXPECT_EQ(program.player.Directories,
              (std::vector<Text>{u"\\home\\", program.machine.Directory + u"\\"}));
    EXPECT_EQ(program.NameOf(program.form.picVolume.Picture), "step 4");
    EXPECT_EQ(program.Tell("picEject shift +R -R | beside +R"),
              "Size 312 x 153, Region, ChooseFile Select Playlist ..., InputBox Velora: Name of playlist:, "
              "in \\ | PopupMenu, StartProgram ~\\pressdeck.exe");
    EXPECT_EQ(program.dialogs.LastRows.size(), 2U);
    EXPECT_EQ(program.velora.Playlists[2].Name, u"Mine");
}

TEST(CommandLine, LosesItsFirstAndItsLastCharacterWhateverTheyAre) {
    const std::tuple<TextView, TextView, TextView> rows[] = {
        {u"", u"", u""},
        {u"x", u"", u""},
        {u"\"\"", u"", u""},
        {u"\"C:\\Music\\a.mp3\"", u"C:\\Music\\", u"a.mp3"},
        {u"C:\\Music\\a.mp3", u":\\Music\\", u"a.mp"},
        {u"\"a.mp3\"", u"", u"a.mp3"},
        {u"\"C:\\a.mp3\" \"C:\\b.mp3\"", u"C:\\a.mp3\" \"C:\\", u"b.mp3"},
        {u"\"C:\\Music\\\"", u"C:\\Music\\", u""}};
    for (const auto& [raw, directory, fileName] : rows)
        EXPECT_EQ(FileOfCommandLine(raw), (CommandLineFile{Text(directory), Text(fileName)})) << Utf8(raw);
}

TEST(StartUp, RestoresAVolumeFromOneToSeven) {
    const auto sent = [](const std::string& line) {
        Program program;
        program.form.lCurVol = 0; // As on a skin without a volume object, which shows no step.
        program.velora.SettingsIni = program.directory.Put("v.ini", "[Settings]\n" + line + "\n");
        (void)program.journal.Take();
        RestoreVolume(program.velora);
        EXPECT_EQ(program.form.lCurVol, 0);
        return program.journal.Take();
    };
    for (const char* line : {"", "Volume=", "Volume=0", "Volume=8", "Volume=loud", "Volume=1e9"})
        EXPECT_EQ(sent(line), Lines{}) << line;
    EXPECT_EQ(sent("Volume=1"), Lines{"Player.SetVolume 0"});
    EXPECT_EQ(sent("Volume=2.9"), Lines{"Player.SetVolume 30"}) << "cut downward";
    EXPECT_EQ(sent("Volume=7"), Lines{"Player.SetVolume 100"});
}
