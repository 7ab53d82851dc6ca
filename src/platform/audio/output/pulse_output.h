// A stream of the sound server.
#pragma once

#include <deque>

#include "platform/audio/output/pulse_server.h"
#include "platform/audio/output/sound_output.h"

struct pa_operation;
struct pa_stream;

/// A stream that was closed rests for some seconds, silent, and is taken again by the next track if
/// it fits: that one then starts at once, and what the user has set for the stream in the desktop's
/// mixer stays. One that was closed before the server had made it rests, too, when it comes. The
/// callbacks come from the loop of the player's thread and only note what the server said.
class PulseOutput : public SoundOutput {
public:
    explicit PulseOutput(PulseServer& server) : m_server(server) {}
    ~PulseOutput() override { Disconnect(); }
    PulseOutput(const PulseOutput&) = delete;
    PulseOutput& operator=(const PulseOutput&) = delete;

    void Open(const SoundFormat& format, const std::string& title, std::int64_t nowUs) override;
    void Close(std::int64_t nowUs) override;
    [[nodiscard]] OutputState State() const override;
    [[nodiscard]] bool Sounds() const override { return true; }
    [[nodiscard]] std::int64_t WritableFrames(std::int64_t nowUs) override;
    void Write(std::span<const std::int16_t> samples, std::int64_t nowUs) override;
    void Rewrite(std::span<const std::int16_t> samples) override;
    void Hold(bool held, std::int64_t nowUs) override;
    void Drop(std::int64_t nowUs) override;
    [[nodiscard]] std::int64_t HeardFrames(std::int64_t nowUs) override;
    [[nodiscard]] double Pace() const override;
    [[nodiscard]] std::optional<std::int64_t> DueUs() const override;
    void Poll(std::int64_t nowUs) override;

    /// How far the resting stream is; `Closed` if there is none.
    [[nodiscard]] OutputState RestState() const;
    /// Disconnects a resting stream that nobody took in time, or that the server ended.
    void PollRest(std::int64_t nowUs);
    /// When that is; nothing if no stream rests, or none that is up.
    [[nodiscard]] std::optional<std::int64_t> RestDueUs() const { return m_restUntilUs; }

private:
    /// What the server last said about the place in the stream; frames are counted from the
    /// stream's creation.
    struct Timing {
        bool Known = false;
        bool Running = false; ///< The sound was moving then.
        std::int64_t HeardFrame = 0;
        std::int64_t AtUs = 0;
    };

    static void OnTiming(pa_stream* stream, int success, void* self);
    static void OnChange(pa_stream* stream, void* self);
    static void OnRequest(pa_stream* stream, std::size_t bytes, void* self);
    bool Connect(pa_stream* stream);
    void Disconnect();
    bool TakeRested(const SoundFormat& format, const std::string& title);
    void SetName();
    [[nodiscard]] OutputState StreamState() const;
    void Cork(bool corked);
    void AskTiming(bool afterDrop);
    void TakeTiming(bool afterDrop);
    void AskSoon(std::int64_t nowUs);
    [[nodiscard]] std::int64_t AskDueUs() const;
    [[nodiscard]] bool AsksNothing() const;
    [[nodiscard]] std::int64_t FramesOfBytes(std::int64_t bytes) const;

    PulseServer& m_server;
    pa_stream* m_stream = nullptr;
    SoundFormat m_format;
    bool m_rests = false;
    bool m_returns = false; ///< Taken from its rest, and the server hasn't answered since.
    std::optional<std::int64_t> m_restUntilUs; ///< While a stream rests that is up.
    std::string m_newName;                     ///< For a stream that was taken before it was up.
    bool m_refused = false;
    bool m_held = false;
    /// At the beginning and after a drop: the first samples let the sound go on.
    bool m_uncorkAtWrite = false;
    std::int64_t m_base = 0; ///< Our frame 0 as the stream counts, from its creation on.
    bool m_baseKnown = true; ///< False until the server has told it after a drop.
    std::int64_t m_written = 0;
    std::int64_t m_heard = 0;
    Timing m_timing;
    /// For each answer that is still to come: whether it tells `m_base`.
    std::deque<bool> m_asked;
    std::int64_t m_askAtUs = 0;
    std::int64_t m_askedUs = 0;
    std::int64_t m_signUs = 0; ///< When the server last answered, or asked for samples.
    bool m_quiet = false;      ///< That is too long ago: the place stands until it does.
};
