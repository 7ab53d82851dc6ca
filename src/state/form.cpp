// The form's first state, from tables of pixels.
#include "state/form.h"

#include <algorithm>

#include "state/stack.h"

namespace {

constexpr Long kPaleYellow = 0x0080FFFF;
constexpr Long kWhite = 0x00FFFFFF;

struct BoxRow {
    PictureBox Form::*Box;
    std::string_view Name;
    Container Parent;
    int Left, Top, Width, Height;
    bool Visible, TakesPictureSize;
};

using enum Container;

// The picture boxes, those of one container from front to back.
constexpr BoxRow kBoxes[] = {
    {&Form::picBackground, "picBackground", frmMain, 8, 8, 369, 89, false, true},
    {&Form::picMemoryGFX, "picMemoryGFX", frmMain, 8, 104, 369, 89, false, false},
    {&Form::picActiveX, "picActiveX", frmMain, 8, 200, 369, 49, false, false},
    {&Form::picVolume, "picVolume", picBackground, 248, 8, 33, 33, true, true},
    {&Form::picPlay, "picPlay", picBackground, 8, 8, 33, 33, false, true},
    {&Form::picPause, "picPause", picBackground, 48, 8, 33, 33, false, true},
    {&Form::picBackward, "picBackward", picBackground, 88, 8, 33, 33, false, true},
    {&Form::picForward, "picForward", picBackground, 128, 8, 33, 33, false, true},
    {&Form::picPlaylist, "picPlaylist", picBackground, 168, 8, 33, 33, false, true},
    {&Form::picEject, "picEject", picBackground, 208, 8, 33, 33, false, true},
    {&Form::picBackground1, "picBackground1", picMemoryGFX, 8, 8, 33, 33, false, false},
    {&Form::picBackground2, "picBackground2", picMemoryGFX, 8, 48, 33, 33, false, false},
    {&Form::picPlay1, "picPlay1", picMemoryGFX, 48, 8, 33, 33, false, false},
    {&Form::picPlay2, "picPlay2", picMemoryGFX, 48, 48, 33, 33, false, false},
    {&Form::picPause1, "picPause1", picMemoryGFX, 88, 8, 33, 33, false, false},
    {&Form::picPause2, "picPause2", picMemoryGFX, 88, 48, 33, 33, false, false},
    {&Form::picStop1, "picStop1", picMemoryGFX, 128, 8, 33, 33, false, false},
    {&Form::picStop2, "picStop2", picMemoryGFX, 128, 48, 33, 33, false, false},
    {&Form::picBackward1, "picBackward1", picMemoryGFX, 168, 8, 33, 33, false, false},
    {&Form::picBackward2, "picBackward2", picMemoryGFX, 168, 48, 33, 33, false, false},
    {&Form::picForeward1, "picForeward1", picMemoryGFX, 208, 8, 33, 33, false, false},
    {&Form::picForeward2, "picForeward2", picMemoryGFX, 208, 48, 33, 33, false, false},
    {&Form::picPlaylist1, "picPlaylist1", picMemoryGFX, 248, 8, 33, 33, false, false},
    {&Form::picPlaylist2, "picPlaylist2", picMemoryGFX, 248, 48, 33, 33, false, false},
    {&Form::picEject1, "picEject1", picMemoryGFX, 288, 8, 33, 33, false, false},
    {&Form::picEject2, "picEject2", picMemoryGFX, 288, 48, 33, 33, false, false},
    {&Form::picStop, "picStop", picMemoryGFX, 88, 8, 33, 33, false, true},
};

struct ToolTipRow {
    PictureBox Form::*Box;
    TextView ToolTip;
};

constexpr ToolTipRow kToolTips[] = {
    {&Form::picVolume, u"..:: wave volume ::.."},
    {&Form::picBackward, u"..:: backward in playlist (hold down shift to seek backwards) ::.."},
    {&Form::picForward, u"..:: forward track (hold down shift to seek forward) ::.."},
    {&Form::picEject, u"..:: select file (hold shift+click to select a playlist) ::.."},
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

void Place(Control& control, std::string_view name, Container parent, int left, int top, int width,
           int height) {
    control.Name = name;
    control.Parent = parent;
    control.Left = left;
    control.Top = top;
    control.Width = width;
    control.Height = height;
}

void MakePictureBoxes(Form& form) {
    for (const BoxRow& row : kBoxes) {
        PictureBox& box = form.*row.Box;
        Place(box, row.Name, row.Parent, row.Left, row.Top, row.Width, row.Height);
        box.Visible = row.Visible;
        box.TakesPictureSize = row.TakesPictureSize;
    }
    for (PictureBox& box : form.picVolumeArray) {
        Place(box, "picVolumeArray", picMemoryGFX, 328, 48, 33, 33);
        box.Visible = false;
    }
    for (const ToolTipRow& row : kToolTips)
        (form.*row.Box).ToolTip = row.ToolTip;
}

void MakeLabels(Form& form) {
    Place(form.lblStatusLabel, "lblStatusLabel", picBackground, 8, 48, 33, 33);
    form.lblStatusLabel.Caption = u"Ready";
    form.lblStatusLabel.ForeColour = kPaleYellow;
    Place(form.lblFilescroll, "lblFilescroll", picBackground, 48, 48, 33, 33);
    form.lblFilescroll.FontPx = 9;
    form.lblFilescroll.ForeColour = kPaleYellow;
    Place(form.Label1, "Label1", picActiveX, 8, 0, 81, 17);
    form.Label1.Caption = u"ActiveX";
    form.Label1.ForeColour = kWhite;
}

} // namespace

Form::Form() : Caption(u"..:: velora.team-qu><llo::..") {
    Width = (383 + kFrameLeftPx + kFrameRightPx) * kTwipsPerPixel;
    Height = (254 + kFrameTopPx + kFrameBottomPx) * kTwipsPerPixel;
    MakePictureBoxes(*this);
    MakeLabels(*this);
    Place(VFmp3scope1, "VFmp3scope1", Container::picBackground, 288, 8, 33, 33);
    for (Shape& shape : shpPercent) {
        Place(shape, "shpPercent", Container::picBackground, 288, 64, 5, 5);
        shape.Visible = false;
    }
    shpPercent[0].Exists = shpPercent[0].Visible = true;
    tmrSeekBackward = {"tmrSeekBackward", 200, false};
    tmrSeekForward = {"tmrSeekForward", 200, false};
    tmrScrollFiletitle = {"tmrScrollFiletitle", 100, false};
    for (const MenuRow& row : kMenu)
        Menu.push_back({row.Name, row.Level, Text(row.Caption), row.Visible, row.Enabled});
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
