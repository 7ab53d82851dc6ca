// What the window's thread can ask of the player's.
#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "platform/audio/decode/track_source.h"
#include "platform/audio/player/event_relay.h"

/// Connect to the sound server now.
struct PrepareCommand {};
struct PlayCommand {
    EventStamp Stamp; ///< Of the events that follow.
    TrackSource Source;
    std::string StreamName; ///< For a track without a title.
};
struct StopCommand {};
struct TogglePauseCommand {
    int Number = 0; ///< `EventStamp::Command` of the events that follow.
};
struct SeekCommand {
    int Number = 0; ///< `EventStamp::Command` of the events that follow.
    std::int64_t Ms = 0;
};
struct SetVolumeCommand {
    int Percent = 0;
};
struct SetVisibilityCommand {
    bool Window = true;
};
/// Stop, and end the thread.
struct QuitCommand {};

using AudioCommand = std::variant<PrepareCommand, PlayCommand, StopCommand, TogglePauseCommand,
                                  SeekCommand, SetVolumeCommand, SetVisibilityCommand, QuitCommand>;
