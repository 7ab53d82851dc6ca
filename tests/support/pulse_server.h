// A sound server of a test's own, with one silent sink, and a recorder of what that sink gets.
#pragma once

#include <csignal>
#include <cstdint>
#include <string>
#include <sys/types.h>
#include <vector>

#include "support/temp_directory.h"

/// `Null` behaves as a sound card does and takes back what it hasn't played yet, but a recording of
/// it lacks the few milliseconds that were taken back and played anew. `Pipe` takes nothing back
/// and shows every sample that the server played, so a pause or seek is heard late. `PipeWire` is
/// the silent sink of another server, which mixes nothing ahead.
enum class TestSink { Null, Pipe, PipeWire };

/// A sound server in a temporary directory. Its sink takes 16 bits at 44,100 Hz, so what a player
/// sends in that format arrives bit for bit.
class PrivatePulseServer {
public:
    /// Starts the server; `IsRunning` tells whether that worked.
    explicit PrivatePulseServer(TestSink sink) : m_sink(sink) { Start(); }
    ~PrivatePulseServer() { Kill(); }

    /// Starts it (again) and waits until it listens. False if it doesn't.
    bool Start();
    /// Ends it as a crash would.
    void Kill();
    /// From now on it is there, but doesn't answer, until it thaws.
    void Freeze() const { kill(m_process, SIGSTOP); }
    void Thaw() const { kill(m_process, SIGCONT); }
    [[nodiscard]] bool IsRunning() const { return m_process > 0; }
    /// What `PULSE_SERVER` is to be.
    [[nodiscard]] std::string Address() const { return "unix:" + m_files.Path("native"); }
    /// What a run of `pactl` with these arguments prints.
    [[nodiscard]] std::string Ask(const std::string& arguments) const;

private:
    friend class SoundRecorder;
    [[nodiscard]] std::string Line(const std::string& program, const std::string& output) const;

    TestSink m_sink;
    TempDirectory m_files;
    pid_t m_process = -1;
};

/// Records both channels of the sink from the moment that the constructor returns. It asks for a
/// short latency, which makes the server wake everybody more often than it would by itself.
class SoundRecorder {
public:
    explicit SoundRecorder(const PrivatePulseServer& server);
    ~SoundRecorder();

    /// All interleaved samples so far.
    [[nodiscard]] std::vector<std::int16_t> Samples() const;

private:
    const TempDirectory& m_files;
    pid_t m_process;
};
