// One loop: commands, then whatever is due, then sleep until the next thing happens.
#include "platform/audio/player/audio_engine.h"

#include <utility>

#include "platform/audio/decode/track_reader.h"
#include "platform/audio/output/audio_clock.h"
#include "platform/audio/output/output_finder.h"
#include "platform/audio/output/pulse_loop.h"
#include "platform/audio/player/overloaded.h"
#include "platform/audio/player/track_player.h"
#include "platform/audio/worker_thread.h"
#include "platform/deadline.h"

namespace {

bool BeginsOrEndsTrack(const AudioCommand& command) {
    return std::holds_alternative<PlayCommand>(command) ||
           std::holds_alternative<StopCommand>(command);
}

bool IsForTrack(const AudioCommand& command) {
    return BeginsOrEndsTrack(command) || std::holds_alternative<TogglePauseCommand>(command) ||
           std::holds_alternative<SeekCommand>(command);
}

} // namespace

/// All that lives on the thread.
struct AudioEngine::Parts {
    explicit Parts(AudioEngine& engine)
        : Engine(engine), Loop(*engine.m_bell), Server(Loop.Handle(), engine.m_settings.Server),
          Outputs(Server, engine.m_settings.UseServer, engine.m_settings.ClockSpeed),
          Track(Outputs, *engine.m_relay, *engine.m_ring) {}

    void Carry(AudioCommand& command) {
        const std::int64_t nowUs = NowUs();
        std::visit(
            Overloaded{
                [&](PrepareCommand&) {
                    if (Engine.m_settings.UseServer) Server.Connect();
                },
                [&](PlayCommand& play) { Play(play, nowUs); },
                [&](StopCommand&) { Track.Stop(nowUs); },
                [&](TogglePauseCommand& toggle) { Track.TogglePause(toggle.Number, nowUs); },
                [&](SeekCommand& seek) { Track.SeekBy(seek.Ms, seek.Number, nowUs); },
                [&](SetVolumeCommand& volume) { Track.SetVolume(volume.Percent, nowUs); },
                [&](SetVisibilityCommand& visible) { Track.SetVisibility(visible.Window, nowUs); },
                [&](QuitCommand&) {
                    Track.Stop(nowUs);
                    GoesOn = false;
                },
            },
            command);
    }

    void Play(PlayCommand& play, std::int64_t nowUs) {
        auto session = std::make_shared<TrackSession>(Engine.m_bell);
        // The reader begins before the old track is stopped: both take a moment.
        StartReading(std::move(play.Source), session);
        Track.Start(std::move(session), play.Stamp, std::move(play.StreamName), nowUs);
    }

    void DoWhatIsDue() {
        Outputs.PollRest(NowUs());
        Track.Pump(NowUs());
    }

    [[nodiscard]] bool Sleep() {
        return Loop.SleepUntil(Earliest({Track.DueUs(NowUs()), Outputs.RestDueUs()}));
    }

    AudioEngine& Engine;
    PulseLoop Loop;
    PulseServer Server;
    OutputFinder Outputs;
    TrackPlayer Track;
    bool GoesOn = true;
};

AudioEngine::AudioEngine(const AudioSettings& settings, std::shared_ptr<EventRelay> relay,
                         std::shared_ptr<SampleRing> ring)
    : m_settings(settings), m_relay(std::move(relay)), m_ring(std::move(ring)) {
    m_thread = StartThread("velora-sound", [this] { Run(); });
}

AudioEngine::~AudioEngine() {
    Send(QuitCommand{});
    if (m_thread) m_thread->join();
}

void AudioEngine::Send(AudioCommand command) {
    {
        const std::lock_guard lock(m_mutex);
        if (BeginsOrEndsTrack(command)) std::erase_if(m_commands, IsForTrack);
        m_commands.push_back(std::move(command));
    }
    m_bell->Ring();
}

std::vector<AudioCommand> AudioEngine::TakeCommands() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_commands, {});
}

void AudioEngine::Run() {
    Parts parts(*this);
    if (!parts.Loop.Handle()) return;
    while (true) {
        for (AudioCommand& command : TakeCommands())
            parts.Carry(command);
        if (!parts.GoesOn) return;
        parts.DoWhatIsDue();
        if (!parts.Sleep()) return;
    }
}
