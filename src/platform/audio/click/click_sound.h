// The click of the buttons: a sound that holds its caller until it has been heard.
#pragma once

#include <memory>
#include <string>

#include "platform/text.h"

/// Keeps the sound in memory and a stream ready, filled and held, so that a click costs little more
/// than its own length. The stream isn't the player's: the volume and the pause don't change the
/// click.
class ClickSound {
public:
    /// Opens nothing. `server` is a sound server's address; empty for the user's own.
    explicit ClickSound(std::string server = {});
    ~ClickSound();
    ClickSound(const ClickSound&) = delete;
    ClickSound& operator=(const ClickSound&) = delete;

    /// Begins to read the file and to connect, on a thread of its own; returns at once.
    void Prepare(const Text& path);

    /// Plays the file and returns when it has been heard, at the latest after one second; a longer
    /// sound goes on beyond that. False if it can't be played: no sound in the file, no server, or
    /// a server that isn't ready within a tenth of a second, or hasn't answered the last call. The
    /// next call tries anew, or takes what is ready by then.
    [[nodiscard]] bool PlayAndWait(const Text& path);

private:
    struct Stream;

    std::string m_server;
    Text m_path;
    std::shared_ptr<Stream> m_stream;
};
