// A step goes from the track that was current before its wait, so that impatient clicks don't add
// up, through the list as it is after it.
#include "playback/navigation.h"

#include <algorithm>

#include "display/progress.h"
#include "platform/paths.h"
#include "playlist/media_list.h"

namespace {

constexpr double kSecondsBetweenTracks = 0.2;
constexpr int kSuffixCharacters = 4;

void Step(Velora& velora, StepDirection direction) {
    const Integer current = velora.CurrentTrack;
    const auto beside = [&] {
        return direction == StepDirection::Forward ? IndexAfter(current, velora.Count)
                                                   : IndexBefore(current, velora.Count);
    };
    const auto& choose = velora.Listeners.ChooseStep;
    const std::optional<Integer> chosen = choose ? choose(direction) : beside();
    if (!chosen) return;
    velora.VFmp3player1.Stop();
    ResetDisplay(velora);
    Delay(velora.Loop, kSecondsBetweenTracks);
    StartTrack(velora, choose ? *chosen : beside().value_or(Integer{0}));
}

} // namespace

bool IsPlayable(const MediaEntry& entry) {
    if (entry.Type != kMp1Media && entry.Type != kMp2Media && entry.Type != kMp3Media) return false;
    return entry.Enabled && !(entry.Path.empty() && entry.File.empty());
}

Text DisplayName(TextView fileName) {
    TextView name = fileName;
    for (int cut = 0; cut < kSuffixCharacters; ++cut) {
        if (name.empty()) return Text(fileName);
        name = WithoutLastCharacter(name);
    }
    return Text(name) + u" ... ";
}

std::vector<Text> LookInDirectories(const Velora& velora) {
    std::vector<Text> directories;
    const auto add = [&](Text directory) {
        if (!directory.ends_with(u'\\')) directory += u'\\';
        if (std::find(directories.begin(), directories.end(), directory) == directories.end())
            directories.push_back(std::move(directory));
    };
    add(velora.System.CurrentDirectory());
    for (const PlaylistRecord& record : velora.Playlists)
        if (record.Enabled) add(record.Path);
    return directories;
}

void StartTrack(Velora& velora, Integer Index) {
    const MediaEntry& entry = velora.MediaList[Index];
    if (Index < 1 || Index > velora.Count || !IsPlayable(entry)) return;
    Form& form = velora.frmMain;
    const Text path = entry.Path + entry.File;
    velora.VFmp3player1.Stop();
    velora.VFmp3player1.LookIn(LookInDirectories(velora));
    velora.VFmp3player1.TrackFile(path);
    velora.VFmp3player1.Play();
    form.VFmp3scope1.Visible = true;
    SetPicture(form.picPlay, form.picStop1.Picture);
    velora.PlayerState = PlayerState::Playing;
    form.lblFilescroll.Caption = DisplayName(GetFileName(path));
    form.tmrScrollFiletitle.Enabled = true;
    form.lblStatusLabel.Caption = u"Playing";
    velora.CurrentTrack = Index;
}

std::optional<Integer> IndexAfter(Integer current, Integer count) {
    if (count == 0 || count == 1) return std::nullopt;
    if (current == count || current == 0) return Integer{1};
    return static_cast<Integer>(current + 1);
}

std::optional<Integer> IndexBefore(Integer current, Integer count) {
    if (count == 0) return std::nullopt;
    if (current == count) return static_cast<Integer>(current - 1);
    if (current == 1 || current == 0) return count;
    return static_cast<Integer>(current - 1);
}

void NextTrack(Velora& velora) {
    Step(velora, StepDirection::Forward);
}

void PreviousTrack(Velora& velora) {
    Step(velora, StepDirection::Backward);
}
