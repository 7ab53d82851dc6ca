// All pictures are read here, so that a drag over the volume never waits for a disk.
#include "skin/volume_object.h"

#include <algorithm>

#include "platform/profile_strings.h"
#include "skin/load_skin.h"
#include "skin/picture_object.h"

namespace {

constexpr std::size_t kSuffixLength = 4;

void ReadMousePositions(Velora& velora, Integer objectIndex) {
    SkinRecord& skin = velora.Skins[velora.CurrentSkin];
    ProfileReader file(skin.Directory + skin.FileName, velora.SkinWatch);
    const Text section = Text(kObjectSection) + Decimal(objectIndex);
    for (Integer step = 1; step <= kVolumeSteps; ++step) {
        const Text number = Decimal(step);
        ReadProfileNumber(file, section, u"x" + number, u"", skin.VolumeX[step]);
        ReadProfileNumber(file, section, u"y" + number, u"", skin.VolumeY[step]);
    }
}

} // namespace

void LoadVolumeObject(Velora& velora, Integer ObjectIndex, Long Left, Long Top,
                      const Text& FileName, const Text& FileName2) {
    Form& form = velora.frmMain;
    SkinRecord& skin = velora.Skins[velora.CurrentSkin];
    const Text base =
        FileName2.substr(0, FileName2.size() - std::min(FileName2.size(), kSuffixLength));
    LoadPictureInto(velora.Pictures, form.picVolume, FileName);
    for (Integer step = 1; step <= kVolumeSteps; ++step) {
        const Text path = base + Decimal(step) + u".gif";
        LoadPictureInto(velora.Pictures, form.picVolumeArray[step], path);
        skin.VolumeImages[step] = path;
    }
    ReadMousePositions(velora, ObjectIndex);
    form.picVolume.Left = Left;
    form.picVolume.Top = Top;
    form.lCurVol = 1;
}
