// The catalogue is read and never written: a run always begins with the skin that its owner put
// there.
#include "skin/skin_catalogue.h"

#include "platform/paths.h"
#include "platform/profile_strings.h"
#include "skin/apply_skin.h"
#include "skin/load_skin.h"
#include "state/file_dialogs.h"
#include "state/messages.h"

namespace {

constexpr TextView kSkinDirectory = u"\\VELORA_MAIN";
constexpr TextView kDefaultSkin = u"\\VELORA_MAIN\\velora.vs4";

void LoadAndApply(Velora& velora, const Text& path) {
    ApplySkin(velora, LoadSkinFile(velora, path));
}

// One entry; `isLast` of the last number, whose missing file brings up the first skin.
void LoadEntry(Velora& velora, const Text& path, bool isLast) {
    if (path.empty()) return;
    if (FileExists(path)) {
        const Integer slot = LoadSkinFile(velora, path);
        if (slot == velora.LastSkin) ApplySkin(velora, slot);
        return;
    }
    ShowMessage(velora, u"Couldn't find \"" + path + u"\"");
    if (isLast) ApplySkin(velora, 1);
}

void LoadDefaultSkin(Velora& velora) {
    const Text directory = velora.System.ApplicationDirectory();
    const Text path = directory + Text(kDefaultSkin);
    if (FileExists(path)) {
        LoadAndApply(velora, path);
        return;
    }
    if (!AskYesNo(velora, u"Unable to locate skin, find yourself?")) velora.System.EndProcess();
    LoadAndApply(velora, OpenFileDialog(velora, velora.SkinFilter, u"Select skin ...",
                                        directory + Text(kSkinDirectory)));
}

// The slot filled last from the file at `path`; 0 if there is none.
Integer LatestSlotOf(const Velora& velora, const Text& path) {
    const std::optional<std::string> file = FindPath(path);
    for (Integer slot = velora.SkinCount; file && slot > 0; --slot) {
        const SkinRecord& skin = velora.Skins[slot];
        if (FindPath(skin.Directory + skin.FileName) == file) return slot;
    }
    return 0;
}

} // namespace

void LoadSkinCatalogue(Velora& velora) {
    ProfileReader catalogue(velora.SkinsIni);
    Integer count = 0;
    ReadProfileNumber(catalogue, u"Settings", u"LastSkin", u"0", velora.LastSkin);
    ReadProfileNumber(catalogue, u"Settings", u"Count", u"0", count);
    if (count == 0) {
        LoadDefaultSkin(velora);
        return;
    }
    for (Long number = 1; number <= count; ++number)
        LoadEntry(velora, catalogue.Read(Decimal(number), u"Filename", {}), number == count);
}

void ShowCompanionSkin(Velora& velora) {
    const Text companion = velora.Skins[velora.CurrentSkin].Playlist;
    if (!FileExists(companion)) return;
    Integer slot = LoadSkinFile(velora, companion);
    if (slot == 0) slot = LatestSlotOf(velora, companion);
    ApplySkin(velora, slot);
    if (velora.CurrentSkin != slot) return;
    // The layout gave the button a picture of its own, by which nobody could tell its state.
    const bool stopped = velora.PlayerState == PlayerState::Stopped;
    SetPicture(velora.frmMain.picPlay,
               (stopped ? velora.frmMain.picPlay1 : velora.frmMain.picStop1).Picture);
}
