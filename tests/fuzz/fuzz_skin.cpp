// A skin file of any bytes: loaded, applied twice, shown, and its companion after it. As its own shape file
// it also makes lights: the row is whole up to the first fault, and no further.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

#include "../support/null_platform.h"
#include "platform/paths.h"
#include "skin/apply_skin.h"
#include "skin/catalogue.h"
#include "skin/load_skin.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

// A directory that lives as long as the process; each run writes its files over those of the last.
struct SkinStage {
    SkinStage() {
        Require(mkdtemp(Directory.data()));
        Put("a.gif", "picture");
    }
    ~SkinStage() {
        std::error_code ignored;
        std::filesystem::remove_all(Directory, ignored);
    }
    void Put(const std::string& name, std::string_view bytes) const {
        std::ofstream(Directory + "/" + name, std::ios::binary | std::ios::trunc) << bytes;
    }
    [[nodiscard]] Text Path(const std::string& name) const { return PathText(Directory + "/" + name); }

    std::string Directory = std::filesystem::temp_directory_path() / "velora-fuzz-XXXXXX";
};

struct SkinMachine : NullPlatform {
    NullPictures pictures;
    Velora velora{PartsWith(pictures)};
};

void CheckWindow(const Velora& velora) {
    const Form& form = velora.frmMain;
    const Scene scene = SceneOf(form);
    Require(scene.Client.Right >= 1 && scene.Client.Right <= 16383);
    Require(form.lCurVol == 0 || form.lCurVol == 1);
    Require(velora.CurrentSkin >= 0 && velora.CurrentSkin <= velora.SkinCount);
    Require(velora.Regions.Regions.size() <= 20u * static_cast<std::size_t>(velora.SkinCount));
    // The row of lights is whole up to the first fault, and no further.
    for (std::size_t number = 2; number <= kLights; ++number)
        Require(form.shpPercent[number - 1].Visible || !form.shpPercent[number].Exists);
    if (!form.Region) return;
    for (const Region::Band& band : form.Region->Bands()) {
        Require(band.Top >= 0 && band.Bottom <= PixelsOfTwips(form.Height));
        Require(form.Region->SpansOf(band).front().Left >= 0);
        Require(form.Region->SpansOf(band).back().Right <= PixelsOfTwips(form.Width));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const SkinStage stage;
    stage.Put("s.vs4", std::string_view(reinterpret_cast<const char*>(data), size));
    const auto machine = std::make_unique<SkinMachine>();
    machine->pictures.Known = {{stage.Path("a.gif"), {70000, 3}}};
    Velora& velora = machine->velora;
    Require(LoadSkinFile(velora, stage.Path("s.vs4")) == 1);
    ApplySkin(velora, 1);
    CheckWindow(velora);
    const auto region = velora.frmMain.Region;
    const Integer applied = velora.CurrentSkin;
    ApplySkin(velora, 1);
    CheckWindow(velora);
    Require(applied == velora.CurrentSkin);
    Require(!region == !velora.frmMain.Region && (!region || *region == *velora.frmMain.Region));
    ShowCompanionSkin(velora);
    CheckWindow(velora);
    return 0;
}
