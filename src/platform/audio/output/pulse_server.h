// The connection to the sound server.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

struct pa_context;
struct pa_mainloop;

/// Belongs to the player's thread and its loop. A server that refuses, or doesn't answer within two
/// seconds, counts as none.
class PulseServer {
public:
    enum class State { Idle, Connecting, Ready, Failed };

    /// `address` as libpulse takes it; empty for the user's own server. Doesn't connect yet.
    PulseServer(pa_mainloop* loop, std::string address);
    ~PulseServer();
    PulseServer(const PulseServer&) = delete;
    PulseServer& operator=(const PulseServer&) = delete;

    /// Begins to connect, unless that is going on or done.
    void Connect(std::int64_t nowUs);
    /// Gives up a connection that takes too long.
    void Poll(std::int64_t nowUs);
    [[nodiscard]] State Current() const;
    [[nodiscard]] pa_context* Context() const { return m_context; }
    /// When `Poll` has something to do.
    [[nodiscard]] std::optional<std::int64_t> DueUs() const;

private:
    void Disconnect();

    pa_mainloop* m_loop;
    std::string m_address;
    pa_context* m_context = nullptr;
    std::int64_t m_limitUs = 0;
    bool m_gaveUp = false;
};
