// The title's words are title and artist, not the running text: that changes ten times a second.
#include "state/spoken.h"

#include <algorithm>

#include "state/stack.h"

namespace {

struct NameRow {
    std::string_view ControlName;
    SpokenRole Role;
    TextView Name;
};

constexpr NameRow kNames[] = {
    {"picPlay", SpokenRole::Button, u"Play"},
    {"picPause", SpokenRole::Button, u"Pause"},
    {"picBackward", SpokenRole::Button, u"Previous"},
    {"picForward", SpokenRole::Button, u"Next"},
    {"picPlaylist", SpokenRole::Button, u"Playlist"},
    {"picEject", SpokenRole::Button, u"Open"},
    {"picVolume", SpokenRole::Slider, u"Volume"},
    {"shpPercent", SpokenRole::ProgressBar, u"Progress"},
    {"lblFilescroll", SpokenRole::Words, u"Title"},
    {"lblStatusLabel", SpokenRole::Words, u"Status"},
};

const NameRow* RowOf(std::string_view controlName) {
    const auto row = std::find_if(std::begin(kNames), std::end(kNames), [&](const NameRow& each) {
        return each.ControlName == controlName;
    });
    return row == std::end(kNames) ? nullptr : row;
}

bool ShowsStop(const Form& form) {
    const PicturePtr& shown = form.picPlay.Picture;
    return shown && (shown == form.picStop1.Picture || shown == form.picStop2.Picture);
}

// As much of a name as anybody listens to. Files can have names of megabytes, and this is asked for
// often.
TextView Start(TextView name) {
    constexpr std::size_t kMost = 1000;
    return name.substr(0, kMost);
}

// Title and artist if both are known, else the file; the bare name of the control while nothing
// runs there.
Text TitleWords(const Velora& velora, Text otherwise) {
    if (velora.CurrentTrack == 0 || velora.frmMain.lblFilescroll.Caption.empty()) return otherwise;
    if (!velora.TrackTitle.empty() && !velora.TrackArtist.empty())
        return Text(Start(velora.TrackTitle)) + u" by " + Text(Start(velora.TrackArtist));
    return Text(Start(velora.MediaList[static_cast<std::size_t>(velora.CurrentTrack)].File));
}

void FillWords(SpokenControl& spoken, const Velora& velora) {
    const Form& form = velora.frmMain;
    if (spoken.ControlName == "picPlay" && ShowsStop(form)) spoken.Name = u"Stop";
    if (spoken.ControlName == "lblFilescroll") spoken.Name = TitleWords(velora, spoken.Name);
    if (spoken.ControlName == "lblStatusLabel") spoken.Name = form.lblStatusLabel.Caption;
    if (spoken.ControlName == "picVolume") {
        spoken.Value = form.lCurVol;
        spoken.Most = kVolumeSteps;
    }
}

// The lights as one row: the rectangle around them, and how many are lit.
void AddLight(std::vector<SpokenControl>& controls, SpokenControl&& spoken, const Shape& light) {
    spoken.Most = kLights;
    spoken.Value = light.FillColour == kPassedColour ? 1 : 0;
    const auto row = std::find_if(controls.begin(), controls.end(), [](const SpokenControl& each) {
        return each.Role == SpokenRole::ProgressBar;
    });
    if (row == controls.end()) {
        controls.push_back(std::move(spoken));
        return;
    }
    row->Value += spoken.Value;
    row->Place = {std::min(row->Place.Left, spoken.Place.Left),
                  std::min(row->Place.Top, spoken.Place.Top),
                  std::max(row->Place.Right, spoken.Place.Right),
                  std::max(row->Place.Bottom, spoken.Place.Bottom)};
}

} // namespace

std::vector<SpokenControl> SpokenControls(const Velora& velora) {
    std::vector<SpokenControl> controls;
    const std::vector<StackedControl> stack = ControlStack(velora.frmMain);
    for (auto row = stack.rbegin(); row != stack.rend(); ++row) {
        const NameRow* name = RowOf(row->Source->Name);
        // Element 0 of the lights is a figure of the form and says nothing.
        if (!name || row->Source == &velora.frmMain.shpPercent[0]) continue;
        SpokenControl spoken{name->ControlName,
                             name->Role,
                             Text(name->Name),
                             row->Source->ToolTip,
                             0,
                             0,
                             Intersection(row->Place, row->Clip)};
        FillWords(spoken, velora);
        if (row->Kind == ControlKind::Shape)
            AddLight(controls, std::move(spoken), static_cast<const Shape&>(*row->Source));
        else
            controls.push_back(std::move(spoken));
    }
    return controls;
}
