// The form's first state: the table of its controls and that of its menu.
#include "state/form.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace {

constexpr Long kPaleYellow = 0x0080FFFF;
constexpr Long kWhite = 0x00FFFFFF;

using enum Container;

// The records behind a member of the form: itself, or the elements of a control array.
template<typename Record>
struct RecordsOf {
    using Element = Record;
    static constexpr Integer kCount = 1;
    static const Control& At(const Record& record, Integer) { return record; }
};

template<typename Record, Integer Last>
struct RecordsOf<Numbered<Record, Last>> {
    using Element = Record;
    static constexpr Integer kCount = Last + 1;
    static const Control& At(const Numbered<Record, Last>& records, Integer number) {
        return records[number];
    }
};

template<auto Member>
constexpr ControlRow Row(std::string_view name, Container parent, int left, int top, int width,
                         int height, bool visible, bool takesPictureSize,
                         ControlId id = ControlId::Unmet, AccessibleRole role = {},
                         TextView accessibleName = {}, TextView toolTip = {}) {
    using Records = RecordsOf<std::remove_cvref_t<decltype(std::declval<Form>().*Member)>>;
    return {name,
            Records::Element::kKind,
            Records::kCount,
            [](const Form& form, Integer number) -> const Control& {
                return Records::At(form.*Member, number);
            },
            parent,
            left,
            top,
            width,
            height,
            visible,
            takesPictureSize,
            id,
            role,
            accessibleName,
            toolTip};
}

// Name, container, place and size, whether it shows, whether it takes the size of its pictures.
constexpr ControlRow kControls[] = {
    Row<&Form::picBackground>("picBackground", frmMain, 8, 8, 369, 89, false, true,
                              ControlId::picBackground),
    Row<&Form::picMemoryGFX>("picMemoryGFX", frmMain, 8, 104, 369, 89, false, false),
    Row<&Form::picActiveX>("picActiveX", frmMain, 8, 200, 369, 49, false, false),
    Row<&Form::picVolume>("picVolume", picBackground, 248, 8, 33, 33, true, true,
                          ControlId::picVolume, AccessibleRole::Slider, u"Volume",
                          u"..:: wave volume ::.."),
    Row<&Form::picPlay>("picPlay", picBackground, 8, 8, 33, 33, false, true, ControlId::picPlay,
                        AccessibleRole::Button, u"Play"),
    Row<&Form::picPause>("picPause", picBackground, 48, 8, 33, 33, false, true, ControlId::picPause,
                         AccessibleRole::Button, u"Pause"),
    Row<&Form::picBackward>("picBackward", picBackground, 88, 8, 33, 33, false, true,
                            ControlId::picBackward, AccessibleRole::Button, u"Previous",
                            u"..:: backward in playlist (hold down shift to seek backwards) ::.."),
    Row<&Form::picForward>("picForward", picBackground, 128, 8, 33, 33, false, true,
                           ControlId::picForward, AccessibleRole::Button, u"Next",
                           u"..:: forward track (hold down shift to seek forward) ::.."),
    Row<&Form::picPlaylist>("picPlaylist", picBackground, 168, 8, 33, 33, false, true,
                            ControlId::picPlaylist, AccessibleRole::Button, u"Playlist"),
    Row<&Form::picEject>("picEject", picBackground, 208, 8, 33, 33, false, true,
                         ControlId::picEject, AccessibleRole::Button, u"Open",
                         u"..:: select file (hold shift+click to select a playlist) ::.."),
    Row<&Form::VFmp3scope1>("VFmp3scope1", picBackground, 288, 8, 33, 33, true, false,
                            ControlId::VFmp3scope1),
    Row<&Form::shpPercent>("shpPercent", picBackground, 288, 64, 5, 5, false, false,
                           ControlId::shpPercent, AccessibleRole::ProgressBar, u"Progress"),
    Row<&Form::lblStatusLabel>("lblStatusLabel", picBackground, 8, 48, 33, 33, true, false,
                               ControlId::lblStatusLabel, AccessibleRole::StaticText, u"Status"),
    Row<&Form::lblFilescroll>("lblFilescroll", picBackground, 48, 48, 33, 33, true, false,
                              ControlId::lblFilescroll, AccessibleRole::StaticText, u"Title"),
    Row<&Form::picBackground1>("picBackground1", picMemoryGFX, 8, 8, 33, 33, false, false),
    Row<&Form::picBackground2>("picBackground2", picMemoryGFX, 8, 48, 33, 33, false, false),
    Row<&Form::picPlay1>("picPlay1", picMemoryGFX, 48, 8, 33, 33, false, false),
    Row<&Form::picPlay2>("picPlay2", picMemoryGFX, 48, 48, 33, 33, false, false),
    Row<&Form::picPause1>("picPause1", picMemoryGFX, 88, 8, 33, 33, false, false),
    Row<&Form::picPause2>("picPause2", picMemoryGFX, 88, 48, 33, 33, false, false),
    Row<&Form::picStop1>("picStop1", picMemoryGFX, 128, 8, 33, 33, false, false),
    Row<&Form::picStop2>("picStop2", picMemoryGFX, 128, 48, 33, 33, false, false),
    Row<&Form::picBackward1>("picBackward1", picMemoryGFX, 168, 8, 33, 33, false, false),
    Row<&Form::picBackward2>("picBackward2", picMemoryGFX, 168, 48, 33, 33, false, false),
    Row<&Form::picForeward1>("picForeward1", picMemoryGFX, 208, 8, 33, 33, false, false),
    Row<&Form::picForeward2>("picForeward2", picMemoryGFX, 208, 48, 33, 33, false, false),
    Row<&Form::picPlaylist1>("picPlaylist1", picMemoryGFX, 248, 8, 33, 33, false, false),
    Row<&Form::picPlaylist2>("picPlaylist2", picMemoryGFX, 248, 48, 33, 33, false, false),
    Row<&Form::picEject1>("picEject1", picMemoryGFX, 288, 8, 33, 33, false, false),
    Row<&Form::picEject2>("picEject2", picMemoryGFX, 288, 48, 33, 33, false, false),
    Row<&Form::picStop>("picStop", picMemoryGFX, 88, 8, 33, 33, false, true),
    Row<&Form::picVolumeArray>("picVolumeArray", picMemoryGFX, 328, 48, 33, 33, false, false),
    Row<&Form::Label1>("Label1", picActiveX, 8, 0, 81, 17, true, false),
};

struct MenuRow {
    std::string_view Name;
    int Level;
    TextView Caption;
    bool Visible, Enabled;
};

constexpr MenuRow kMenu[] = {
    {"mnuHidden", 0, u"&Hidden", false, true},
    {"mnuVelora", 1, u"::QU><LLO.VELORA::", true, true},
    {"mnuRunPressdeck", 1, u"::RUN.PRESSDECK::", false, true},
    {"mnuRunTrackhut", 1, u"::RUN.TRACKHUT::", false, true},
    {"mnuSep397927329", 1, u"-", false, true},
    {"mnuPlaylists", 1, u"::PLAYLISTS::", false, true},
    {"mnuPlaylist", 2, u"<Empty>", true, false},
    {"mnuSep38267893692", 1, u"-", true, true},
    {"mnuMinimize", 1, u"::MINIMIZE::", true, true},
    {"mnuExitVelora", 1, u"::EXIT QU><LLO.VELORA::", true, true},
};

void Fill(Control& control, const ControlRow& row) {
    control.Id = row.Id;
    control.Name = row.Name;
    control.Parent = row.Parent;
    control.Left = row.Left;
    control.Top = row.Top;
    control.Width = row.Width;
    control.Height = row.Height;
    control.Visible = row.Visible;
    control.ToolTip = row.ToolTip;
    if (row.Kind == ControlKind::PictureBox)
        static_cast<PictureBox&>(control).TakesPictureSize = row.TakesPictureSize;
}

void FillLabels(Form& form) {
    form.lblStatusLabel.Caption = u"Ready";
    form.lblStatusLabel.ForeColour = kPaleYellow;
    form.lblFilescroll.FontPx = 9;
    form.lblFilescroll.ForeColour = kPaleYellow;
    form.Label1.Caption = u"ActiveX";
    form.Label1.ForeColour = kWhite;
}

} // namespace

Form::Form() : Caption(u"..:: velora.team-qu><llo::..") {
    Width = (383 + kFrameLeftPx + kFrameRightPx) * kTwipsPerPixel;
    Height = (254 + kFrameTopPx + kFrameBottomPx) * kTwipsPerPixel;
    for (const ControlRow& row : kControls)
        for (Integer number = 0; number < row.Elements; ++number)
            // The form isn't constant, only the table's way to its records is.
            Fill(const_cast<Control&>(row.Element(*this, number)), row);
    FillLabels(*this);
    shpPercent[0].Exists = shpPercent[0].Visible = true;
    tmrSeekBackward = {"tmrSeekBackward", 200, false};
    tmrSeekForward = {"tmrSeekForward", 200, false};
    tmrScrollFiletitle = {"tmrScrollFiletitle", 100, false};
    for (const MenuRow& row : kMenu)
        Menu.push_back({row.Name, row.Level, Text(row.Caption), row.Visible, row.Enabled});
}

std::span<const ControlRow> ControlTable() {
    return kControls;
}

void SetPicture(PictureBox& box, const PicturePtr& picture) {
    box.Picture = picture;
    if (!picture || !box.TakesPictureSize) return;
    box.Width = picture->WidthPx;
    box.Height = picture->HeightPx;
}

std::size_t MenuIndex(const Form& form, std::string_view name) {
    const auto entry = std::ranges::find(form.Menu, name, &MenuEntry::Name);
    return static_cast<std::size_t>(entry - form.Menu.begin());
}
