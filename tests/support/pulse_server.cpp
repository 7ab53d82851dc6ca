// Child processes are started with an environment of their own; the test's stays as it is.
#include "support/pulse_server.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using Strings = std::vector<std::string>;

std::vector<char*> Pointers(Strings& strings) {
    std::vector<char*> pointers;
    for (std::string& string : strings)
        pointers.push_back(string.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// Starts a program with its output going to `output`. Its process, or -1.
pid_t Spawn(Strings arguments, Strings environment, const std::string& output) {
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&files, 1, output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawn_file_actions_addopen(&files, 2, "/dev/null", O_WRONLY, 0);
    pid_t process = -1;
    const int result = posix_spawnp(&process, arguments[0].c_str(), &files, nullptr,
                                    Pointers(arguments).data(), Pointers(environment).data());
    posix_spawn_file_actions_destroy(&files);
    return result == 0 ? process : -1;
}

Strings EnvironmentIn(const std::string& directory) {
    const char* path = std::getenv("PATH");
    return {"HOME=" + directory, "XDG_RUNTIME_DIR=" + directory, "PULSE_SERVER=unix:" + directory + "/native",
            std::string("PATH=") + (path ? path : "/usr/bin:/bin"), "LC_ALL=C"};
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

bool Listens(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) return false;
    path.copy(address.sun_path, path.size());
    const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool connected =
        connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    close(descriptor);
    return connected;
}

} // namespace

PrivatePulseServer::PrivatePulseServer(TestSink sink) : m_sink(sink) {
    Start();
}

bool PrivatePulseServer::CanRun() {
    return std::system("command -v pulseaudio >/dev/null && command -v parec >/dev/null") == 0;
}

bool PrivatePulseServer::Start() {
    if (!CanRun()) return false;
    Kill();
    const std::string socket = m_directory.Path("native");
    std::filesystem::remove(socket);
    const std::string format = " sink_name=out format=s16le rate=44100 channels=2";
    const std::string sink = m_sink == TestSink::Null
                                 ? "module-null-sink" + format
                                 : "module-pipe-sink" + format +
                                       " use_system_clock_for_timing=yes file=" + m_directory.Path("pipe");
    // A recorder of the null sink is handed the player's own memory where that is shared, and the server ends
    // by an assertion of its own now and then.
    const std::string shm = m_sink == TestSink::Null ? "--disable-shm=yes" : "--disable-shm=no";
    m_process =
        Spawn({"pulseaudio", "-n", shm, "--daemonize=no", "--exit-idle-time=-1", "--log-level=error", "-L",
               sink, "-L", "module-native-protocol-unix socket=" + socket + " auth-anonymous=1"},
              EnvironmentIn(Directory()), m_directory.Path("server.log"));
    if (m_process > 0 && WaitFor([&] { return Listens(socket); })) return true;
    Kill();
    return false;
}

void PrivatePulseServer::Kill() {
    End(m_process);
}

std::string PrivatePulseServer::Ask(const std::string& arguments) const {
    const std::string answer = m_directory.Path("answer");
    std::string command = "env";
    for (const std::string& variable : EnvironmentIn(Directory()))
        command += " '" + variable + "'";
    command += " pactl " + arguments + " >'" + answer + "' 2>/dev/null";
    if (std::system(command.c_str()) != 0) return {};
    std::ifstream file(answer);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

SoundRecorder::SoundRecorder(const PrivatePulseServer& server)
    : m_file(server.Directory() + "/recording.raw") {
    if (server.Sink() == TestSink::Pipe)
        m_process = Spawn({"cat", server.Directory() + "/pipe"}, EnvironmentIn(server.Directory()), m_file);
    else
        m_process = Spawn({"parec", "--raw", "--device=out.monitor", "--format=s16le", "--rate=44100",
                           "--channels=2", "--latency-msec=10"},
                          EnvironmentIn(server.Directory()), m_file);
    WaitFor([&] { return !Samples().empty(); });
}

SoundRecorder::~SoundRecorder() {
    Stop();
}

void SoundRecorder::Stop() {
    End(m_process);
}

std::vector<std::int16_t> SoundRecorder::Samples() const {
    std::ifstream file(m_file, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    std::vector<std::int16_t> samples(bytes.size() / 4 * 2);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<std::int16_t>(static_cast<unsigned char>(bytes[2 * i]) |
                                               static_cast<unsigned char>(bytes[2 * i + 1]) << 8);
    return samples;
}
