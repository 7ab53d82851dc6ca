// A shape file of any bytes: the row of lights is whole up to the first fault, and no further.
#include <cstdint>

#include "skin/lights.h"
#include "skin_stage.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const SkinStage stage;
    stage.Put("l.ini", std::string_view(reinterpret_cast<const char*>(data), size));
    const auto machine = std::make_unique<SkinMachine>();
    Velora& velora = machine->velora;
    velora.Skins[1].Objects[1] = {true, u"", 13, 0, 0, 0, 0, stage.PathText("l.ini"), u""};
    const bool whole = LoadShapeObject(velora, 1, 1);
    const auto& lights = velora.frmMain.shpPercent;
    std::size_t ready = 0;
    while (ready < 13 && lights[ready + 1].Visible)
        ++ready;
    Require(whole == (ready == 13));
    for (std::size_t number = 1; number <= 13; ++number) {
        const Integer form = static_cast<Integer>(lights[number].Form);
        Require(form >= 0 && form <= 5);
        Require(lights[number].Exists == (number <= ready + 1));
        Require(lights[number].Visible == (number <= ready));
    }
    Require(!LoadShapeObject(velora, 1, 1));
    static_cast<void>(SceneOf(velora.frmMain));
    return 0;
}
