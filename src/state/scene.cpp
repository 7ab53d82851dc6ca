// A scene copies what a figure's look depends on: the records may change under the one that is
// shown.
#include "state/scene.h"

#include <algorithm>

namespace {

void FillFigure(Figure& figure, const PictureBox& box, const Form& form) {
    figure.Picture = box.Picture;
    figure.Ground = &box == &form.picBackground;
}

void FillFigure(Figure& figure, const Label& label) {
    figure.Caption = label.Caption;
    figure.FontPx = label.FontPx;
    figure.Colour = label.ForeColour;
}

void FillFigure(Figure& figure, const Shape& shape) {
    figure.Form = shape.Form;
    figure.Colour = shape.FillColour;
    figure.BorderColour = shape.BorderColour;
}

bool ShowsNothing(const Figure& figure) {
    if (Intersection(figure.Place, figure.Clip).IsEmpty()) return true;
    if (figure.Kind == ControlKind::PictureBox) return !figure.Picture && !figure.Ground;
    return figure.Kind == ControlKind::Label && figure.Caption.empty();
}

} // namespace

Scene SceneOf(const Form& form) {
    Scene scene;
    TakeScene(form, scene);
    return scene;
}

void TakeScene(const Form& form, Scene& scene) {
    scene.Caption = form.Caption;
    scene.Client = ClientArea(form);
    scene.State = form.State;
    scene.Region = form.Region;
    scene.Bars = {};
    std::size_t count = 0;
    for (const StackedControl& row : ControlStack(form)) {
        if (count == scene.Figures.size()) scene.Figures.emplace_back();
        Figure& figure = scene.Figures[count];
        // All but the memory of its caption.
        Text caption = std::move(figure.Caption);
        caption.clear();
        figure = {};
        figure.Caption = std::move(caption);
        figure.Kind = row.Row->Kind;
        figure.Source = row.Source;
        figure.Place = row.Place;
        figure.Clip = row.Clip;
        switch (figure.Kind) {
        case ControlKind::PictureBox:
            FillFigure(figure, static_cast<const PictureBox&>(*row.Source), form);
            break;
        case ControlKind::Label:
            FillFigure(figure, static_cast<const Label&>(*row.Source));
            break;
        case ControlKind::Shape:
            FillFigure(figure, static_cast<const Shape&>(*row.Source));
            break;
        case ControlKind::Scope:
            scene.Bars = form.VFmp3scope1.Bars;
            break;
        }
        if (!ShowsNothing(figure)) ++count;
    }
    scene.Figures.resize(count);
}

std::vector<Rect> DamageBetween(const Scene& shown, const Scene& now) {
    std::vector<Rect> damage;
    const auto add = [&](const Figure& figure) {
        damage.push_back(Intersection(figure.Place, figure.Clip));
    };
    const auto find = [](const Scene& scene, std::size_t from, const Control* source) {
        const auto begin = scene.Figures.begin() + static_cast<std::ptrdiff_t>(from);
        return std::find_if(begin, scene.Figures.end(),
                            [&](const Figure& figure) { return figure.Source == source; });
    };
    // Both lists follow the one order of the controls, so a figure's partner is the next one or
    // isn't there.
    std::size_t at = 0;
    for (const Figure& figure : now.Figures) {
        const auto before = find(shown, at, figure.Source);
        if (before == shown.Figures.end()) {
            add(figure);
            continue;
        }
        const auto place = static_cast<std::size_t>(before - shown.Figures.begin());
        for (; at < place; ++at)
            add(shown.Figures[at]);
        ++at;
        const bool sameBars = figure.Kind != ControlKind::Scope || shown.Bars == now.Bars;
        if (sameBars && *before == figure) continue;
        add(*before);
        if (before->Place != figure.Place || before->Clip != figure.Clip) add(figure);
    }
    for (; at < shown.Figures.size(); ++at)
        add(shown.Figures[at]);
    return damage;
}
