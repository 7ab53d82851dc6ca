// Packets keep their borders, so each side reads one whole thing at a time.
#include "platform/doorway.h"

#include <cerrno>
#include <cstdlib>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr int kPatienceMs = 500;
constexpr int kMostWaiting = 8;
constexpr std::size_t kMostMessage = 64 * 1024;
constexpr char kTakes[] = "takes", kAgreed[] = "agreed";

std::optional<sockaddr_un> AddressOf(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) return std::nullopt;
    path.copy(address.sun_path, path.size());
    return address;
}

FileHandle NewSocket() {
    return FileHandle(socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

const sockaddr* Plain(const sockaddr_un& address) {
    return reinterpret_cast<const sockaddr*>(&address);
}

bool Send(int descriptor, const std::string& words) {
    return send(descriptor, words.data(), words.size(), MSG_NOSIGNAL) ==
           static_cast<ssize_t>(words.size());
}

// Nothing if nothing has come; empty at the end.
std::optional<std::string> Receive(int descriptor) {
    std::string words(kMostMessage, '\0');
    const ssize_t length = recv(descriptor, words.data(), words.size(), 0);
    if (length < 0)
        return errno == EAGAIN || errno == EINTR ? std::nullopt : std::optional(std::string());
    words.resize(static_cast<std::size_t>(length));
    return words;
}

FileHandle Knock(const std::string& path) {
    const std::optional<sockaddr_un> address = AddressOf(path);
    FileHandle way = NewSocket();
    if (!address || !way || connect(way.Descriptor(), Plain(*address), sizeof *address) != 0)
        return {};
    return way;
}

} // namespace

std::optional<std::string> DoorwayPath() {
    const char* const directory = std::getenv("XDG_RUNTIME_DIR");
    const char* display = std::getenv("WAYLAND_DISPLAY");
    if (!display || !*display) display = std::getenv("DISPLAY");
    if (!directory || directory[0] != '/' || !display || !*display) return std::nullopt;
    std::string name(display);
    for (char& letter : name)
        if (letter == '/') letter = '_';
    return std::string(directory) + "/velora-" + name + ".door";
}

bool HandOver(const std::string& path, const std::string& message) {
    const FileHandle way = Knock(path);
    if (!way || message.empty() || message.size() >= kMostMessage) return false;
    if (!Send(way.Descriptor(), message)) return false;
    pollfd answer{way.Descriptor(), POLLIN, 0};
    if (poll(&answer, 1, kPatienceMs) != 1) return false;
    return Receive(way.Descriptor()) == kTakes && Send(way.Descriptor(), kAgreed);
}

Doorway::Doorway(std::string path) : m_path(std::move(path)) {
    const std::optional<sockaddr_un> address = AddressOf(m_path);
    FileHandle door = NewSocket();
    if (!address || !door) return;
    const auto opens = [&] {
        return bind(door.Descriptor(), Plain(*address), sizeof *address) == 0;
    };
    bool isOpen = opens();
    // One that ended without a word has left its socket, at which nobody answers.
    if (!isOpen && errno == EADDRINUSE && !Knock(m_path)) {
        unlink(m_path.c_str());
        isOpen = opens();
    }
    if (isOpen && listen(door.Descriptor(), kMostWaiting) == 0) m_door = std::move(door);
}

Doorway::~Doorway() {
    if (m_door) unlink(m_path.c_str());
}

FileHandle Doorway::Accept() const {
    return FileHandle(accept4(m_door.Descriptor(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
}

bool Handover::Read() {
    std::optional<std::string> words = Receive(m_way.Descriptor());
    if (!words) return true;
    if (words->empty()) return false;
    if (!m_message) {
        m_message = std::move(*words);
        return Send(m_way.Descriptor(), kTakes);
    }
    if (*words == kAgreed) m_taken = std::move(m_message);
    return false;
}
