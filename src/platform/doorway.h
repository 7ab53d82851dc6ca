// The door at which a second start knocks: a socket in the user's runtime directory, one for each
// display. Whoever has it open is the one player.
#pragma once

#include <optional>
#include <string>

#include "platform/files.h"

/// The socket's path; nothing where there is no runtime directory or no display.
[[nodiscard]] std::optional<std::string> DoorwayPath();

/// Hands `message` to whoever has the door open. True once that one has said that it takes it;
/// false if nobody is there, or no answer comes within half a second, as of a process that is
/// stopped: what was handed over is void then. Waits, and is therefore called before there is
/// anything to wait for.
[[nodiscard]] bool HandOver(const std::string& path, const std::string& message);

/// The open door; nobody's any more when the object goes.
class Doorway {
public:
    /// Opens the door, unless somebody else has it.
    explicit Doorway(std::string path);
    ~Doorway();
    Doorway(const Doorway&) = delete;
    Doorway& operator=(const Doorway&) = delete;

    [[nodiscard]] bool IsOpen() const { return bool(m_door); }
    /// Readable when somebody knocks.
    [[nodiscard]] int Descriptor() const { return m_door.Descriptor(); }
    /// The way to the one who knocks; empty if there is none any more.
    [[nodiscard]] FileHandle Accept() const;

private:
    std::string m_path;
    FileHandle m_door;
};

/// What one who knocks hands over, in two steps: the message is answered, and counts once the
/// other side has heard that in time.
class Handover {
public:
    explicit Handover(FileHandle way) : m_way(std::move(way)) {}

    /// Readable when there is something for `Read`.
    [[nodiscard]] int Descriptor() const { return m_way.Descriptor(); }
    /// Takes what has come. False if nothing more will.
    [[nodiscard]] bool Read();
    /// The message, once it counts.
    [[nodiscard]] const std::optional<std::string>& Taken() const { return m_taken; }

private:
    FileHandle m_way;
    std::optional<std::string> m_message, m_taken;
};
