// The title's words are title and artist, not the running text: that changes ten times a second.
#include "state/accessible.h"

#include <algorithm>

#include "state/stack.h"

namespace {

bool ShowsStop(const Form& form) {
    const PicturePtr& shown = form.picPlay.Picture;
    return shown && (shown == form.picStop1.Picture || shown == form.picStop2.Picture);
}

// As much of a name as anybody listens to. Files can have names of megabytes, and this is asked for
// often.
Text Heard(TextView name) {
    constexpr std::size_t kMost = 1000;
    return Text(StartOf(name, kMost));
}

// Title and artist if both are known, else the file; `otherwise` while nothing runs there.
Text TitleWords(const Velora& velora, Text otherwise) {
    if (velora.CurrentTrack == 0 || velora.frmMain.lblFilescroll.Caption.empty()) return otherwise;
    if (!velora.TrackTitle.empty() && !velora.TrackArtist.empty())
        return Heard(velora.TrackTitle) + u" by " + Heard(velora.TrackArtist);
    return Heard(velora.MediaList[velora.CurrentTrack].File);
}

void FillWords(AccessibleControl& control, ControlId id, const Velora& velora) {
    const Form& form = velora.frmMain;
    if (id == ControlId::picPlay && ShowsStop(form)) control.Name = u"Stop";
    if (id == ControlId::lblFilescroll) control.Name = TitleWords(velora, control.Name);
    if (id == ControlId::lblStatusLabel) control.Name = form.lblStatusLabel.Caption;
    if (id == ControlId::picVolume) {
        control.Value = form.lCurVol;
        control.Most = kVolumeSteps;
    }
}

// The lights as one row: the rectangle around them, and how many are lit.
void AddLight(std::vector<AccessibleControl>& controls, AccessibleControl&& control,
              const Shape& light) {
    control.Most = kLights;
    control.Value = light.FillColour == kPassedColour ? 1 : 0;
    const auto row =
        std::find_if(controls.begin(), controls.end(), [](const AccessibleControl& each) {
            return each.Role == AccessibleRole::ProgressBar;
        });
    if (row == controls.end()) {
        controls.push_back(std::move(control));
        return;
    }
    row->Value += control.Value;
    // A light without a width, or outside the surface, is nowhere.
    row->Place = Enclosing(row->Place, control.Place);
}

} // namespace

std::vector<AccessibleControl> AccessibleControls(const Velora& velora) {
    std::vector<AccessibleControl> controls;
    const std::vector<StackedControl> stack = ControlStack(velora.frmMain);
    for (auto stacked = stack.rbegin(); stacked != stack.rend(); ++stacked) {
        const ControlRow& row = *stacked->Row;
        // Element 0 of the lights is a figure of the form and says nothing.
        if (row.AccessibleName.empty() || stacked->Source == &velora.frmMain.shpPercent[0])
            continue;
        AccessibleControl control{row.Name,
                                  row.Role,
                                  Text(row.AccessibleName),
                                  stacked->Source->ToolTip,
                                  0,
                                  0,
                                  Intersection(stacked->Place, stacked->Clip)};
        FillWords(control, row.Id, velora);
        if (row.Id == ControlId::shpPercent)
            AddLight(controls, std::move(control), static_cast<const Shape&>(*stacked->Source));
        else
            controls.push_back(std::move(control));
    }
    return controls;
}
