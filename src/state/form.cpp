// The form's first state, from tables: rectangles are in twips there, as the form was drawn.
#include "state/form.h"

namespace {

constexpr Long kPaleYellow = 0x0080FFFF;
constexpr Long kWhite = 0x00FFFFFF;
constexpr int kFrameWidthPx = 6, kFrameHeightPx = 25;

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
    {&Form::picBackground, "picBackground", frmMain, 120, 120, 5535, 1335, false, true},
    {&Form::picMemoryGFX, "picMemoryGFX", frmMain, 120, 1560, 5535, 1335, false, false},
    {&Form::picActiveX, "picActiveX", frmMain, 120, 3000, 5535, 735, false, false},
    {&Form::picVolume, "picVolume", picBackground, 3720, 120, 495, 495, true, true},
    {&Form::picPlay, "picPlay", picBackground, 120, 120, 495, 495, false, true},
    {&Form::picPause, "picPause", picBackground, 720, 120, 495, 495, false, true},
    {&Form::picBackward, "picBackward", picBackground, 1320, 120, 495, 495, false, true},
    {&Form::picForward, "picForward", picBackground, 1920, 120, 495, 495, false, true},
    {&Form::picPlaylist, "picPlaylist", picBackground, 2520, 120, 495, 495, false, true},
    {&Form::picEject, "picEject", picBackground, 3120, 120, 495, 495, false, true},
    {&Form::picBackground1, "picBackground1", picMemoryGFX, 120, 120, 495, 495, false, false},
    {&Form::picBackground2, "picBackground2", picMemoryGFX, 120, 720, 495, 495, false, false},
    {&Form::picPlay1, "picPlay1", picMemoryGFX, 720, 120, 495, 495, false, false},
    {&Form::picPlay2, "picPlay2", picMemoryGFX, 720, 720, 495, 495, false, false},
    {&Form::picPause1, "picPause1", picMemoryGFX, 1320, 120, 495, 495, false, false},
    {&Form::picPause2, "picPause2", picMemoryGFX, 1320, 720, 495, 495, false, false},
    {&Form::picStop1, "picStop1", picMemoryGFX, 1920, 120, 495, 495, false, false},
    {&Form::picStop2, "picStop2", picMemoryGFX, 1920, 720, 495, 495, false, false},
    {&Form::picBackward1, "picBackward1", picMemoryGFX, 2520, 120, 495, 495, false, false},
    {&Form::picBackward2, "picBackward2", picMemoryGFX, 2520, 720, 495, 495, false, false},
    {&Form::picForeward1, "picForeward1", picMemoryGFX, 3120, 120, 495, 495, false, false},
    {&Form::picForeward2, "picForeward2", picMemoryGFX, 3120, 720, 495, 495, false, false},
    {&Form::picPlaylist1, "picPlaylist1", picMemoryGFX, 3720, 120, 495, 495, false, false},
    {&Form::picPlaylist2, "picPlaylist2", picMemoryGFX, 3720, 720, 495, 495, false, false},
    {&Form::picEject1, "picEject1", picMemoryGFX, 4320, 120, 495, 495, false, false},
    {&Form::picEject2, "picEject2", picMemoryGFX, 4320, 720, 495, 495, false, false},
    {&Form::picStop, "picStop", picMemoryGFX, 1320, 120, 495, 495, false, true},
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

void PlaceInTwips(Control& control, std::string_view name, Container parent, int left, int top, int width,
                  int height) {
    control.Name = name;
    control.Parent = parent;
    control.Left = left / kTwipsPerPixel;
    control.Top = top / kTwipsPerPixel;
    control.Width = width / kTwipsPerPixel;
    control.Height = height / kTwipsPerPixel;
}

void MakePictureBoxes(Form& form) {
    for (const BoxRow& row : kBoxes) {
        PictureBox& box = form.*row.Box;
        PlaceInTwips(box, row.Name, row.Parent, row.Left, row.Top, row.Width, row.Height);
        box.Visible = row.Visible;
        box.TakesPictureSize = row.TakesPictureSize;
    }
    for (PictureBox& box : form.picVolumeArray) {
        PlaceInTwips(box, "picVolumeArray", picMemoryGFX, 4920, 720, 495, 495);
        box.Visible = false;
    }
    for (const ToolTipRow& row : kToolTips)
        (form.*row.Box).ToolTip = row.ToolTip;
}

void MakeLabels(Form& form) {
    PlaceInTwips(form.lblStatusLabel, "lblStatusLabel", picBackground, 120, 720, 495, 495);
    form.lblStatusLabel.Caption = u"Ready";
    form.lblStatusLabel.ForeColour = kPaleYellow;
    PlaceInTwips(form.lblFilescroll, "lblFilescroll", picBackground, 720, 720, 495, 495);
    form.lblFilescroll.FontPx = 9;
    form.lblFilescroll.ForeColour = kPaleYellow;
    PlaceInTwips(form.Label1, "Label1", picActiveX, 120, 0, 1215, 255);
    form.Label1.Caption = u"ActiveX";
    form.Label1.ForeColour = kWhite;
}

} // namespace

Form::Form() : Caption(u"..:: velora.team-qu><llo::..") {
    Width = 5745 + kFrameWidthPx * kTwipsPerPixel;
    Height = 3810 + kFrameHeightPx * kTwipsPerPixel;
    MakePictureBoxes(*this);
    MakeLabels(*this);
    PlaceInTwips(VFmp3scope1, "VFmp3scope1", Container::picBackground, 4320, 120, 495, 495);
    for (Shape& shape : shpPercent) {
        PlaceInTwips(shape, "shpPercent", Container::picBackground, 4320, 960, 75, 75);
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
    std::size_t index = 0;
    while (index + 1 < form.Menu.size() && form.Menu[index].Name != name)
        ++index;
    return index;
}
