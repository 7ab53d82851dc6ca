// Which output a track gets: the sound server's if there is one, else the silent clock.
#pragma once

#include "platform/audio/output/clock_output.h"
#include "platform/audio/output/pulse_output.h"
#include "platform/audio/output/pulse_server.h"

/// Belongs to the player's thread. A track that nobody has heard yet is given the silent clock when
/// the server can't be reached, or doesn't answer within two seconds; if it does so later, the
/// track is heard from then on. One that was heard waits for the server.
class OutputFinder {
public:
    /// Without `useServer` the clock is the only output. `clockSpeed`: how much faster than real
    /// time it runs.
    OutputFinder(PulseServer& server, bool useServer, double clockSpeed)
        : m_server(server), m_useServer(useServer), m_pulse(server), m_clock(clockSpeed) {}

    /// A track begins: connects, unless that is done, and forgets what was lost before.
    void Begin();
    /// The output to open, or null while that isn't decided. With `mustSound`, for a track that was
    /// heard already, never the silent clock, however long the server stays away.
    [[nodiscard]] SoundOutput* Choose(bool mustSound, std::int64_t nowUs);
    /// Of an output that is still `Opening`: whether that takes too long. It is then to be closed,
    /// and the next choice is the clock.
    [[nodiscard]] bool GivesUp(bool mustSound, std::int64_t nowUs);
    /// Whether what took too long is there now, and the clock isn't needed any more.
    [[nodiscard]] bool HasCome() const;
    /// The output that was chosen last has been lost: the server isn't tried again for a second.
    void NoteLost(std::int64_t nowUs);
    /// When to ask again, if nothing else happens before.
    [[nodiscard]] std::optional<std::int64_t> DueUs(bool mustSound) const;

    /// Disconnects a stream that no track has used for some seconds.
    void PollRest(std::int64_t nowUs) { m_pulse.PollRest(nowUs); }
    /// When that is due; nothing if there is no such stream.
    [[nodiscard]] std::optional<std::int64_t> RestDueUs() const { return m_pulse.RestDueUs(); }

private:
    /// What wasn't there in time, and may still come.
    enum class Late { Nothing, Server, Stream };

    [[nodiscard]] bool IsAwaited() const;

    PulseServer& m_server;
    bool m_useServer;
    PulseOutput m_pulse;
    ClockOutput m_clock;
    std::optional<std::int64_t> m_retryAtUs; ///< Until then the server isn't tried again.
    std::optional<std::int64_t> m_limitUs;   ///< From then on the clock stands in.
    Late m_late = Late::Nothing;
};
