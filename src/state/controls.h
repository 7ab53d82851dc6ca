// The controls of the form as plain records. Procedures read and write them; a window layer shows
// them.
#pragma once

#include <string_view>

#include "platform/numbers.h"
#include "platform/picture.h"
#include "platform/scope.h"
#include "platform/text.h"

/// The four surfaces that hold controls. `picMemoryGFX` and `picActiveX` never show.
enum class Container { frmMain, picBackground, picMemoryGFX, picActiveX };

/// What the mouse and screen readers can meet, by its name in the form. `frmMain` is the form
/// itself; `Unmet` are the controls that never show.
enum class ControlId {
    Unmet,
    frmMain,
    picBackground,
    picVolume,
    picPlay,
    picPause,
    picBackward,
    picForward,
    picPlaylist,
    picEject,
    VFmp3scope1,
    shpPercent,
    lblStatusLabel,
    lblFilescroll,
};

/// Which record a control is.
enum class ControlKind { PictureBox, Label, Shape, Scope };

/// What all controls have. Places and sizes are pixels of the skin, counted from the container.
struct Control {
    ControlId Id = ControlId::Unmet;
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
    static constexpr ControlKind kKind = ControlKind::PictureBox;
    PicturePtr Picture;
    bool TakesPictureSize = false;
};

/// One line of text on a transparent ground, cut at the label's edges.
struct Label : Control {
    static constexpr ControlKind kKind = ControlKind::Label;
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
    static constexpr ControlKind kKind = ControlKind::Shape;
    ShapeForm Form = ShapeForm::Oval;
    Long FillColour = 0;
    Long BorderColour = 0;
    bool Exists = false;
};

/// The place of the visualisation and the bars that it shows.
struct ScopeBox : Control {
    static constexpr ControlKind kKind = ControlKind::Scope;
    ScopeBars Bars;
};

/// A timer, which ticks once in each interval while it is enabled.
struct Timer {
    std::string_view Name;
    int IntervalMs = 0;
    bool Enabled = false;
};

/// What a control is to a screen reader.
enum class AccessibleRole { Button, Slider, ProgressBar, StaticText };
