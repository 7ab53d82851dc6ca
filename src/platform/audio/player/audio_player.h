// The real player: libmpg123 for the files, libpulse for the sound, each on threads of their own.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/audio/player/audio_settings.h"
#include "platform/audio/scope/sample_ring.h"
#include "platform/loop.h"
#include "platform/player.h"

class AudioEngine;
class EventRelay;

/// Every operation leaves a command for the player's own thread and returns; the caller never
/// touches a file or a server. Events come back through the loop, one in each task.
class AudioPlayer : public Player {
public:
    /// Starts no thread and opens nothing. `loop` must stay as long as the player.
    explicit AudioPlayer(Loop& loop, AudioSettings settings = {});
    /// Ends the sound. Waits for the player's own thread, which ends within moments, and for no
    /// thread that reads a file. Must not run inside one of this player's events.
    ~AudioPlayer() override;
    AudioPlayer(const AudioPlayer&) = delete;
    AudioPlayer& operator=(const AudioPlayer&) = delete;

    /// Who is told of events; without anybody they are dropped. `events` must stay as long as the
    /// player.
    void Attach(PlayerEvents& events);

    /// Begins the connection to the sound server, so that it stands when the first track comes.
    /// Optional; returns at once.
    void Prepare();

    /// Where the player puts the samples for the scope. Stays as long as the player.
    [[nodiscard]] SampleRing& Ring() { return *m_ring; }

    /// Whether the window and the scope in it can be seen. For a window that can't, positions come
    /// seldom; for a scope that can't, no frames. Starts at `true` and `false`.
    void SetVisibility(bool window, bool scope);

    void LookIn(const std::vector<Text>& directories) override;
    void TrackFile(const Text& path) override;
    void Play() override;
    void Stop() override;
    void TogglePause() override;
    void Seek(Long seconds) override;
    void SeekBy(Long milliseconds) override;
    void SetVolume(Integer& percent) override;

private:
    /// Starts the thread when it is first needed.
    AudioEngine& Engine();
    /// The number of a new pause or seek; events from before it are dropped from now on.
    int NextCommand();
    void SendSeek(std::int64_t milliseconds);

    AudioSettings m_settings;
    std::shared_ptr<SampleRing> m_ring;
    std::shared_ptr<EventRelay> m_relay;
    std::unique_ptr<AudioEngine> m_engine;
    std::vector<Text> m_directories;
    Text m_path;
    bool m_loaded = false; ///< Whether `Play` came after the last `Stop`.
    bool m_windowVisible = true;
    Integer m_percent = 100;
};
