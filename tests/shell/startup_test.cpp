// Start-up: the command line as a raw text, the paths, the volume of the settings file.
#include "shell/startup.h"

#include <filesystem>

#include "platform/paths.h"
#include "playback/volume.h"
#include "support/temp_directory.h"
#include "support/velora_fixture.h"

namespace {

class StartUp : public VeloraTest {
protected:
    /// The volume after a start with such a settings file.
    Lines Restore(const std::string& bytes) {
        velora.SettingsIni = directory.Put("velsettings.ini", bytes);
        RestoreVolume(velora);
        return TakePlayerLines();
    }

    TempDirectory directory;
};

// A whole start with the product's own skins, in a directory of their own.
class WholeStart : public VeloraTest {
protected:
    WholeStart() {
        const std::string skins = directory.Path("VELORA_MAIN");
        std::filesystem::create_directory_symlink(VELORA_SOURCE_DIR "/app/VELORA_MAIN", skins);
        for (const auto& entry : std::filesystem::recursive_directory_iterator(skins + "/"))
            pictures.Known[PathText(entry.path().string())] =
                entry.path().stem() == "background" ? NullPictures::Size{500, 300} : NullPictures::Size{8, 8};
        machine.Directory = WithoutBackslash(directory.PathText());
        velora.MediaLimit = 0;
    }
    static Text WithoutBackslash(const Text& path) { return path.substr(0, path.size() - 1); }

    TempDirectory directory;
};

} // namespace

TEST_F(WholeStart, WithoutACommandLineShowsASkinAtRest) {
    Form_Load(velora);
    EXPECT_EQ(TakePlayerLines(), Lines{});
    EXPECT_EQ(velora.PlayerState, PlayerState::Stopped);
    EXPECT_EQ(velora.CurrentSkin, 1);
    EXPECT_EQ(velora.MediaLimit, 2500);
    EXPECT_EQ(velora.SettingsIni, machine.Directory + u"\\velsettings.ini");
    EXPECT_EQ(velora.PlaylistsIni, machine.Directory + u"\\velplaylists.ini");
    EXPECT_EQ(velora.SkinsIni, machine.Directory + u"\\velskins.ini");
    EXPECT_EQ(velora.MediaFilter.size(), 9U);
    EXPECT_EQ(form.lblStatusLabel.Caption, u"Ready");
    EXPECT_EQ(form.lblFilescroll.Caption, u"");
    EXPECT_NE(form.picPlay1.Picture, nullptr);
    EXPECT_EQ(form.picPlay.Picture, form.picPlay1.Picture);
    EXPECT_EQ(directory.Names(), Lines{"VELORA_MAIN"}) << "nothing was written";
}

TEST_F(WholeStart, ByTheCommandLineShowsPlayWhilePlaying) {
    machine.Arguments = u"\"C:\\Music\\a.mp3\"";
    Form_Load(velora);
    EXPECT_EQ(TakePlayerLines(), (Lines{"Player.Stop", "Player.TrackFile C:\\Music\\a.mp3", "Player.Play"}));
    EXPECT_EQ(velora.PlayerState, PlayerState::Playing);
    EXPECT_EQ(form.picPlay.Picture, form.picPlay1.Picture);
}

TEST_F(WholeStart, ARefusedFileGivesItsMessageAndNoTrack) {
    machine.Arguments = u"\"C:\\Music\\a.txt\"";
    Form_Load(velora);
    EXPECT_EQ(journal.Take(), Lines{"MessageBox That file format is not supported by Velora"});
    EXPECT_EQ(velora.PlayerState, PlayerState::Stopped);
}

TEST_F(WholeStart, ThePlaylistsComeInFrontOfTheCommandLine) {
    directory.Put("velplaylists.ini",
                  "[Settings]\nCount=1\n[1]\nEnabled=True\nFile=l.m3u\nPath=" + Utf8(machine.Directory));
    directory.Put("l.m3u", "one.mp3\r\ntwo.mp3\r\n");
    machine.Arguments = u"\"C:\\Music\\a.mp3\"";
    Form_Load(velora);
    EXPECT_EQ(velora.CurrentTrack, 3);
    EXPECT_EQ(player.Directories, (std::vector<Text>{u"\\home\\", machine.Directory + u"\\"}));
}

TEST_F(WholeStart, AStoredVolumeShowsOnTheSkin) {
    directory.Put("velsettings.ini", "[Settings]\nVolume=4\n");
    Form_Load(velora);
    EXPECT_EQ(TakePlayerLines(), Lines{"Player.SetVolume 60"});
    EXPECT_EQ(form.lCurVol, 4);
    EXPECT_NE(form.picVolume.Picture, nullptr);
    EXPECT_EQ(form.picVolume.Picture, form.picVolumeArray[4].Picture);
}

TEST_F(WholeStart, TheCompanionSkinLeavesThePlayerAloneAndPicPlayUsable) {
    machine.Arguments = u"\"C:\\Music\\a.mp3\"";
    Form_Load(velora);
    (void)journal.Take();
    Click(form.picPlaylist);
    EXPECT_EQ(velora.CurrentSkin, 2);
    EXPECT_EQ(velora.PlayerState, PlayerState::Playing);
    EXPECT_EQ(form.picPlay.Picture, form.picStop1.Picture);
    Click(form.picPlay);
    EXPECT_EQ(TakePlayerLines(), Lines{"Player.Stop"});
    Click(form.picPlaylist, kRightButton);
    EXPECT_EQ(velora.CurrentSkin, 2) << "a right click on the fresh button does nothing";
}

TEST(CommandLine, LosesItsFirstAndItsLastCharacterWhateverTheyAre) {
    struct Row {
        TextView Raw;
        CommandLineFile Expected;
    };
    const Row rows[] = {
        {u"", {u"", u""}},
        {u"x", {u"", u""}},
        {u"\"\"", {u"", u""}},
        {u"\"C:\\Music\\a.mp3\"", {u"C:\\Music\\", u"a.mp3"}},
        {u"C:\\Music\\a.mp3", {u":\\Music\\", u"a.mp"}},
        {u"\"a.mp3\"", {u"", u"a.mp3"}},
        {u"\"C:\\a.mp3\" \"C:\\b.mp3\"", {u"C:\\a.mp3\" \"C:\\", u"b.mp3"}},
        {u"\"C:\\Music\\\"", {u"C:\\Music\\", u""}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(FileOfCommandLine(row.Raw), row.Expected) << Utf8(row.Raw);
}

TEST_F(StartUp, ASkinWithoutAVolumeObjectShowsNoStep) {
    EXPECT_EQ(Restore("[Settings]\nVolume=1\n"), Lines{"Player.SetVolume 0"});
    EXPECT_EQ(Restore("[Settings]\nVolume=2.9\n"), Lines{"Player.SetVolume 30"}) << "cut downward";
    EXPECT_EQ(form.lCurVol, 0);
}

TEST_F(StartUp, WithoutAVolumeFromOneToSevenNothingIsSent) {
    for (const char* bytes :
         {"", "[Settings]\n", "[Settings]\nVolume=\n", "[Settings]\nVolume=0\n", "[Settings]\nVolume=8\n",
          "[Settings]\nVolume=loud\n", "[Settings]\nVolume=1e9\n"})
        EXPECT_EQ(Restore(bytes), Lines{}) << bytes;
}
