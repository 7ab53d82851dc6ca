// The form as a list of figures to draw, and what differs between two such lists. Every window
// layer shows scenes and keeps the one that it showed last.
#pragma once

#include <memory>
#include <vector>

#include "platform/rect.h"
#include "state/form.h"
#include "state/stack.h"

/// One figure: what a visible control looks like, with all that its look depends on. A picture box
/// without a picture is no figure, but for `picBackground`, which is black beneath its picture.
struct Figure {
    ControlKind Kind = ControlKind::PictureBox;
    const Control* Source = nullptr;
    Rect Place;
    Rect Clip;
    PicturePtr Picture;
    bool Ground = false; ///< The figure is painted black first.
    Text Caption;
    int FontPx = 0;
    Long Colour = 0; ///< Of the text, or the fill of a shape.
    Long BorderColour = 0;
    ShapeForm Form = ShapeForm::Oval;

    bool operator==(const Figure&) const = default;
};

struct Scene {
    Text Caption;
    Rect Client;
    WindowState State = WindowState::Normal;
    std::shared_ptr<const ::Region> Region;
    std::vector<Figure> Figures; ///< From back to front.
    ScopeBars Bars;              ///< What the visualisation shows, if it is among the figures.
};

[[nodiscard]] Scene SceneOf(const Form& form);

/// The same, into a scene whose memory is used again.
void TakeScene(const Form& form, Scene& scene);

/// The places, clipped, that have to be drawn again when `now` follows `shown`: the old and the new
/// place of each figure that changed, appeared or vanished. Size, region, caption and state aren't
/// looked at.
[[nodiscard]] std::vector<Rect> DamageBetween(const Scene& shown, const Scene& now);
