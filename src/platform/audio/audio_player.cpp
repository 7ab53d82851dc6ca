// The window's side of the player: it numbers the commands, so that events can be told to be out of
// date.
#include "platform/audio/audio_player.h"

#include <algorithm>
#include <utility>

#include "platform/audio/audio_engine.h"
#include "platform/paths.h"

AudioPlayer::AudioPlayer(Loop& loop, AudioSettings settings)
    : m_settings(std::move(settings)), m_ring(std::make_shared<SampleRing>()),
      m_relay(std::make_shared<EventRelay>(loop)) {}

AudioPlayer::~AudioPlayer() {
    m_relay->Attach(nullptr);
}

void AudioPlayer::Attach(PlayerEvents& events) {
    m_relay->Attach(&events);
}

AudioEngine& AudioPlayer::Engine() {
    if (!m_engine) {
        m_engine = std::make_unique<AudioEngine>(m_settings, m_relay, m_ring);
        m_engine->Send(AudioCommand(AudioCommand::Kind::SetVolume, {}, m_percent));
        m_engine->Send(AudioCommand(AudioCommand::Kind::Watch, {}, m_watched ? 1 : 0));
    }
    return *m_engine;
}

void AudioPlayer::Prepare() {
    Engine().Send(AudioCommand(AudioCommand::Kind::Prepare));
}

void AudioPlayer::SetSight(bool window, bool scope) {
    m_ring->SetSeen(scope);
    m_watched = window;
    if (m_engine) m_engine->Send(AudioCommand(AudioCommand::Kind::Watch, {}, window ? 1 : 0));
}

void AudioPlayer::LookIn(const std::vector<Text>& directories) {
    m_directories = directories;
}

void AudioPlayer::TrackFile(const Text& path) {
    m_path = path;
}

void AudioPlayer::Play() {
    const EventStamp stamp{m_relay->Expected().Track + 1, 0};
    m_relay->Expect(stamp);
    m_loaded = true;
    AudioCommand play(AudioCommand::Kind::Play, stamp);
    play.Source = {m_path, m_directories, m_settings.Open};
    play.StreamName = Utf8(GetFileName(m_path));
    Engine().Send(std::move(play));
}

void AudioPlayer::Stop() {
    if (!m_loaded) return;
    m_loaded = false;
    m_relay->Expect({m_relay->Expected().Track + 1, 0});
    Engine().Send(AudioCommand(AudioCommand::Kind::Stop));
}

void AudioPlayer::TogglePause() {
    if (!m_loaded) return;
    EventStamp stamp = m_relay->Expected();
    ++stamp.Command;
    m_relay->Expect(stamp);
    Engine().Send(AudioCommand(AudioCommand::Kind::TogglePause, stamp));
}

void AudioPlayer::Seek(Long seconds) {
    if (!m_loaded || seconds == 0) return;
    EventStamp stamp = m_relay->Expected();
    ++stamp.Command;
    m_relay->Expect(stamp);
    Engine().Send(AudioCommand(AudioCommand::Kind::Seek, stamp, seconds));
}

void AudioPlayer::SetVolume(Integer& percent) {
    m_percent = std::clamp<Integer>(percent, 0, 100);
    // Without a thread the number waits for the first track.
    if (m_engine) m_engine->Send(AudioCommand(AudioCommand::Kind::SetVolume, {}, m_percent));
}
