// A press goes through the mouse's own door. So a button that lies under another one shows what a
// hand would meet.
#include "maker/states.h"

#include <algorithm>

#include "playback/volume.h"
#include "shell/handlers.h"
#include "state/stack.h"

namespace {

struct State {
    std::string_view Name;
    PictureBox Form::*Pressed = nullptr; ///< The button that is held down.
    bool Plays = false;                  ///< A track is on before.
    bool Releases = false;               ///< The button is let go again.
    Integer Volume = 0;                  ///< The step that is chosen; 0 for none.
};

constexpr State kStates[] = {
    {.Name = "rest"},
    {.Name = "play-pressed", .Pressed = &Form::picPlay},
    {.Name = "stop-pressed", .Pressed = &Form::picPlay, .Plays = true},
    {.Name = "pause-pressed", .Pressed = &Form::picPause},
    {.Name = "backward-pressed", .Pressed = &Form::picBackward},
    {.Name = "forward-pressed", .Pressed = &Form::picForward},
    {.Name = "eject-pressed", .Pressed = &Form::picEject},
    {.Name = "playlist-pressed", .Pressed = &Form::picPlaylist},
    {.Name = "playing", .Plays = true},
    {.Name = "paused", .Pressed = &Form::picPause, .Plays = true, .Releases = true},
    {.Name = "volume-1", .Volume = 1},
    {.Name = "volume-2", .Volume = 2},
    {.Name = "volume-3", .Volume = 3},
    {.Name = "volume-4", .Volume = 4},
    {.Name = "volume-5", .Volume = 5},
    {.Name = "volume-6", .Volume = 6},
    {.Name = "volume-7", .Volume = 7},
};

// False if the form doesn't show the button.
bool Press(Velora& velora, const PictureBox& button, bool releases) {
    if (!button.Visible) return false;
    const auto stack = ControlStack(velora.frmMain);
    const auto placed =
        std::ranges::find(stack, static_cast<const Control*>(&button), &StackedControl::Source);
    if (placed == stack.end()) return false;
    const Rect seen = Intersection(placed->Place, placed->Clip);
    if (seen.IsEmpty()) return false;
    const int x = (seen.Left + seen.Right) / 2, y = (seen.Top + seen.Bottom) / 2;
    FormHandlers handlers(velora);
    handlers.OnPointer({PointerKind::Press, x, y, kLeftButton, kLeftButton, 0});
    if (releases) handlers.OnPointer({PointerKind::Release, x, y, kLeftButton, kNoButton, 0});
    return true;
}

} // namespace

std::vector<std::string_view> StateNames() {
    std::vector<std::string_view> names;
    for (const State& state : kStates)
        names.push_back(state.Name);
    return names;
}

std::optional<Scene> SceneInState(const PlatformParts& parts, const Text& path,
                                  std::string_view state) {
    const auto row = std::ranges::find(kStates, state, &State::Name);
    if (row == std::end(kStates)) return std::nullopt;
    const auto trial = std::make_unique<Trial>(parts, path);
    Velora& velora = trial->State;
    if (!trial->IsShown()) return std::nullopt;
    if (row->Plays) PlayTrial(velora);
    if (row->Pressed && !Press(velora, velora.frmMain.*row->Pressed, row->Releases))
        return std::nullopt;
    if (row->Volume > 0 && velora.frmMain.lCurVol == 0) return std::nullopt;
    if (row->Volume > 0) ShowVolumeStep(velora.frmMain, row->Volume);
    return SceneOf(velora.frmMain);
}
