// frmMain: the window with all its controls, as plain records. Procedures read and write them; a
// window layer shows them. Places and sizes are pixels of the skin, counted from the control's
// container.
#pragma once

#include <array>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/numbers.h"
#include "platform/picture.h"
#include "platform/scope.h"
#include "platform/text.h"
#include "platform/window.h"

class Region;

/// The lights of a whole track, `shpPercent` 1 to 13.
constexpr Integer kLights = 13;

/// A light that a track has passed is yellow.
constexpr Long kPassedColour = 0x00FFFF;

/// The steps of the volume, `picVolumeArray` 1 to 7.
constexpr Integer kVolumeSteps = 7;

/// The four surfaces that hold controls. `picMemoryGFX` and `picActiveX` never show.
enum class Container { frmMain, picBackground, picMemoryGFX, picActiveX };

/// What all controls have.
struct Control {
    std::string_view Name;
    Container Parent = Container::frmMain;
    Long Left = 0;
    Long Top = 0;
    Long Width = 0;
    Long Height = 0;
    bool Visible = true;
    Text ToolTip;
};

/// A picture box; buttons, the volume indicator and the holders of the picture store are such
/// boxes.
struct PictureBox : Control {
    PicturePtr Picture;
    bool TakesPictureSize = false;
};

/// One line of text on a transparent ground, cut at the label's edges.
struct Label : Control {
    Text Caption;
    int FontPx = 11;     ///< 8.25 point is 11 pixels, 6.75 point is 9.
    Long ForeColour = 0; ///< A number in blue-green-red order.
};

/// The six forms that a shape can have.
enum class ShapeForm : Integer { Rectangle, Square, Oval, Circle, RoundedRectangle, RoundedSquare };

/// A figure of one form, filled and with a border of one pixel inside its rectangle. Colours are
/// numbers in blue-green-red order. An element of a control array that hasn't been loaded doesn't
/// exist.
struct Shape : Control {
    ShapeForm Form = ShapeForm::Oval;
    Long FillColour = 0;
    Long BorderColour = 0;
    bool Exists = false;
};

/// The place of the visualisation and the bars that it shows.
struct ScopeBox : Control {
    ScopeBars Bars;
};

/// A timer, which ticks once in each interval while it is enabled.
struct Timer {
    std::string_view Name;
    int IntervalMs = 0;
    bool Enabled = false;
};

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
    std::shared_ptr<const ::Region>
        Region; ///< Counts from the outer top left corner; null shows all.

    PictureBox picBackground, picMemoryGFX, picActiveX;

    PictureBox picVolume, picPlay, picPause, picBackward, picForward, picPlaylist, picEject;
    ScopeBox VFmp3scope1;
    std::array<Shape, kLights + 1>
        shpPercent; ///< Element 0 comes with the form; a skin loads 1 to 13.
    Label lblStatusLabel, lblFilescroll;

    PictureBox picBackground1, picBackground2, picPlay1, picPlay2, picPause1, picPause2;
    PictureBox picStop1, picStop2, picBackward1, picBackward2, picForeward1, picForeward2;
    PictureBox picPlaylist1, picPlaylist2, picEject1, picEject2, picStop;
    std::array<PictureBox, kVolumeSteps + 1> picVolumeArray; ///< Element 0 shows nothing.

    Timer tmrSeekBackward, tmrSeekForward, tmrScrollFiletitle;
    Label Label1;

    std::vector<MenuEntry> Menu; ///< The tree whose root is `mnuHidden`, in its order.

    Integer lCurVol =
        0; ///< The volume step now shown, from 1; 0 before a skin with a volume object.
};

/// The one writer of a box's picture: boxes of the surface take the size of a picture that they
/// get. No picture leaves the size.
void SetPicture(PictureBox& box, const PicturePtr& picture);

/// The place in `form.Menu` of the entry called `name`. The name has to be one of the tree's.
[[nodiscard]] std::size_t MenuIndex(const Form& form, std::string_view name);
