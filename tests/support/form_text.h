// The form as text, a line for each thing on it, so that a test states what a step has changed and
// thereby that all else has stayed.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "platform/rect.h"
#include "state/form.h"

using Lines = std::vector<std::string>;

/// A picture that a test can tell from all others.
struct NamedPicture : LoadedPicture {
    NamedPicture(int widthPx, int heightPx, std::string name)
        : LoadedPicture(widthPx, heightPx), Name(std::move(name)) {}
    const std::string Name;
};

inline std::string NameOf(const PicturePtr& picture) {
    return picture ? dynamic_cast<const NamedPicture&>(*picture).Name : "-";
}

inline std::ostream& operator<<(std::ostream& stream, const Text& text) {
    return stream << Utf8(text);
}

/// Texts and whatever else can be written to a stream, one after the other.
template<typename... Parts>
std::string Joined(const Parts&... parts) {
    std::ostringstream text;
    (text << ... << parts);
    return text.str();
}

inline std::string TextOf(const Rect& rect) {
    return Joined(rect.Left, ",", rect.Top, "-", rect.Right, ",", rect.Bottom);
}

/// The form's own lines, its timers' and its menu's, and one for each control: name, place, size,
/// and what its kind has.
inline Lines FormText(const Form& form) {
    Lines lines{
        Joined("frmMain ", form.Width, "x", form.Height, " ", int(form.State), " ", form.Caption),
        Joined("step ", form.lCurVol)};
    for (const Timer* timer :
         {&form.tmrSeekBackward, &form.tmrSeekForward, &form.tmrScrollFiletitle})
        lines.push_back(Joined(timer->Name, " ", timer->IntervalMs, timer->Enabled ? "" : " off"));
    for (const MenuEntry& entry : form.Menu)
        lines.push_back(Joined(entry.Level, " ", entry.Name, entry.Visible ? "" : " hidden",
                               entry.Enabled ? " " : " grey ", entry.Caption));
    const auto add = [&](const Control& control, const std::string& more) {
        lines.push_back(Joined(control.Name, " ", control.Left, ",", control.Top, " ",
                               control.Width, "x", control.Height, control.Visible ? "" : " hidden",
                               more));
    };
    for (const ControlRow& row : ControlTable())
        if (row.Kind == ControlKind::PictureBox && row.Elements == 1) {
            const Control& box = row.Element(form, 0);
            add(box, " " + NameOf(static_cast<const PictureBox&>(box).Picture));
        }
    std::string steps;
    for (const PictureBox& box : form.picVolumeArray)
        steps += " " + NameOf(box.Picture);
    add(form.picVolumeArray[7], steps);
    for (const Label* one : {&form.lblStatusLabel, &form.lblFilescroll, &form.Label1})
        add(*one, Joined(" ", one->FontPx, " ", std::hex, one->ForeColour, " ", one->Caption));
    add(form.VFmp3scope1, "");
    for (const Shape& shape : form.shpPercent)
        add(shape, Joined(shape.Exists ? "" : " unmade", " form ", int(shape.Form), " ", std::hex,
                          shape.FillColour, " ", shape.BorderColour));
    return lines;
}

/// The lines of `after` that `before` has otherwise or hasn't, one after the other.
inline std::string Changes(const Lines& before, const Lines& after) {
    std::string changed;
    for (std::size_t at = 0; at < after.size(); ++at)
        if (at >= before.size() || after[at] != before[at])
            changed += (changed.empty() ? "" : "; ") + after[at];
    return changed;
}
