// A model of a sound server that answers libpulse's functions, for one connection and one stereo stream. As
// long as a `FakePulse` lives, the player's clock is its clock, which a test moves.
#pragma once

#include <algorithm>
#include <cstdint>
#include <pulse/pulseaudio.h>
#include <string>
#include <utility>
#include <vector>

/// Nothing happens at the server before `Answer`. All that it is told stands in the journal, by the clock:
/// "@200" is the 200th millisecond, "@200+" a bit more.
struct FakePulse {
    FakePulse() { Present = this; }
    ~FakePulse() { Present = nullptr; }
    FakePulse(const FakePulse&) = delete;
    FakePulse& operator=(const FakePulse&) = delete;

    int Note(const std::string& what) {
        const std::int64_t us = NowUs - kStartUs;
        if (NowUs != NotedUs) Journal += "@" + std::to_string(us / 1000) + (us % 1000 ? "+ " : " ");
        NotedUs = NowUs;
        Journal += what + " ";
        return Refuses ? -1 : 0;
    }
    pa_operation* Ask(const std::string& what) {
        if (Note(what) < 0) return nullptr;
        ++Operations;
        return reinterpret_cast<pa_operation*>(this);
    }
    /// The server does what it was asked for. Whether there was anything.
    bool Answer() {
        if (Deaf) return false;
        const bool connects = Context == PA_CONTEXT_CONNECTING;
        if (connects) Context = PA_CONTEXT_READY;
        const bool opens = Stream == PA_STREAM_CREATING && !Slow;
        if (opens) Stream = PA_STREAM_READY;
        const auto questions = Mute ? decltype(Questions)() : std::exchange(Questions, {});
        for (const Question& question : questions) {
            Timing = question.Timing;
            Timing.transport_usec += static_cast<pa_usec_t>(NowUs - question.AtUs);
            question.Call(StreamPointer(), Knows, Asker);
        }
        return connects || opens || !questions.empty();
    }
    /// Noted with the first and the last sample on the left, if it doesn't just go on behind the one before.
    int Write(const std::int16_t* samples, std::size_t bytes, std::int64_t offset) {
        Settle();
        Last.assign(samples, samples + bytes / 2);
        const auto frames = static_cast<std::int64_t>(bytes) / FrameBytes();
        const std::int16_t end = samples[bytes / 2 - Spec.channels];
        const bool goesOn = offset == 0 && samples[0] == Queued + 1;
        Queued = end;
        if (offset == 0) Written += frames;
        if (goesOn) return -Refuses;
        return Note("w=" + std::to_string(samples[0]) + ".." + std::to_string(end) +
                    (offset ? "/" + std::to_string(offset / FrameBytes()) : ""));
    }
    void AskTiming(pa_stream_success_cb_t call) {
        Settle();
        pa_timing_info timing = Extra;
        timing.read_index = FrameBytes() * Read;
        timing.playing = Read < Written;
        timing.since_underrun =
            static_cast<std::uint64_t>((NowUs - DryUs) * Spec.rate / 1'000'000 * FrameBytes());
        Questions.push_back({call, timing, NowUs});
    }
    void Settle() {
        if (Read < Written && !Corked && !Suspended) {
            Read = std::min(Written, Read + (NowUs - SinceUs) * Spec.rate / 1'000'000);
            DryUs = NowUs;
        }
        SinceUs = NowUs;
    }
    [[nodiscard]] std::int64_t FrameBytes() const { return 2 * Spec.channels; }
    [[nodiscard]] pa_stream* StreamPointer() const { return reinterpret_cast<pa_stream*>(Streams); }

    static constexpr std::int64_t kStartUs = 7'000'000;
    static inline FakePulse* Present = nullptr;

    std::int64_t NowUs = kStartUs;
    std::string Journal;

    // What a test sets.
    bool Deaf = false;            ///< The server never answers.
    bool Slow = false;            ///< It takes no stream.
    bool Mute = false;            ///< It answers no question.
    bool Knows = true;            ///< Its answers are answers.
    bool Refuses = false;         ///< Every request fails at once.
    bool Details = false;         ///< The stream's buffer is noted.
    std::int64_t RoomFrames = -1; ///< How much it asks for, whatever is queued.
    bool Suspended = false;
    pa_context_state_t Context = PA_CONTEXT_UNCONNECTED;
    pa_stream_state_t Stream = PA_STREAM_UNCONNECTED;
    pa_timing_info Extra{}; ///< What its answers say beside the place in the queue.

    int Operations = 0; ///< Not let go yet.
    std::uintptr_t Streams = 0;
    pa_sample_spec Spec{};
    std::int64_t WantedFrames = 0;
    struct Question {
        pa_stream_success_cb_t Call;
        pa_timing_info Timing;
        std::int64_t AtUs;
    };
    std::vector<Question> Questions;
    pa_timing_info Timing{};
    void* Asker = nullptr;
    pa_stream_notify_cb_t OnMoved = nullptr;
    pa_stream_notify_cb_t OnSuspended = nullptr;
    std::vector<std::int16_t> Last; ///< What was written last.

    std::int64_t NotedUs = -1;
    std::int16_t Queued = 0; ///< The last sample.
    bool Corked = false;
    std::int64_t Read = 0;
    std::int64_t Written = 0;
    std::int64_t SinceUs = 0;
    std::int64_t DryUs = 0;
};
