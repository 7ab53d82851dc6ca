// The connection to the sound server.
#pragma once

#include <string>

struct pa_context;
struct pa_mainloop;

/// Belongs to the player's thread and its loop. One that doesn't answer stays `Connecting` for as
/// long as libpulse waits, which is half a minute: how long the player waits is the player's
/// affair.
class PulseServer {
public:
    enum class State { Idle, Connecting, Ready, Failed };

    /// `address` as libpulse takes it; empty for the user's own server. Doesn't connect yet.
    PulseServer(pa_mainloop* loop, std::string address);
    ~PulseServer();
    PulseServer(const PulseServer&) = delete;
    PulseServer& operator=(const PulseServer&) = delete;

    /// Begins to connect, unless that is going on or done.
    void Connect();
    [[nodiscard]] State Current() const;
    [[nodiscard]] pa_context* Context() const { return m_context; }

private:
    void Disconnect();

    pa_mainloop* m_loop;
    std::string m_address;
    pa_context* m_context = nullptr;
    bool m_refused = false;
};
