// Child processes are started with an environment of their own; the test's stays as it is.
#include "support/pulse_server.h"

#include <csignal>
#include <cstdlib>
#include <functional>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace {

pid_t Spawn(const std::string& line) {
    const pid_t process = fork();
    if (process == 0) {
        execl("/bin/sh", "sh", "-c", line.c_str(), nullptr);
        _exit(127);
    }
    return process;
}

void End(pid_t process) {
    if (process <= 0) return;
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
}

bool WaitFor(const std::function<bool()>& done) {
    for (int tries = 0; tries < 2000; ++tries, usleep(5000))
        if (done()) return true;
    return false;
}

} // namespace

/// A line for the shell that becomes the program, with what it prints going to a file.
std::string PrivatePulseServer::Line(const std::string& program, const std::string& output) const {
    return "cd '" + m_files.Path() + "' && exec env -i PATH=\"$PATH\" LC_ALL=C HOME=\"$PWD\" " +
           "XDG_RUNTIME_DIR=\"$PWD\" " + "PULSE_SERVER='" + Address() + "' " + program +
           " </dev/null >" + output + " 2>/dev/null";
}

bool PrivatePulseServer::Start() {
    Kill();
    std::filesystem::remove(m_files.Path("native"));
    // A recorder of the null sink is handed the player's own memory where that is shared, and the
    // server ends by an assertion of its own now and then.
    const std::string sink =
        m_sink == TestSink::Pipe
            ? "-L 'module-pipe-sink use_system_clock_for_timing=yes file=" + m_files.Path("pipe")
            : "--disable-shm=yes -L 'module-null-sink";
    const std::string kind = m_sink == TestSink::PipeWire ? "pipewire" : "pulseaudio";
    m_process = Spawn(Line(VELORA_SOURCE_DIR "/tests/support/sound_server " + kind + " \"$PWD\" " +
                               sink + " sink_name=out format=s16le rate=44100 channels=2'",
                           "server.log"));
    if (WaitFor([&] { return Ask("info").find("Default Sink: out") != std::string::npos; }))
        return true;
    Kill();
    return false;
}

void PrivatePulseServer::Kill() {
    End(std::exchange(m_process, -1));
}

std::string PrivatePulseServer::Ask(const std::string& arguments) const {
    if (std::system(Line("pactl " + arguments, "answer").c_str()) != 0) return {};
    return m_files.Get("answer").value_or("");
}

SoundRecorder::SoundRecorder(const PrivatePulseServer& server)
    : m_files(server.m_files),
      m_process(
          Spawn(server.Line(server.m_sink == TestSink::Pipe
                                ? "cat pipe"
                                : "parec --raw --device=out.monitor --format=s16le --rate=44100 "
                                  "--channels=2 --latency-msec=10",
                            "recording.raw"))) {
    WaitFor([&] { return !Samples().empty(); });
}

SoundRecorder::~SoundRecorder() {
    End(m_process);
}

std::vector<std::int16_t> SoundRecorder::Samples() const {
    const std::string bytes = m_files.Get("recording.raw").value_or("");
    std::vector<std::int16_t> samples(bytes.size() / 4 * 2);
    bytes.copy(reinterpret_cast<char*>(samples.data()), 2 * samples.size());
    return samples;
}
