// Start-up: the command line as a raw text, the paths, the volume of the settings file.
#include "shell/startup.h"

#include <filesystem>
#include <fstream>

#include "platform/paths.h"
#include "playback/volume.h"
#include "support/velora_fixture.h"

namespace {

class StartUp : public VeloraTest {
protected:
    /// The volume after a start with such a settings file.
    Lines Restore(const std::string& bytes) {
        const auto path =
            std::filesystem::temp_directory_path() /
            ("velora-settings-" + std::to_string(reinterpret_cast<std::uintptr_t>(this)) + ".ini");
        std::ofstream(path, std::ios::binary) << bytes;
        velora.SettingsIni = PathText(path.string());
        RestoreVolume(velora);
        std::filesystem::remove(path);
        return TakePlayerLines();
    }
};

} // namespace

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

TEST_F(StartUp, TheVolumeOfTheFileIsSentAndShown) {
    form.lCurVol = 1;
    SetPicture(form.picVolumeArray[5], NewPicture());
    EXPECT_EQ(Restore("[Settings]\nVolume=5\n"), Lines{"Player.SetVolume 70"});
    EXPECT_EQ(form.lCurVol, 5);
    EXPECT_EQ(form.picVolume.Picture, form.picVolumeArray[5].Picture);
    EXPECT_EQ(Restore("[Settings]\nVolume=2.9\n"), Lines{"Player.SetVolume 30"});
}

TEST_F(StartUp, ASkinWithoutAVolumeObjectShowsNoStep) {
    EXPECT_EQ(Restore("[Settings]\nVolume=1\n"), Lines{"Player.SetVolume 0"});
    EXPECT_EQ(form.lCurVol, 0);
}

TEST_F(StartUp, WithoutAVolumeFromOneToSevenNothingIsSent) {
    for (const char* bytes :
         {"", "[Settings]\n", "[Settings]\nVolume=\n", "[Settings]\nVolume=0\n", "[Settings]\nVolume=8\n",
          "[Settings]\nVolume=loud\n", "[Settings]\nVolume=1e9\n"})
        EXPECT_EQ(Restore(bytes), Lines{}) << bytes;
}
