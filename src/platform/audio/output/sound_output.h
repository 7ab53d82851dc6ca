// Where decoded sound goes: a stream of a sound server, or a clock that only counts.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/audio/sound_format.h"

enum class OutputState {
    Closed,
    Opening, ///< Asked for; takes no samples yet.
    Running,
    Lost ///< The server ended or refused it. `Close` is still to be called.
};

/// How much of a track is queued ahead of what is heard.
constexpr int kAheadMs = 3000;

/// One stream of sound. All calls come from the player's thread, return at once, and are given the
/// time in microseconds on a clock that never jumps. Frames are counted from 0 at `Open` and again
/// at each `Drop`.
class SoundOutput {
public:
    virtual ~SoundOutput() = default;

    /// Begins a stream. `title` is what a desktop's mixer shows.
    virtual void Open(const SoundFormat& format, const std::string& title, std::int64_t nowUs) = 0;
    /// Ends it: silence at once. Harmless when closed.
    virtual void Close(std::int64_t nowUs) = 0;
    [[nodiscard]] virtual OutputState State() const = 0;

    /// Whether it can be heard, which the clock can't.
    [[nodiscard]] virtual bool Sounds() const = 0;

    /// How many frames `Write` should be given now.
    [[nodiscard]] virtual std::int64_t WritableFrames(std::int64_t nowUs) = 0;
    /// Queues whole frames behind those written before.
    virtual void Write(std::span<const std::int16_t> samples, std::int64_t nowUs) = 0;
    /// Puts `samples` in the place of the last ones written, as many as they are. What has been
    /// heard meanwhile stays so.
    virtual void Rewrite(std::span<const std::int16_t> samples) = 0;

    /// True: silence at once, and nothing is lost. False: goes on from the same place.
    virtual void Hold(bool held, std::int64_t nowUs) = 0;
    /// Forgets what is queued; the next frame written is heard next, and is frame 0.
    virtual void Drop(std::int64_t nowUs) = 0;

    /// The number of frames heard so far: never goes back, never above what was written.
    [[nodiscard]] virtual std::int64_t HeardFrames(std::int64_t nowUs) = 0;

    /// How many frames a second `HeardFrames` goes on by; 0 while it stands or that isn't known
    /// yet.
    [[nodiscard]] virtual double Pace() const = 0;

    /// When `Poll` is to be called, and the queue filled up, although the server has sent nothing.
    [[nodiscard]] virtual std::optional<std::int64_t> DueUs() const = 0;
    /// Does what is due. May be called at any time.
    virtual void Poll(std::int64_t nowUs) = 0;
};
