// Child processes are started with an environment of their own; the test's stays as it is.
#include "support/pulse_server.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

/// A line for the shell that becomes the program, with what it prints going to `output`.
std::string In(const std::string& directory, const std::string& program, const std::string& output) {
    return "exec env -i PATH=\"$PATH\" LC_ALL=C HOME='" + directory + "' XDG_RUNTIME_DIR='" + directory +
           "' PULSE_SERVER='unix:" + directory + "/native' " + program + " </dev/null >'" + output +
           "' 2>/dev/null";
}

pid_t Spawn(const std::string& line) {
    const pid_t process = fork();
    if (process == 0) {
        execl("/bin/sh", "sh", "-c", line.c_str(), nullptr);
        _exit(127);
    }
    return process;
}

void End(pid_t& process) {
    if (process <= 0) return;
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
    process = -1;
}

bool WaitFor(const std::function<bool()>& done) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!done()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

std::string Contents(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

} // namespace

PrivatePulseServer::PrivatePulseServer(TestSink sink) : m_sink(sink) {
    Start();
}

bool PrivatePulseServer::CanRun() {
    return std::system("command -v pulseaudio >/dev/null && command -v parec >/dev/null") == 0;
}

bool PrivatePulseServer::Start() {
    Kill();
    std::filesystem::remove(m_directory.Path("native"));
    const std::string format = " sink_name=out format=s16le rate=44100 channels=2";
    const std::string sink = m_sink == TestSink::Null
                                 ? "module-null-sink" + format
                                 : "module-pipe-sink" + format +
                                       " use_system_clock_for_timing=yes file=" + m_directory.Path("pipe");
    // A recorder of the null sink is handed the player's own memory where that is shared, and the server ends
    // by an assertion of its own now and then.
    const std::string shm = m_sink == TestSink::Null ? "--disable-shm=yes" : "--disable-shm=no";
    m_process = Spawn(In(
        Directory(),
        "pulseaudio -n --daemonize=no --exit-idle-time=-1 --log-level=error " + shm + " -L '" + sink +
            "' -L 'module-native-protocol-unix auth-anonymous=1 socket=" + m_directory.Path("native") + "'",
        m_directory.Path("server.log")));
    if (WaitFor([&] { return !Ask("info").empty(); })) return true;
    Kill();
    return false;
}

void PrivatePulseServer::Kill() {
    End(m_process);
}

std::string PrivatePulseServer::Ask(const std::string& arguments) const {
    const std::string answer = m_directory.Path("answer");
    if (std::system(In(Directory(), "pactl " + arguments, answer).c_str()) != 0) return {};
    return Contents(answer);
}

SoundRecorder::SoundRecorder(const PrivatePulseServer& server)
    : m_file(server.Directory() + "/recording.raw"),
      m_process(Spawn(In(server.Directory(),
                         server.Sink() == TestSink::Pipe
                             ? "cat " + server.Directory() + "/pipe"
                             : "parec --raw --device=out.monitor --format=s16le --rate=44100 --channels=2 "
                               "--latency-msec=10",
                         m_file))) {
    WaitFor([&] { return !Samples().empty(); });
}

SoundRecorder::~SoundRecorder() {
    End(m_process);
}

std::vector<std::int16_t> SoundRecorder::Samples() const {
    const std::string bytes = Contents(m_file);
    std::vector<std::int16_t> samples(bytes.size() / 4 * 2);
    bytes.copy(reinterpret_cast<char*>(samples.data()), 2 * samples.size());
    return samples;
}
