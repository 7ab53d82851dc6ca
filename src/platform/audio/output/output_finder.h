// Which output a track gets: the sound server's if there is one, else the silent clock.
#pragma once

#include "platform/audio/output/clock_output.h"
#include "platform/audio/output/pulse_output.h"
#include "platform/audio/output/pulse_server.h"

class OutputFinder : public OutputChooser {
public:
    /// Without `useServer` the clock is the only output.
    OutputFinder(PulseServer& server, bool useServer, double clockSpeed)
        : m_server(server), m_useServer(useServer), m_pulse(server), m_clock(clockSpeed) {}

    void Begin(std::int64_t nowUs) override;
    [[nodiscard]] SoundOutput* Choose(bool mustSound, std::int64_t nowUs) override;
    void NoteLost(std::int64_t nowUs) override;
    [[nodiscard]] std::optional<std::int64_t> DueUs() const override;

    /// Lets go of a stream that no track has used for some time, and when that is.
    void PollRest(std::int64_t nowUs) { m_pulse.PollRest(nowUs); }
    [[nodiscard]] std::optional<std::int64_t> RestDueUs() const { return m_pulse.RestDueUs(); }

private:
    PulseServer& m_server;
    bool m_useServer;
    PulseOutput m_pulse;
    ClockOutput m_clock;
    std::optional<std::int64_t> m_retryAtUs; ///< Until then the server isn't tried again.
};
