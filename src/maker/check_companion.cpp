// The skin that the playlist button changes to, as seen from this one: what stays behind.
#include <algorithm>
#include <set>

#include "maker/checks.h"
#include "platform/paths.h"
#include "skin/layout.h"

namespace {

bool Places(const SkinRecord& skin, Long type) {
    return std::ranges::any_of(skin.Objects, [&](const SkinObjectRecord& object) {
        return object.Type == type && ObjectCounts(object);
    });
}

// What stays on the window because the other skin says nothing of it. The lights stay in any case,
// and a background always comes with a skin.
void CheckLeftBehind(Report& report, const SkinRecord& other, const Text& name) {
    const SkinRecord& skin = report.Trial.Skin();
    std::set<Long> seen;
    Text words;
    for (const SkinObjectRecord& object : skin.Objects) {
        if (!ObjectCounts(object) || !seen.insert(object.Type).second) continue;
        const ObjectType& type = *ObjectTypeOf(object.Type);
        const bool stays =
            (type.Box && type.Box != &Form::picBackground) || type.TextLabel || type.Scope;
        if (stays && !Places(other, object.Type))
            words += (words.empty() ? u" doesn't place the " : u", ") + Text(type.Words);
    }
    if (!words.empty())
        report.At(&skin.Playlist, name + words + u"; what it doesn't place stays as it is here");
}

bool SameLights(const Form& one, const Form& other) {
    for (Integer number = 1; number <= kLights; ++number) {
        const Shape &here = one.shpPercent[number], &there = other.shpPercent[number];
        if (here.Visible != there.Visible || here.Left != there.Left || here.Top != there.Top ||
            here.Width != there.Width || here.Height != there.Height)
            return false;
    }
    return true;
}

} // namespace

void CheckCompanion(Report& report, const Trial* other) {
    const SkinRecord& skin = report.Trial.Skin();
    const KeyRead& read = report.Trial.ReadOf(&skin.Playlist);
    if (!read.Given) return;
    const Text wrong = FileWords(report.Trial, skin.Playlist, FileKind::Other);
    if (!FileExists(skin.Playlist))
        return report.At(&skin.Playlist, wrong + u", so the playlist button does nothing");
    if (!wrong.empty()) report.At(&skin.Playlist, wrong);
    const Text name = Quoted(*read.Given);
    if (read.Given->find(u'/') != Text::npos)
        report.At(&skin.Playlist, name + u" has a slash where only a backslash works, so the files "
                                         u"of that skin are looked for in the wrong directory");
    if (!other) return;
    if (!other->IsShown())
        return report.At(&skin.Playlist, name + u" is no skin of type 1, so it is never shown");
    CheckLeftBehind(report, other->Skin(), name);
    const Form &form = report.Trial.State.frmMain, &its = other->State.frmMain;
    if (form.shpPercent[1].Exists && its.shpPercent[1].Exists && !SameLights(form, its))
        report.At(&skin.Playlist, name + u" has its lights at other places; they keep those of the "
                                         u"skin that comes first");
}
