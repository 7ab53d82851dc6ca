// The way of a track's samples to the output: which have been sent, and which is heard now.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/audio/decode/track_session.h"
#include "platform/audio/output/sound_output.h"
#include "platform/audio/output/volume_ramp.h"
#include "platform/audio/player/play_history.h"

/// Keeps the last seconds of samples, so that they can be sent again: with another volume, or to
/// another output. Frames are counted from the beginning of the track. Belongs to the player's
/// thread.
class TrackSound {
public:
    /// The track is over: closes the output. The volume stays.
    void Stop(std::int64_t nowUs);
    /// Goes on at `frame` of the track, with nothing decoded yet. An output that is open stays so
    /// and forgets what it has queued.
    void Restart(const SoundFormat& format, std::int64_t frame, std::int64_t nowUs);
    /// Takes samples that follow the last ones, still unsent.
    void Append(std::span<const std::int16_t> samples) { m_history.Append(samples); }

    /// Opens `output`, which goes on where the one before was when it was lost.
    void Open(SoundOutput& output, const std::string& title, std::int64_t nowUs);
    void Close(std::int64_t nowUs);
    /// Closes an output that was lost, or stood in for another, and keeps the place that was heard.
    void CloseLost(std::int64_t nowUs);
    void Poll(std::int64_t nowUs);
    void Hold(bool held, std::int64_t nowUs);
    /// `Closed` if there is no output.
    [[nodiscard]] OutputState State() const;
    /// Whether samples of this track went to an output that can be heard: then only such an output
    /// can follow.
    [[nodiscard]] bool WasAudible() const { return m_wasAudible; }
    /// When the output wants the next `Poll`.
    [[nodiscard]] std::optional<std::int64_t> DueUs() const;

    /// Sends what the output has room for, and takes samples out of `session` as they are needed.
    /// Only while an output is open.
    void Feed(TrackSession& session, std::int64_t nowUs);
    /// In percent. What was sent and isn't heard yet is sent once more.
    void SetVolume(int percent, std::int64_t nowUs);

    /// The frame that is heard now, or will be when the next output opens.
    [[nodiscard]] std::int64_t Heard(std::int64_t nowUs) const;
    /// How many frames a second that goes on by; 0 while it stands. Only while an output is open.
    [[nodiscard]] double Pace() const { return m_output->Pace(); }
    /// The frame behind the last one that was sent.
    [[nodiscard]] std::int64_t Sent() const { return m_sent; }
    [[nodiscard]] bool IsAllSent() const { return m_sent == m_history.End(); }
    /// How long what was sent will go on to be heard.
    [[nodiscard]] std::int64_t LeftUs(std::int64_t nowUs) const;

    [[nodiscard]] const SoundFormat& Format() const { return m_format; }
    /// What is decoded around the place that is heard.
    [[nodiscard]] const PlayHistory& History() const { return m_history; }

private:
    [[nodiscard]] std::int64_t FramesOfMs(std::int64_t ms) const;
    std::span<const std::int16_t> WithVolume(std::int64_t frame, std::int64_t frames);

    SoundFormat m_format;
    SoundOutput* m_output = nullptr; ///< Null while none is open.
    bool m_wasAudible = false;
    std::int64_t m_base = 0; ///< The track's frame that is the output's frame 0.
    std::int64_t m_sent = 0;
    PlayHistory m_history;
    VolumeRamp m_volume;
    std::vector<std::int16_t> m_scratch; ///< Kept for its memory alone.
};
