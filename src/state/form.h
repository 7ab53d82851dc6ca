// frmMain: the window with all its controls, and the one table of them. A window layer shows the
// records; places and sizes are pixels of the skin.
#pragma once

#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "platform/numbered.h"
#include "platform/window.h"
#include "state/controls.h"

class Region;

/// The lights of a whole track, `shpPercent` 1 to 13.
constexpr Integer kLights = 13;

/// A light that a track has passed is yellow.
constexpr Long kPassedColour = 0x00FFFF;

/// The steps of the volume, `picVolumeArray` 1 to 7.
constexpr Integer kVolumeSteps = 7;

/// The frame of the original platform, which a skin's numbers count in. The client area stands at
/// (`kFrameLeftPx`, `kFrameTopPx`) of the outer rectangle.
constexpr int kFrameLeftPx = 3, kFrameTopPx = 22, kFrameRightPx = 3, kFrameBottomPx = 3;

enum class WindowState : Integer { Normal = 0, Minimised = 1 };

/// The form. It stays where it was made, since window layers keep a pointer to it.
struct Form {
    Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    Text Caption;
    Long Width = 0;  ///< Outer width in twips, the frame of the original platform included.
    Long Height = 0; ///< Outer height in twips.
    WindowState State = WindowState::Normal;
    /// Counts from the outer top left corner; null shows all.
    std::shared_ptr<const ::Region> Region;

    PictureBox picBackground, picMemoryGFX, picActiveX;

    PictureBox picVolume, picPlay, picPause, picBackward, picForward, picPlaylist, picEject;
    ScopeBox VFmp3scope1;
    Numbered<Shape, kLights> shpPercent; ///< Element 0 comes with the form; a skin loads 1 to 13.
    Label lblStatusLabel, lblFilescroll;

    PictureBox picBackground1, picBackground2, picPlay1, picPlay2, picPause1, picPause2;
    PictureBox picStop1, picStop2, picBackward1, picBackward2, picForeward1, picForeward2;
    PictureBox picPlaylist1, picPlaylist2, picEject1, picEject2, picStop;
    Numbered<PictureBox, kVolumeSteps> picVolumeArray; ///< Element 0 shows nothing.

    Timer tmrSeekBackward, tmrSeekForward, tmrScrollFiletitle;
    Label Label1;

    std::vector<MenuEntry> Menu; ///< The tree whose root is `mnuHidden`, in its order.

    /// The volume step now shown, from 1; 0 before a skin with a volume object.
    Integer lCurVol = 0;
};

/// What there is to know about a control before a skin takes it over. Of a control array one row
/// stands for all elements.
struct ControlRow {
    std::string_view Name;
    ControlKind Kind;
    Integer Elements; ///< 1, or how many a control array has, element 0 among them.
    const Control& (*Element)(const Form& form, Integer number); ///< From 0 to below `Elements`.
    Container Parent;
    int Left, Top, Width, Height;
    bool Visible, TakesPictureSize;
    ControlId Id;
    AccessibleRole Role;
    TextView AccessibleName; ///< Empty for what a screen reader isn't told of.
    TextView ToolTip;
};

/// The one table of controls; those of one container stand in it from front to back. What the mouse
/// does on a control is in `shell/mouse.cpp`, by `ControlId`.
[[nodiscard]] std::span<const ControlRow> ControlTable();

/// The one writer of a box's picture: boxes of the surface take the size of a picture that they
/// get. No picture leaves the size.
void SetPicture(PictureBox& box, const PicturePtr& picture);

/// The place in `form.Menu` of the entry called `name`. The name has to be one of the tree's.
[[nodiscard]] std::size_t MenuIndex(const Form& form, std::string_view name);
