// A skin file of any bytes: loaded, applied twice, shown, and its companion after it. As its own
// shape file it also makes lights: the row is whole up to the first fault, and no further. Then it
// is checked and shown as for its maker.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "../support/null_platform.h"
#include "maker/check_skin.h"
#include "maker/states.h"
#include "platform/paths.h"
#include "skin/apply_skin.h"
#include "skin/load_skin.h"
#include "skin/skin_catalogue.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

// A directory that lives as long as the process; each run writes its files over those of the last.
struct SkinStage : std::string {
    SkinStage() : std::string(std::filesystem::temp_directory_path() / "velora-fuzz-XXXXXX") {
        Require(mkdtemp(data()));
    }
    ~SkinStage() { std::filesystem::remove_all(c_str()); }
    [[nodiscard]] Text Put(const char* name, std::string_view bytes) const {
        std::ofstream(*this + name, std::ios::binary) << bytes;
        return PathText(*this + name);
    }
};

void CheckWindow(const Velora& velora) {
    const Form& form = velora.frmMain;
    Require(!SceneOf(form).Client.IsEmpty());
    Require(velora.CurrentSkin >= 0 && velora.CurrentSkin <= velora.SkinCount);
    for (Integer number = 2; number <= kLights; ++number)
        Require(form.shpPercent[number - 1].Visible || !form.shpPercent[number].Exists);
    if (!form.Region) return;
    for (const Region::Band& band : form.Region->Bands()) {
        Require(band.Top >= 0 && band.Bottom <= PixelsOfTwips(form.Height));
        Require(form.Region->SpansOf(band).front().Left >= 0);
        Require(form.Region->SpansOf(band).back().Right <= PixelsOfTwips(form.Width));
    }
}

// Each finding is one line of print that begins with a file of the skin.
void CheckFindings(const PlatformParts& parts, const Text& path) {
    const auto measure = [](const Text& words, int fontPx) {
        return Rect{0, 0, static_cast<std::int32_t>(words.size()), fontPx};
    };
    const auto findings = CheckSkin(parts, measure, path);
    Require(findings.has_value());
    for (const Finding& finding : *findings) {
        const std::string line = LineOf(finding);
        Require(!finding.Words.empty() && line.starts_with('/'));
        for (const char letter : line)
            Require(static_cast<unsigned char>(letter) >= ' ' && letter != 0x7F);
    }
    // One state is enough for a run: each begins with a form of its own.
    const std::vector<std::string_view> states = StateNames();
    const auto scene = SceneInState(parts, path, states[findings->size() % states.size()]);
    Require(!scene || !scene->Client.IsEmpty());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const SkinStage stage;
    NullPlatform platform;
    NullPictures pictures;
    pictures.Known = {{stage.Put("/a.gif", "picture"), {70000, 3}}};
    Velora velora{platform.PartsWith(pictures)};
    const Text path = stage.Put("/s.vs4", {reinterpret_cast<const char*>(data), size});
    Require(LoadSkinFile(velora, path) == 1);
    ApplySkin(velora, 1);
    CheckWindow(velora);
    const auto region = velora.frmMain.Region;
    ApplySkin(velora, 1);
    CheckWindow(velora);
    Require(!region == !velora.frmMain.Region && (!region || *region == *velora.frmMain.Region));
    ShowCompanionSkin(velora);
    CheckWindow(velora);
    CheckFindings(platform.PartsWith(pictures), path);
    return 0;
}
