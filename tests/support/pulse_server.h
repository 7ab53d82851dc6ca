// A sound server of a test's own, with one silent sink, and a recorder of what that sink gets.
#pragma once

#include <csignal>
#include <cstdint>
#include <string>
#include <sys/types.h>
#include <vector>

#include "support/temp_directory.h"

/// `Null` behaves as a sound card does and takes back what it hasn't played yet, but a recording of it lacks
/// the few milliseconds that were taken back and played anew. `Pipe` takes nothing back and shows every
/// sample that the server played, so a pause or seek is heard late.
enum class TestSink { Null, Pipe };

/// A `pulseaudio` process in a temporary directory. Its sink takes 16 bits at 44,100 Hz, so what a player
/// sends in that format arrives bit for bit.
class PrivatePulseServer {
public:
    /// Starts the server; `IsRunning` tells whether that worked.
    explicit PrivatePulseServer(TestSink sink = TestSink::Null);
    ~PrivatePulseServer() { Kill(); }
    PrivatePulseServer(const PrivatePulseServer&) = delete;
    PrivatePulseServer& operator=(const PrivatePulseServer&) = delete;

    /// Whether the programs are there.
    [[nodiscard]] static bool CanRun();

    /// Starts it (again) and waits until it listens. False if it doesn't within ten seconds.
    bool Start();
    /// Ends it as a crash would.
    void Kill();
    /// From now on it is there, but never answers.
    void Freeze() const { kill(m_process, SIGSTOP); }
    [[nodiscard]] bool IsRunning() const { return m_process > 0; }
    /// What `PULSE_SERVER` is to be.
    [[nodiscard]] std::string Address() const { return "unix:" + m_directory.Path("native"); }
    [[nodiscard]] std::string Directory() const { return m_directory.Path(); }
    [[nodiscard]] TestSink Sink() const { return m_sink; }
    /// What a run of `pactl` with these arguments prints.
    [[nodiscard]] std::string Ask(const std::string& arguments) const;

private:
    TestSink m_sink;
    TempDirectory m_directory;
    pid_t m_process = -1;
};

/// Records both channels of the sink from the moment that the constructor returns. It asks for a short
/// latency, which makes the server wake everybody more often than it would by itself.
class SoundRecorder {
public:
    explicit SoundRecorder(const PrivatePulseServer& server);
    ~SoundRecorder();
    SoundRecorder(const SoundRecorder&) = delete;
    SoundRecorder& operator=(const SoundRecorder&) = delete;

    /// All interleaved samples so far.
    [[nodiscard]] std::vector<std::int16_t> Samples() const;

private:
    std::string m_file;
    pid_t m_process = -1;
};
