// What start-up does for a skin is done here in the same order, without its lists and its sound.
#include "maker/trial.h"

#include <cmath>

#include "platform/paths.h"
#include "playback/navigation.h"
#include "playback/player_events.h"
#include "playlist/media_list.h"
#include "shell/window_behaviour.h"
#include "skin/apply_skin.h"
#include "skin/load_skin.h"

namespace {

constexpr Long kTrackMs = 200000, kPlayedMs = 86000;

// The volume reads its skin file by directory and name, which need a backslash between them.
Text WithDirectory(const Text& path) {
    return path.find(u'\\') == Text::npos ? u".\\" + path : path;
}

PlatformParts WithPictures(const PlatformParts& parts, Pictures& pictures) {
    return {parts.Window, parts.Dialogs,      parts.Loop,      pictures,
            parts.System, parts.VFmp3player1, parts.VFmp3scope};
}

// A sound with strong low tones, as most music has.
ScopeBars BarsOfMusic() {
    ScopeBars bars;
    for (std::size_t band = 0; band < bars.Level.size(); ++band) {
        const auto at = static_cast<float>(band);
        const float level = 0.9F - at * 0.014F + 0.15F * std::sin(at * 1.3F);
        bars.Level[band] = std::min(level, 0.95F);
        bars.Peak[band] = std::min(level + 0.1F, 1.0F);
    }
    return bars;
}

} // namespace

PicturePtr NotedPictures::LoadPicture(const Text& path) {
    return Loaded[path] = m_pictures.LoadPicture(path);
}

Trial::Trial(const PlatformParts& parts, const Text& path)
    : Path(WithDirectory(path)), Pictures(parts.Pictures), State(WithPictures(parts, Pictures)) {
    State.SkinWatch = [this](const ProfileRead& read) {
        Reads.push_back({Text(read.File), Text(read.Section), Text(read.Key), read.Field,
                         read.Given, read.Fits, read.Wanted});
    };
    ResetObjects(State.frmMain);
    ApplySkin(State, LoadSkinFile(State, Path));
    SetPicture(State.frmMain.picPlay, State.frmMain.picPlay1.Picture);
}

const KeyRead& Trial::ReadOf(const void* field) const {
    static const KeyRead none;
    const auto read = std::ranges::find(Reads, field, &KeyRead::Field);
    return read == Reads.end() ? none : *read;
}

Integer Trial::BrokenLight() const {
    for (Integer number = 1; number <= kLights; ++number) {
        const Shape& light = State.frmMain.shpPercent[number];
        if (light.Exists && !light.Visible) return number;
    }
    return 0;
}

void PlayTrial(Velora& velora) {
    Text directory = u"\\", file = u"Morning Song.mp3";
    velora.MediaLimit = 1;
    StartTrack(velora, AddMedia(velora, 1, directory, file));
    PlayerHandlers events(velora);
    events.OnTagInfo(u"Morning Song", u"The Lighthouse Keepers", {}, {}, {}, {});
    events.OnStreamInfo(192, 44100, 2);
    events.OnTrackLength(kTrackMs);
    events.OnPosition(kPlayedMs);
    velora.frmMain.VFmp3scope1.Bars = BarsOfMusic();
}
