// The player's own thread: takes the commands, runs libpulse's loop, keeps the time.
#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "platform/audio/audio_player.h"
#include "platform/audio/bell.h"
#include "platform/audio/event_relay.h"
#include "platform/audio/track_reader.h"

/// One command to the player's thread. What a kind doesn't need stays empty.
struct AudioCommand {
    enum class Kind { Prepare, Play, Stop, TogglePause, Seek, SetVolume, Watch, Quit };

    explicit AudioCommand(Kind what, const EventStamp& stamp = {}, Long number = 0)
        : What(what), Stamp(stamp), Number(number) {}

    Kind What;
    EventStamp Stamp;       ///< Of the events that follow from it.
    TrackSource Source;     ///< `Play`.
    std::string StreamName; ///< `Play`: for a track without a title.
    Long Number;            ///< `Seek`: seconds; `SetVolume`: percent; `Watch`: 1 or 0.
};

/// Starts the thread, which sleeps until a command comes or sound has to be seen to.
class AudioEngine {
public:
    AudioEngine(const AudioSettings& settings, std::shared_ptr<EventRelay> relay,
                std::shared_ptr<SampleRing> ring);
    /// Ends the sound and the thread.
    ~AudioEngine();
    AudioEngine(const AudioEngine&) = delete;
    AudioEngine& operator=(const AudioEngine&) = delete;

    /// Leaves a command and returns. What an earlier one that wasn't begun would have started, and
    /// this one ends, isn't started.
    void Send(AudioCommand command);

private:
    struct Parts;

    void Run();
    [[nodiscard]] std::vector<AudioCommand> TakeCommands();
    [[nodiscard]] bool Carry(Parts& parts, AudioCommand& command);

    const AudioSettings m_settings;
    const std::shared_ptr<EventRelay> m_relay;
    const std::shared_ptr<SampleRing> m_ring;
    const std::shared_ptr<Bell> m_bell = std::make_shared<Bell>();
    std::mutex m_mutex;
    std::vector<AudioCommand> m_commands;
    std::optional<std::thread> m_thread;
};
