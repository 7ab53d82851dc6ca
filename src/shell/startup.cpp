// The order of the steps matters: the skins need the filters, the command line needs the lists.
#include "shell/startup.h"

#include "platform/paths.h"
#include "playback/navigation.h"
#include "playback/volume.h"
#include "playlist/media_list.h"
#include "playlist/playlist_catalogue.h"
#include "shell/window_behaviour.h"
#include "skin/skin_catalogue.h"
#include "state/file_dialogs.h"

namespace {

constexpr Integer kMediaLimit = 2500;
constexpr Integer kCommandLineFlag = 1;

} // namespace

void StartFromCommandLine(Velora& velora, TextView commandLine) {
    CommandLineFile file = FileOfCommandLine(commandLine);
    if (file.Directory.empty()) return;
    StartTrack(velora, AddMedia(velora, kCommandLineFlag, file.Directory, file.FileName));
}

CommandLineFile FileOfCommandLine(TextView commandLine) {
    const TextView path = WithoutFirstCharacter(WithoutLastCharacter(commandLine));
    const Text fileName = GetFileName(path);
    return {Text(path.substr(0, path.size() - fileName.size())), fileName};
}

void Form_Load(Velora& velora) {
    ResetObjects(velora.frmMain);
    InitialiseApplication(velora);
    StartFromCommandLine(velora, velora.System.CommandLine());
    SetPicture(velora.frmMain.picPlay, velora.frmMain.picPlay1.Picture);
}

void InitialiseApplication(Velora& velora) {
    InitialiseFilters(velora.MediaFilter, velora.PlaylistFilter, velora.SkinFilter);
    velora.MediaLimit = kMediaLimit;
    velora.PlaylistsIni = velora.System.IniFile(u"\\velplaylists.ini");
    velora.SettingsIni = velora.System.IniFile(u"\\velsettings.ini");
    velora.SkinsIni = velora.System.IniFile(u"\\velskins.ini");
    LoadPlaylistCatalogue(velora);
    LoadSkinCatalogue(velora);
    RestoreVolume(velora);
}
