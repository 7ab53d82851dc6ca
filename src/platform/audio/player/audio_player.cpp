// The window's side of the player: it numbers the commands, so that events can be told to be out of
// date.
#include "platform/audio/player/audio_player.h"

#include <algorithm>
#include <utility>

#include "platform/audio/player/audio_engine.h"
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
        m_engine->Send(SetVolumeCommand{m_percent});
        m_engine->Send(SetVisibilityCommand{m_windowVisible});
    }
    return *m_engine;
}

void AudioPlayer::Prepare() {
    Engine().Send(PrepareCommand{});
}

void AudioPlayer::SetVisibility(bool window, bool scope) {
    m_ring->SetVisibility(scope);
    m_windowVisible = window;
    if (m_engine) m_engine->Send(SetVisibilityCommand{window});
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
    Engine().Send(
        PlayCommand{stamp, {m_path, m_directories, m_settings.Open}, Utf8(GetFileName(m_path))});
}

void AudioPlayer::Stop() {
    if (!m_loaded) return;
    m_loaded = false;
    m_relay->Expect({m_relay->Expected().Track + 1, 0});
    Engine().Send(StopCommand{});
}

int AudioPlayer::NextCommand() {
    EventStamp stamp = m_relay->Expected();
    ++stamp.Command;
    m_relay->Expect(stamp);
    return stamp.Command;
}

void AudioPlayer::TogglePause() {
    if (!m_loaded) return;
    Engine().Send(TogglePauseCommand{NextCommand()});
}

void AudioPlayer::Seek(Long seconds) {
    SendSeek(std::int64_t{seconds} * 1000);
}

void AudioPlayer::SeekBy(Long milliseconds) {
    SendSeek(milliseconds);
}

void AudioPlayer::SendSeek(std::int64_t milliseconds) {
    if (!m_loaded || milliseconds == 0) return;
    Engine().Send(SeekCommand{NextCommand(), milliseconds});
}

void AudioPlayer::SetVolume(Integer& percent) {
    m_percent = std::clamp<Integer>(percent, 0, 100);
    // Without a thread the number waits for the first track.
    if (m_engine) m_engine->Send(SetVolumeCommand{m_percent});
}
