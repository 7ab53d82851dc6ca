// One loop: commands, then whatever is due, then asleep in libpulse's poll until the next thing
// happens.
#include "platform/audio/audio_engine.h"

#include <algorithm>
#include <pulse/mainloop-api.h>
#include <pulse/mainloop.h>
#include <utility>

#include "platform/audio/audio_clock.h"
#include "platform/audio/output_finder.h"
#include "platform/audio/transport.h"
#include "platform/audio/worker_thread.h"

namespace {

/// The poll takes its time as an `int`.
constexpr std::int64_t kLongestSleepUs = 1'000'000'000;

void OnBell(pa_mainloop_api*, pa_io_event*, int, pa_io_event_flags_t, void* bell) {
    static_cast<Bell*>(bell)->Clear();
}

} // namespace

/// All that lives on the thread.
struct AudioEngine::Parts {
    Parts(pa_mainloop* loop, const AudioSettings& settings, EventRelay& relay, SampleRing& ring)
        : Server(loop, settings.Server), Outputs(Server, settings.UseServer, settings.ClockSpeed),
          Track(Outputs, relay, ring) {}

    [[nodiscard]] int SleepUs() const {
        const std::int64_t nowUs = NowUs();
        std::optional<std::int64_t> due = Track.DueUs(nowUs);
        for (const std::optional<std::int64_t> other : {Server.DueUs(), Outputs.RestDueUs()})
            if (other && (!due || *other < *due)) due = other;
        if (!due) return -1;
        return static_cast<int>(std::clamp<std::int64_t>(*due - nowUs, 0, kLongestSleepUs));
    }

    PulseServer Server;
    OutputFinder Outputs;
    Transport Track;
};

AudioEngine::AudioEngine(const AudioSettings& settings, std::shared_ptr<EventRelay> relay,
                         std::shared_ptr<SampleRing> ring)
    : m_settings(settings), m_relay(std::move(relay)), m_ring(std::move(ring)) {
    m_thread = StartThread("velora-sound", [this] { Run(); });
}

AudioEngine::~AudioEngine() {
    Send(AudioCommand(AudioCommand::Kind::Quit));
    if (m_thread) m_thread->join();
}

void AudioEngine::Send(AudioCommand command) {
    {
        const std::lock_guard lock(m_mutex);
        const bool ends =
            command.What == AudioCommand::Kind::Play || command.What == AudioCommand::Kind::Stop;
        if (ends)
            std::erase_if(m_commands, [](const AudioCommand& earlier) {
                return earlier.What != AudioCommand::Kind::SetVolume &&
                       earlier.What != AudioCommand::Kind::Watch &&
                       earlier.What != AudioCommand::Kind::Prepare;
            });
        m_commands.push_back(std::move(command));
    }
    m_bell->Ring();
}

std::vector<AudioCommand> AudioEngine::TakeCommands() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_commands, {});
}

bool AudioEngine::Carry(Parts& parts, AudioCommand& command) {
    const std::int64_t nowUs = NowUs();
    switch (command.What) {
    case AudioCommand::Kind::Quit:
        parts.Track.Stop(nowUs);
        return false;
    case AudioCommand::Kind::Prepare:
        if (m_settings.UseServer) parts.Server.Connect(nowUs);
        break;
    case AudioCommand::Kind::Play: {
        auto session = std::make_shared<TrackSession>(m_bell);
        // The reader begins before the old track is put away: both take a moment.
        StartReading(std::move(command.Source), session);
        parts.Track.Start(std::move(session), command.Stamp, std::move(command.StreamName), nowUs);
        break;
    }
    case AudioCommand::Kind::Stop:
        parts.Track.Stop(nowUs);
        break;
    case AudioCommand::Kind::TogglePause:
        parts.Track.TogglePause(command.Stamp.Command, nowUs);
        break;
    case AudioCommand::Kind::Seek:
        parts.Track.Seek(command.Number, command.Stamp.Command, nowUs);
        break;
    case AudioCommand::Kind::SetVolume:
        parts.Track.SetVolume(static_cast<int>(command.Number), nowUs);
        break;
    case AudioCommand::Kind::Watch:
        parts.Track.SetWatched(command.Number != 0, nowUs);
        break;
    }
    return true;
}

void AudioEngine::Run() {
    pa_mainloop* loop = pa_mainloop_new();
    if (!loop) return;
    pa_mainloop_api* api = pa_mainloop_get_api(loop);
    pa_io_event* wake =
        api->io_new(api, m_bell->Descriptor(), PA_IO_EVENT_INPUT, OnBell, m_bell.get());
    {
        Parts parts(loop, m_settings, *m_relay, *m_ring);
        for (bool goesOn = true; goesOn;) {
            for (AudioCommand& command : TakeCommands())
                if (goesOn) goesOn = Carry(parts, command);
            if (!goesOn) break;
            parts.Server.Poll(NowUs());
            parts.Outputs.PollRest(NowUs());
            parts.Track.Pump(NowUs());
            // A bell that rings from here on ends the sleep at once, so nothing can be missed.
            if (pa_mainloop_prepare(loop, parts.SleepUs()) < 0 || pa_mainloop_poll(loop) < 0) break;
            pa_mainloop_dispatch(loop);
        }
    }
    if (wake) api->io_free(wake);
    pa_mainloop_free(loop);
}
