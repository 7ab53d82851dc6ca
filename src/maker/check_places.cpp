// Places are judged by the very stack that is painted and that gives out the mouse.
#include <algorithm>
#include <set>

#include "maker/checks.h"
#include "skin/layout.h"
#include "state/stack.h"

namespace {

std::int64_t AreaOf(const Rect& rect) {
    if (rect.IsEmpty()) return 0;
    return (std::int64_t{rect.Right} - rect.Left) * (std::int64_t{rect.Bottom} - rect.Top);
}

// The control that an object places; the null pointer for the lights.
const Control* ControlOf(const Form& form, const ObjectType& type) {
    if (type.Box) return &(form.*type.Box);
    if (type.TextLabel) return &(form.*type.TextLabel);
    return type.Scope ? &(form.*type.Scope) : nullptr;
}

// Who a control is to the maker: where it comes from, and what it is called.
struct Owner {
    const void* Field = nullptr; ///< Of its place; the null pointer if the skin doesn't place it.
    Text Words;
};

Owner OwnerOf(const Trial& trial, const Control& control) {
    const SkinRecord& skin = trial.Skin();
    Owner owner;
    for (const SkinObjectRecord& object : skin.Objects)
        if (ObjectCounts(object))
            if (const ObjectType& type = *ObjectTypeOf(object.Type);
                ControlOf(trial.State.frmMain, type) == &control)
                owner = {&object.Left, u"the " + Text(type.Words)};
    if (owner.Field) return owner;
    const auto& lights = trial.State.frmMain.shpPercent;
    for (Integer number = 1; number <= kLights; ++number)
        if (&lights[number] == &control) return {&control.Left, u"light " + Decimal(number)};
    if (&control == &lights[0]) return {nullptr, u"the small black oval, which is always there"};
    if (&control == &trial.State.frmMain.VFmp3scope1)
        return {nullptr, u"the visualisation, which no object places"};
    return {nullptr, u"the empty box of the volume, which no object places"};
}

// A box of the skin without a picture has a finding already, and no size that counts.
bool IsBare(const StackedControl& one, const Owner& owner) {
    return one.Row->Kind == ControlKind::PictureBox && owner.Field &&
           !static_cast<const PictureBox*>(one.Source)->Picture;
}

void CheckInside(Report& report, const std::vector<Rect>& visible, const StackedControl& one,
                 const Owner& owner) {
    const std::int64_t all = AreaOf(one.Place),
                       seen = AreaIn(visible, Intersection(one.Place, one.Clip));
    if (seen == 0)
        report.At(owner.Field, owner.Words + u" lies outside of the shape, so nobody sees it");
    else if (seen < all)
        report.At(owner.Field, owner.Words + u" is cut off by the edge: " + Decimal(all - seen) +
                                   u" of its " + Decimal(all) + u" pixels don't show");
}

// The picture that a box shows when `under` does: the visualisation is there while a track plays,
// when the play button shows stop.
const LoadedPicture* PictureOver(const Form& form, const Control& under, const Control& box) {
    const bool stops = &under == &form.VFmp3scope1 && &box == &form.picPlay;
    return stops ? form.picStop1.Picture.get() : static_cast<const PictureBox&>(box).Picture.get();
}

// How much of `common` the control in front hides. A button beneath another one loses the mouse
// there, whatever shows; all else may be seen through a picture.
std::int64_t HiddenArea(const Form& form, const StackedControl& under, const StackedControl& front,
                        const Rect& common) {
    const bool seenThrough =
        under.Row->Kind != ControlKind::PictureBox && front.Row->Kind == ControlKind::PictureBox;
    if (!seenThrough) return AreaOf(common);
    const LoadedPicture* const picture = PictureOver(form, *under.Source, *front.Source);
    std::int64_t hidden = 0;
    if (!picture) return hidden;
    for (int y = common.Top - front.Place.Top; y < common.Bottom - front.Place.Top; ++y)
        for (int x = common.Left - front.Place.Left; x < common.Right - front.Place.Left; ++x)
            if (x < picture->WidthPx && y < picture->HeightPx && picture->Covers(x, y)) ++hidden;
    return hidden;
}

// What is in front of the control at `index`, each thing once.
void CheckCovered(Report& report, const std::vector<StackedControl>& stack, std::size_t index,
                  const Owner& owner) {
    const StackedControl& one = stack[index];
    std::set<Text> told;
    for (std::size_t front = index + 1; front < stack.size(); ++front) {
        const Rect common = Intersection(Intersection(one.Place, one.Clip), stack[front].Place);
        if (common.IsEmpty()) continue;
        const Owner other = OwnerOf(report.Trial, *stack[front].Source);
        if (IsBare(stack[front], other) || told.contains(other.Words)) continue;
        const std::int64_t hidden =
            HiddenArea(report.Trial.State.frmMain, one, stack[front], common);
        if (hidden == 0) continue;
        const bool whole = hidden == AreaOf(one.Place);
        told.insert(other.Words);
        report.At(owner.Field,
                  owner.Words + (whole ? u" lies under " : u" lies partly under ") + other.Words);
    }
}

// The visualisation comes up by itself, whether the skin has a place for it or not.
void CheckUnplacedScope(Report& report, const std::vector<Rect>& visible,
                        const StackedControl& one) {
    if (AreaIn(visible, Intersection(one.Place, one.Clip)) == 0) return;
    report.In({}, u"no object places the visualisation, which comes up at (" +
                      Decimal(one.Source->Left) + u", " + Decimal(one.Source->Top) +
                      u") while a track plays");
}

// Whether the background fills what can be seen. If not, what stands beyond it is cut off, which
// needn't be told of each control.
bool CheckBackground(Report& report, const std::vector<Rect>& visible, const Rect& place) {
    std::int64_t seen = 0;
    for (const Rect& part : visible)
        seen += AreaOf(part);
    if (AreaIn(visible, place) == seen) return true;
    const Rect client = ClientArea(report.Trial.State.frmMain);
    const PictureBox& background = report.Trial.State.frmMain.picBackground;
    Text words = u"the background has " + SizeWords(background.Width, background.Height);
    if (background.Left != 0 || background.Top != 0)
        words += u" at (" + Decimal(background.Left) + u", " + Decimal(background.Top) + u")";
    report.At(&report.Trial.Skin().Graphic, words + u" and doesn't fill the client area of " +
                                                SizeWords(client.Right, client.Bottom) +
                                                u"; what stands beyond it is cut off");
    return false;
}

} // namespace

std::vector<Rect> VisiblePart(const Form& form) {
    const Rect client = ClientArea(form);
    if (!form.Region) return {client};
    return form.Region->Rectangles(
        {kFrameLeftPx, kFrameTopPx, kFrameLeftPx + client.Right, kFrameTopPx + client.Bottom});
}

std::int64_t AreaIn(const std::vector<Rect>& rectangles, const Rect& place) {
    std::int64_t area = 0;
    for (const Rect& part : rectangles)
        area += AreaOf(Intersection(part, place));
    return area;
}

void CheckPlaces(Report& report) {
    const Form& form = report.Trial.State.frmMain;
    const std::vector<Rect> visible = VisiblePart(form);
    const std::vector<StackedControl> stack = ControlStack(form);
    if (visible.empty() || stack.empty() || !form.picBackground.Picture) return;
    const bool filled = CheckBackground(report, visible, stack.front().Place);
    for (std::size_t index = 1; index < stack.size(); ++index) {
        const StackedControl& one = stack[index];
        const Owner owner = OwnerOf(report.Trial, *one.Source);
        if (!owner.Field && one.Source == &form.VFmp3scope1)
            CheckUnplacedScope(report, visible, one);
        if (!owner.Field || one.Place.IsEmpty() || IsBare(one, owner)) continue;
        if (filled) CheckInside(report, visible, one, owner);
        CheckCovered(report, stack, index, owner);
    }
}
