// The player's own thread: carries out the commands, waits for the sound server, keeps the time.
#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "platform/audio/bell.h"
#include "platform/audio/player/audio_command.h"
#include "platform/audio/player/audio_settings.h"
#include "platform/audio/player/event_relay.h"
#include "platform/audio/scope/sample_ring.h"

/// Starts the thread, which sleeps until a command comes or the sound needs something. Without a
/// thread or a loop, which the system may refuse, commands do nothing.
class AudioEngine {
public:
    AudioEngine(const AudioSettings& settings, std::shared_ptr<EventRelay> relay,
                std::shared_ptr<SampleRing> ring);
    /// Ends the sound and the thread.
    ~AudioEngine();
    AudioEngine(const AudioEngine&) = delete;
    AudioEngine& operator=(const AudioEngine&) = delete;

    /// Leaves a command for the thread and returns. A `PlayCommand` or `StopCommand` removes the
    /// earlier commands for a track that the thread hasn't begun yet.
    void Send(AudioCommand command);

private:
    struct Parts;

    void Run();
    [[nodiscard]] std::vector<AudioCommand> TakeCommands();

    const AudioSettings m_settings;
    const std::shared_ptr<EventRelay> m_relay;
    const std::shared_ptr<SampleRing> m_ring;
    const std::shared_ptr<Bell> m_bell = std::make_shared<Bell>();
    std::mutex m_mutex;
    std::vector<AudioCommand> m_commands;
    std::optional<std::thread> m_thread;
};
