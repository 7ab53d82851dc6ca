// Names tell the entries apart, as everywhere in the menu.
#include "comforts/menu.h"

#include <algorithm>

namespace {

constexpr std::string_view kJump = "mnuJump", kOpen = "mnuOpen", kPlaylist = "mnuOpenPlaylist";
// By their numbers.
constexpr std::string_view kScales[] = {"mnuScale0", "mnuScale1", "mnuScale2", "mnuScale3",
                                        "mnuScale4"};

} // namespace

void AppendComforts(std::vector<MenuEntry>& menu, const ComfortSettings& settings) {
    menu.push_back({"mnuSepComforts", 1, u"-", true, true, {}, false});
    menu.push_back({kOpen, 1, u"Open", true, true, {}, false});
    menu.push_back({kJump, 1, u"Jump", true, true, {}, false});
    menu.push_back({kPlaylist, 1, u"Playlist", true, true, {}, false});
    menu.push_back({"mnuComforts", 1, u"Comforts", true, true, {}, true});
    for (const ComfortRow& row : ComfortTable())
        menu.push_back({row.MenuName, 2, Text(row.Key), true, true, false, false});
    menu.push_back({"mnuScale", 2, u"Scale (from the next start)", true, true, {}, true});
    for (Integer scale = 0; scale <= kMostScale; ++scale)
        menu.push_back({kScales[scale], 3, Decimal(scale), true, true, false, false});
    MarkComforts(menu, settings);
}

void MarkComforts(std::vector<MenuEntry>& menu, const ComfortSettings& settings) {
    for (MenuEntry& entry : menu) {
        if (entry.Name == kJump) entry.Visible = settings.Jump;
        const MenuChoice choice = ChoiceOf(entry.Name);
        if (choice.Comfort) entry.Marked = bool{settings.*choice.Comfort->Field};
        if (choice.Command == MenuCommand::Scale) entry.Marked = choice.Scale == settings.Scale;
    }
}

MenuChoice ChoiceOf(std::string_view name) {
    if (name == kOpen) return {MenuCommand::Open};
    if (name == kJump) return {MenuCommand::Jump};
    if (name == kPlaylist) return {MenuCommand::Playlist};
    for (const ComfortRow& row : ComfortTable())
        if (row.MenuName == name) return {MenuCommand::Switch, &row};
    for (Integer scale = 0; scale <= kMostScale; ++scale)
        if (kScales[scale] == name) return {MenuCommand::Scale, nullptr, scale};
    return {};
}
