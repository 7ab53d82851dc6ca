// Thirty events a second change nothing here: a few numbers are compared before any text is.
#include "comforts/media_desk.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "comforts/enter_files.h"
#include "comforts/media_address.h"
#include "platform/paths.h"
#include "playback/navigation.h"
#include "playback/volume.h"
#include "playlist/media_list.h"

namespace {

constexpr std::int64_t kUsPerMs = 1000;
// A line of a playlist can be as long as its file, a message can't.
constexpr std::size_t kMostLetters = 1000;

bool IsAbsolute(TextView path) {
    return path.starts_with(u'\\') || path.starts_with(u'/');
}

// Where the entry's file is. Nothing is looked up, since a file system may hang: a relative path
// counts from its playlist's directory.
std::string AddressOf(const Velora& velora, const MediaEntry& entry) {
    const Text path = entry.Path + entry.File;
    if (path.size() > kMostLetters) return {};
    if (IsAbsolute(path)) return AddressOfPath(path);
    const PlaylistRecord& list = velora.Playlists[entry.Flag];
    const Text directory = list.Enabled ? list.Path : velora.System.CurrentDirectory() + u"\\";
    return AddressOfPath(directory + path);
}

Text Shortened(TextView text) {
    return Text(StartOf(text, kMostLetters));
}

} // namespace

void MediaDesk::Show(bool shown) {
    if (shown == m_isShown) return;
    m_isShown = shown;
    if (!shown) return m_bus.Disappear();
    m_stamp = StampNow();
    m_facts = FactsNow();
    m_jumps = m_context.Ear.Notes().Jumps;
    m_bus.Appear(*this);
}

MediaDesk::Stamp MediaDesk::StampNow() const {
    const Velora& velora = m_context.State;
    const TrackNotes& notes = m_context.Ear.Notes();
    return {velora.PlayerState,
            IsInTail(m_context),
            m_way.Steps(),
            m_context.Settings.Repeat,
            m_context.Settings.Shuffle,
            notes.Starts,
            notes.Told,
            velora.CurrentTrack,
            velora.Count,
            notes.Loaded};
}

MediaFacts MediaDesk::FactsNow() const {
    const Velora& velora = m_context.State;
    const TrackNotes& notes = m_context.Ear.Notes();
    MediaFacts facts;
    facts.Status = StatusOf({velora.PlayerState, IsInTail(m_context), m_way.Steps()});
    facts.Repeat = m_context.Settings.Repeat;
    facts.Shuffle = m_context.Settings.Shuffle;
    facts.VolumePercent = notes.VolumePercent;
    facts.CanStep = m_way.Playable() > 1;
    facts.CanPlay = m_way.Playable() > 0;
    facts.Track = velora.CurrentTrack;
    if (facts.Track == 0) return facts;
    const MediaEntry& entry = velora.MediaList[facts.Track];
    facts.Title =
        Shortened(notes.Title.empty() ? TitleOfFile(GetFileName(entry.File)) : notes.Title);
    facts.Artist = Shortened(notes.Artist);
    facts.Album = Shortened(notes.Album);
    facts.Address = AddressOf(velora, entry);
    facts.LengthMs = notes.LengthMs;
    facts.CanSeek = notes.Loaded && notes.LengthMs > 0;
    return facts;
}

void MediaDesk::Look() {
    if (!m_isShown) return;
    if (const Stamp stamp = StampNow(); stamp != m_stamp) {
        m_stamp = stamp;
        MediaFacts now = FactsNow();
        const std::vector<MediaProperty> changed = ChangedProperties(m_facts, now);
        m_facts = std::move(now);
        if (!changed.empty()) m_bus.TellChanged(changed);
    }
    const int jumps = m_context.Ear.Notes().Jumps;
    if (std::exchange(m_jumps, jumps) != jumps) m_bus.TellSeeked(PositionUs());
}

const MediaFacts& MediaDesk::Facts() {
    Look();
    return m_facts;
}

std::int64_t MediaDesk::PositionUs() const {
    if (m_facts.Status == MediaStatus::Stopped) return 0;
    return PlaceAt(m_context.Ear.Notes(), m_context.State.Loop.NowMs()) * kUsPerMs;
}

void MediaDesk::OnNext() {
    m_context.Queue.Add([this] { NextTrack(m_context.State); });
}

void MediaDesk::OnPrevious() {
    m_context.Queue.Add([this] { PreviousTrack(m_context.State); });
}

void MediaDesk::OnPause() {
    m_context.Queue.Add([this] { PauseTrack(m_context); });
}

void MediaDesk::OnPlayPause() {
    m_context.Queue.Add([this] {
        if (m_facts.Status == MediaStatus::Playing)
            PauseTrack(m_context);
        else
            PlayTrack(m_context, m_way);
    });
}

void MediaDesk::OnStop() {
    m_context.Queue.Add([this] { StopHeardTrack(m_context); });
}

void MediaDesk::OnPlay() {
    m_context.Queue.Add([this] { PlayTrack(m_context, m_way); });
}

void MediaDesk::Carry(const SeekPlan& plan) {
    if (plan.Next)
        NextTrack(m_context.State);
    else
        SeekInTrack(m_context, plan.DistanceMs);
}

void MediaDesk::OnSeek(std::int64_t distanceUs) {
    m_context.Queue.Add([this, distanceUs] {
        const TrackNotes& notes = m_context.Ear.Notes();
        if (!notes.Loaded || notes.LengthMs == 0) return;
        Carry(PlanSeek(PlaceAt(notes, m_context.State.Loop.NowMs()), notes.LengthMs, distanceUs));
    });
}

void MediaDesk::OnSetPosition(Integer track, std::int64_t placeUs) {
    m_context.Queue.Add([this, track, placeUs] {
        const TrackNotes& notes = m_context.Ear.Notes();
        if (!notes.Loaded || track == 0 || track != m_context.State.CurrentTrack) return;
        Carry(PlanPosition(PlaceAt(notes, m_context.State.Loop.NowMs()), notes.LengthMs, placeUs));
    });
}

MediaAnswer MediaDesk::OnOpenUri(const std::string& address) {
    const std::optional<Text> path = PathOfAddress(address);
    if (!path) return MediaAnswer::Invalid;
    const bool isMedia = MediaTypeOf(MediaExtension(*path)) != kNoMediaType;
    if (!isMedia && !IsPlaylist(*path)) return MediaAnswer::NotSupported;
    if (isMedia && m_context.State.Count >= m_context.State.MediaLimit &&
        FindMedia(m_context.State, GetFileName(*path)) == 0)
        return MediaAnswer::Full;
    m_context.Queue.Add(
        [this, path] { StartTrack(m_context.State, EnterPaths(m_context.State, {*path}).First); });
    return MediaAnswer::Done;
}

void MediaDesk::OnRepeat(bool repeat) {
    m_context.Settings.Repeat = repeat;
    OrderChanged();
}

void MediaDesk::OnShuffle(bool shuffle) {
    m_way.SetShuffle(shuffle);
    OrderChanged();
}

MediaAnswer MediaDesk::OnVolume(double volume) {
    if (std::isnan(volume)) return MediaAnswer::Invalid;
    const Integer step = StepNearest(std::clamp(volume, 0.0, 1.0) * 100);
    if (step != StepNearest(m_context.Ear.Notes().VolumePercent))
        GoToVolumeStep(m_context.State, step);
    return MediaAnswer::Done;
}
