// What can be otherwise from player to player.
#pragma once

#include <string>

#include "platform/audio/decode/track_source.h"

/// What a test changes about the player; the program takes it as it is.
struct AudioSettings {
    MediaOpener Open = [](const Text& path) { return OpenForReading(TextView(path)); };
    bool UseServer = true; ///< Without, everything plays on the silent clock.
    std::string Server;    ///< A sound server's address; empty for the user's own.
    double ClockSpeed = 1; ///< How much faster than real time the silent clock runs.
};
