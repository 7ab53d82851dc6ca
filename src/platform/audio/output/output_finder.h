// Which output a track gets: the sound server's if there is one, else the silent clock.
#pragma once

#include "platform/audio/output/clock_output.h"
#include "platform/audio/output/pulse_output.h"
#include "platform/audio/output/pulse_server.h"

/// Belongs to the player's thread. A track that nobody has heard yet is given the silent clock when
/// the server can't be reached; one that was heard waits for the server.
class OutputFinder {
public:
    /// Without `useServer` the clock is the only output. `clockSpeed`: how much faster than real
    /// time it runs.
    OutputFinder(PulseServer& server, bool useServer, double clockSpeed)
        : m_server(server), m_useServer(useServer), m_pulse(server), m_clock(clockSpeed) {}

    /// A track begins: connects, unless that is done, and forgets what was lost before.
    void Begin(std::int64_t nowUs);
    /// The output to open, or null while that isn't decided. With `mustSound`, for a track that was
    /// heard already, never the silent clock, however long the server stays away.
    [[nodiscard]] SoundOutput* Choose(bool mustSound, std::int64_t nowUs);
    /// The output that was chosen last has been lost: the server isn't tried again for a second.
    void NoteLost(std::int64_t nowUs);
    /// When to ask again, if nothing else happens before.
    [[nodiscard]] std::optional<std::int64_t> DueUs() const { return m_retryAtUs; }

    /// Disconnects a stream that no track has used for some seconds.
    void PollRest(std::int64_t nowUs) { m_pulse.PollRest(nowUs); }
    /// When that is due; nothing if there is no such stream.
    [[nodiscard]] std::optional<std::int64_t> RestDueUs() const { return m_pulse.RestDueUs(); }

private:
    PulseServer& m_server;
    bool m_useServer;
    PulseOutput m_pulse;
    ClockOutput m_clock;
    std::optional<std::int64_t> m_retryAtUs; ///< Until then the server isn't tried again.
};
