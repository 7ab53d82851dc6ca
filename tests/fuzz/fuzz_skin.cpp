// A skin file of any bytes: loaded, applied twice, shown, and its companion after it.
#include <cstdint>

#include "skin/apply_skin.h"
#include "skin/catalogue.h"
#include "skin/load_skin.h"
#include "skin_stage.h"

namespace {

void CheckWindow(const Velora& velora) {
    const Form& form = velora.frmMain;
    const Scene scene = SceneOf(form);
    Require(scene.Client.Right >= 1 && scene.Client.Right <= 16383);
    Require(form.lCurVol == 0 || form.lCurVol == 1);
    Require(velora.CurrentSkin >= 0 && velora.CurrentSkin <= velora.SkinCount);
    Require(velora.Regions.Regions.size() <= 20u * static_cast<std::size_t>(velora.SkinCount));
    if (!form.Region) return;
    constexpr std::int32_t kFar = 1'000'000;
    for (const Rect& part : form.Region->Rectangles({-kFar, -kFar, kFar, kFar})) {
        Require(part.Left >= kFar && part.Top >= kFar);
        Require(part.Right - kFar <= PixelsOfTwips(form.Width));
        Require(part.Bottom - kFar <= PixelsOfTwips(form.Height));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const SkinStage stage;
    stage.Put("s.vs4", std::string_view(reinterpret_cast<const char*>(data), size));
    const auto machine = std::make_unique<SkinMachine>();
    machine->pictures.Known = {{stage.PathText("a.gif"), {70000, 3}}};
    Velora& velora = machine->velora;
    Require(LoadSkinFile(velora, stage.PathText("s.vs4")) == 1);
    ApplySkin(velora, 1);
    CheckWindow(velora);
    const auto region = velora.frmMain.Region;
    const bool applied = velora.CurrentSkin == 1;
    ApplySkin(velora, 1);
    CheckWindow(velora);
    Require(applied == (velora.CurrentSkin == 1));
    Require(!region == !velora.frmMain.Region && (!region || *region == *velora.frmMain.Region));
    ShowCompanionSkin(velora);
    CheckWindow(velora);
    return 0;
}
