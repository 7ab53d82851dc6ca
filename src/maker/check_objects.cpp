// The objects one by one: what they are, and the files that they name.
#include <algorithm>

#include "maker/checks.h"
#include "platform/paths.h"
#include "skin/layout.h"
#include "skin/load_skin.h"

namespace {

bool IsLights(const ObjectType& type) {
    return !type.Box && !type.TextLabel && !type.Scope;
}

bool IsVolume(const ObjectType& type) {
    return type.Box && !type.NormalHolder;
}

// A path without the directory of the skin.
TextView NameIn(const Trial& trial, TextView path) {
    return path.substr(std::min(trial.Skin().Directory.size(), path.size()));
}

PicturePtr LoadedFrom(const Trial& trial, const Text& path) {
    const auto loaded = trial.Pictures.Loaded.find(path);
    return loaded == trial.Pictures.Loaded.end() ? nullptr : loaded->second;
}

// Why a path gives no file, or not by its right name; empty if all is well.
Text PathWords(const Trial& trial, const Text& path, FileKind kind) {
    const Text name = Quoted(NameIn(trial, path));
    const std::optional<std::string> found = FindPath(path);
    if (!found) return name + u" isn't there";
    if (!FileExists(path)) return name + u" is no file";
    if (const std::string written = PathBytes(path); *found != written)
        return name + u" is called " + Quoted(NameIn(trial, PathText(*found))) +
               u"; capital and small letters differ";
    const auto loaded = trial.Pictures.Loaded.find(path);
    if (kind == FileKind::Picture && loaded != trial.Pictures.Loaded.end() && !loaded->second)
        return name + u" is no picture that can be read";
    return {};
}

void CheckFile(Report& report, const Text& path, FileKind kind) {
    if (const Text words = FileWords(report.Trial, path, kind); !words.empty())
        report.At(&path, words);
}

void CheckSameSize(Report& report, const Text& path, const Text& other, const Text& whose) {
    const PicturePtr one = LoadedFrom(report.Trial, path), two = LoadedFrom(report.Trial, other);
    if (!one || !two || (one->WidthPx == two->WidthPx && one->HeightPx == two->HeightPx)) return;
    report.At(&path, SizeWords(one->WidthPx, one->HeightPx) + u", but " + whose + u" has " +
                         SizeWords(two->WidthPx, two->HeightPx));
}

// The picture files of the steps: one finding for all that are wrong.
void CheckSteps(Report& report, const SkinObjectRecord& object) {
    if (!report.Trial.ReadOf(&object.FileName2).Given)
        return report.At(&object.FileName2, u"missing, so the steps have no pictures");
    const SkinRecord& skin = report.Trial.Skin();
    Text words;
    int wrongs = 0;
    for (Integer step = 1; step <= kVolumeSteps; ++step) {
        const Text wrong = PathWords(report.Trial, skin.VolumeImages[step], FileKind::Picture);
        wrongs += wrong.empty() ? 0 : 1;
        if (words.empty()) words = wrong;
    }
    if (wrongs > 1) words += u"; " + Decimal(wrongs) + u" of the seven are wrong";
    if (!words.empty()) report.At(&object.FileName2, words);
}

void CheckFiles(Report& report, const ObjectType& type, const SkinObjectRecord& object) {
    if (type.TextLabel || type.Scope) return;
    CheckFile(report, object.FileName, IsLights(type) ? FileKind::Other : FileKind::Picture);
    if (IsVolume(type)) CheckSteps(report, object);
    if (!type.NormalHolder) return;
    // The second picture of the background never shows.
    const bool isBackground = type.Box == &Form::picBackground;
    if (!isBackground || report.Trial.ReadOf(&object.FileName2).Given)
        CheckFile(report, object.FileName2, FileKind::Picture);
    CheckSameSize(report, object.FileName2, object.FileName, u"the picture at rest");
}

// Of two objects of one type only one counts.
void CheckTwins(Report& report, Integer index) {
    const SkinRecord& skin = report.Trial.Skin();
    const SkinObjectRecord& object = skin.Objects[index];
    for (Integer other = 1; other < index; ++other) {
        const SkinObjectRecord& before = skin.Objects[other];
        if (before.Type != object.Type || !ObjectCounts(before) || !ObjectCounts(object)) continue;
        const ObjectType& type = *ObjectTypeOf(object.Type);
        const Text name = Text(kObjectSection) + Decimal(other);
        report.At(&object.Type, name + u" is the " + Text(type.Words) + u", too; the " +
                                    (IsLights(type) ? u"first" : u"later") + u" one counts");
        return;
    }
}

const SkinObjectRecord* FindPlaced(const SkinRecord& skin, PictureBox Form::*box) {
    for (const SkinObjectRecord& object : skin.Objects)
        if (ObjectCounts(object) && ObjectTypeOf(object.Type)->Box == box) return &object;
    return nullptr;
}

void CheckPlayAndStop(Report& report) {
    const SkinObjectRecord* const play = FindPlaced(report.Trial.Skin(), &Form::picPlay);
    const SkinObjectRecord* const stop = FindPlaced(report.Trial.Skin(), &Form::picStop);
    if (play && !stop)
        report.At(&play->Type, u"no object has the stop picture, so the button vanishes while a "
                               u"track is on");
    if (play && stop) CheckSameSize(report, stop->FileName, play->FileName, u"the play button");
}

} // namespace

Text FileWords(const Trial& trial, const Text& path, FileKind kind) {
    const KeyRead& read = trial.ReadOf(&path);
    if (!read.Given) return u"missing";
    const Text words = PathWords(trial, path, kind);
    return words.empty() ? words : words + RemarkWords(*read.Given);
}

void CheckObjects(Report& report) {
    const SkinRecord& skin = report.Trial.Skin();
    if (skin.ObjectCount > skin.Objects.kLast)
        report.At(&skin.ObjectCount, u"only " + Decimal(skin.Objects.kLast) + u" objects are read");
    for (Integer index = 1; index <= std::min(skin.ObjectCount, skin.Objects.kLast); ++index) {
        const SkinObjectRecord& object = skin.Objects[index];
        if (!object.Enabled) continue;
        const KeyRead& read = report.Trial.ReadOf(&object.Type);
        const ObjectType* const type = ObjectTypeOf(object.Type);
        if (!read.Given)
            report.At(&object.Type, u"missing, so this is taken for the background");
        else if (!type)
            report.At(&object.Type, Decimal(object.Type) + u" is no object, so nothing is placed");
        if (type) CheckFiles(report, *type, object);
        CheckTwins(report, index);
    }
    CheckPlayAndStop(report);
}
