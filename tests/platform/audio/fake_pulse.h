// A model of a sound server that answers libpulse's functions, for one connection and one stereo
// stream. As long as a `FakePulse` lives, the player's clock is its clock, which a test moves;
// without one each function is libpulse's own. For one source file, since it defines them.
#pragma once

#include <algorithm>
#include <cstdint>
#include <dlfcn.h>
#include <pulse/pulseaudio.h>
#include <string>
#include <utility>
#include <vector>

/// Nothing happens at the server before `Answer`. All that it is told stands in the journal, by the
/// clock: "@200" is the 200th millisecond, "@200+" a bit more.
struct FakePulse {
    FakePulse() { Present = this; }
    ~FakePulse() { Present = nullptr; }

    int Note(const std::string& what) {
        const std::int64_t us = NowUs - kStartUs;
        if (NowUs != std::exchange(NotedUs, NowUs))
            Journal += "@" + std::to_string(us / 1000) + (us % 1000 ? "+ " : " ");
        Journal += what + " ";
        return -Refuses;
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
        OnServer += opens;
        if (!Slow) MakeUnwanted();
        AskForSamples();
        const auto questions = Mute ? decltype(Questions)() : std::exchange(Questions, {});
        for (const Question& question : questions) {
            Timing = question.Timing;
            // The library adds what was written since the question.
            Timing.write_index = FrameBytes() * Written;
            Timing.transport_usec += static_cast<pa_usec_t>(NowUs - question.AtUs);
            question.Call(StreamPointer(), Knows, Asker);
        }
        return connects || opens || !questions.empty();
    }
    /// Noted with the first and the last sample on the left, if it doesn't just go on behind the
    /// one before.
    int Write(const std::int16_t* samples, std::size_t bytes, std::int64_t offset) {
        Settle();
        Last.assign(samples, samples + bytes / 2);
        if (offset == 0) Written += static_cast<std::int64_t>(bytes) / FrameBytes();
        const std::int16_t end = samples[bytes / 2 - Spec.channels];
        if (std::exchange(Queued, end) + 1 == samples[0] && offset == 0) return -Refuses;
        return Note("w=" + std::to_string(samples[0]) + ".." + std::to_string(end) +
                    (offset ? "/" + std::to_string(offset / FrameBytes()) : ""));
    }
    /// Streams that were let go before they were there: they come all the same.
    void MakeUnwanted() {
        for (const auto& [stream, call] : std::exchange(Unwanted, {})) {
            ++OnServer;
            Made = stream;
            if (call) call(stream, nullptr);
        }
        Made = nullptr;
    }
    void AskForSamples() {
        Settle();
        if (Mute || Stream != PA_STREAM_READY || !OnRequest || Read - AskedAt < RequestFrames)
            return;
        AskedAt = Read;
        OnRequest(StreamPointer(), 1, Requester);
    }
    /// A stream that isn't made yet can't be left.
    int Leave(pa_stream* stream) {
        if (StateOf(stream) == PA_STREAM_CREATING) return -PA_ERR_BADSTATE;
        if (StateOf(stream) == PA_STREAM_READY) --OnServer;
        return Note("leave");
    }
    void Free() {
        Questions.clear();
        if (Stream == PA_STREAM_CREATING) Unwanted.emplace_back(StreamPointer(), OnState);
        Stream = PA_STREAM_UNCONNECTED;
        OnState = nullptr;
        Note("free");
    }
    [[nodiscard]] pa_stream_state_t StateOf(const pa_stream* stream) const {
        return stream == Made ? PA_STREAM_READY : Stream;
    }
    pa_stream* Open(const std::string& name, const pa_sample_spec& spec) {
        Note("open=" + name);
        Spec = spec;
        Stream = PA_STREAM_CREATING;
        Read = Written = Queued = AskedAt = 0;
        ++Streams;
        return StreamPointer();
    }
    int Connect(const pa_buffer_attr& buffer, pa_stream_flags_t flags) {
        Corked = flags & PA_STREAM_START_CORKED;
        WantedFrames = buffer.tlength / FrameBytes();
        RequestFrames = buffer.minreq / FrameBytes();
        std::string note = "buffer";
        for (const std::uint32_t n :
             {buffer.maxlength, buffer.tlength, buffer.prebuf, buffer.minreq, buffer.fragsize})
            note += "/" + std::to_string(static_cast<std::int32_t>(n));
        return Details ? Note(note) : -Refuses;
    }
    pa_operation* Cork(bool corked) {
        Settle();
        Corked = corked;
        return Ask(corked ? "cork" : "uncork");
    }
    pa_operation* Flush() {
        Settle();
        Written = Read;
        Queued = 0;
        return Ask("flush");
    }
    std::size_t RoomBytes() {
        Settle();
        const std::int64_t room = std::max<std::int64_t>(0, WantedFrames - (Written - Read));
        if (RoomFrames == -2) return static_cast<std::size_t>(-1);
        return static_cast<std::size_t>(FrameBytes() * (RoomFrames < 0 ? room : RoomFrames));
    }
    pa_operation* AskTiming(pa_stream_success_cb_t call, void* who) {
        Settle();
        Asker = who;
        pa_timing_info timing = Extra;
        timing.read_index = FrameBytes() * Read;
        timing.playing = Read < Written;
        timing.since_underrun = (NowUs - DryUs) * Spec.rate / 1'000'000 * FrameBytes();
        if (!Refuses) Questions.push_back({call, timing, NowUs});
        return Ask("ask");
    }
    void Kill() {
        Stream = PA_STREAM_FAILED;
        OnServer = 0;
        Unwanted.clear();
    }
    void Suspend(bool suspended) {
        Settle();
        Suspended = suspended;
        OnSuspended(StreamPointer(), Asker);
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
    bool Mute = false;            ///< It answers no question and asks for nothing.
    bool Knows = true;            ///< Its answers are answers.
    bool Refuses = false;         ///< Every request fails at once.
    bool Details = false;         ///< The stream's buffer is noted.
    std::int64_t RoomFrames = -1; ///< How much it asks for if not -1; -2: it doesn't tell.
    bool Suspended = false;
    pa_context_state_t Context = PA_CONTEXT_UNCONNECTED;
    pa_stream_state_t Stream = PA_STREAM_UNCONNECTED;
    pa_timing_info Extra{}; ///< What its answers say beside the place in the queue.

    int Operations = 0; ///< Not let go yet.
    std::uintptr_t Streams = 0;
    pa_sample_spec Spec{};
    std::int64_t WantedFrames = 0;
    std::int64_t RequestFrames = 0; ///< It asks for so many at a time.
    std::int64_t AskedAt = 0;
    int OnServer = 0; ///< Streams that are there.
    std::vector<std::pair<pa_stream*, pa_stream_notify_cb_t>> Unwanted;
    pa_stream* Made = nullptr; ///< An unwanted one, while its maker is told.
    pa_stream_notify_cb_t OnState = nullptr;
    pa_stream_request_cb_t OnRequest = nullptr;
    void* Requester = nullptr;
    struct Question {
        pa_stream_success_cb_t Call;
        pa_timing_info Timing;
        std::int64_t AtUs;
    };
    std::vector<Question> Questions;
    pa_timing_info Timing{};
    void* Asker = nullptr;
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

/// Defines a function of libpulse's: its result, name, parameters, arguments, and the answer.
#define FAKE(result, function, parameters, arguments, ...)                                         \
    result function parameters {                                                                   \
        static const auto next =                                                                   \
            reinterpret_cast<decltype(&function)>(dlsym(RTLD_NEXT, #function));                    \
        FakePulse* const fake = FakePulse::Present;                                                \
        if (!fake) return next arguments;                                                          \
        __VA_ARGS__;                                                                               \
    }

using Done = pa_stream_success_cb_t;
using Told = pa_stream_notify_cb_t;

extern "C" {

FAKE(pa_usec_t, pa_rtclock_now, (), (), return static_cast<pa_usec_t>(fake->NowUs))
FAKE(void, pa_operation_unref, (pa_operation * asked), (asked), --fake->Operations)

FAKE(pa_context*, pa_context_new_with_proplist,
     (pa_mainloop_api * l, const char* n, const pa_proplist* p), (l, n, p), fake->Note("dial");
     return reinterpret_cast<pa_context*>(fake))
FAKE(int, pa_context_connect,
     (pa_context * c, const char* name, pa_context_flags_t flags, const pa_spawn_api* api),
     (c, name, flags, api), fake->Context = PA_CONTEXT_CONNECTING;
     return -fake->Refuses)
FAKE(pa_context_state_t, pa_context_get_state, (const pa_context* c), (c), return fake->Context)
FAKE(void, pa_context_disconnect, (pa_context * c), (c), fake->Note("hangup"))
FAKE(void, pa_context_unref, (pa_context * c), (c), fake->Note("forget"))

FAKE(pa_stream*, pa_stream_new_with_proplist,
     (pa_context * c, const char* name, const pa_sample_spec* spec, const pa_channel_map* m,
      pa_proplist* p),
     (c, name, spec, m, p), return fake->Open(name, *spec))
FAKE(int, pa_stream_connect_playback,
     (pa_stream * s, const char* d, const pa_buffer_attr* buffer, pa_stream_flags_t flags,
      const pa_cvolume* volume, pa_stream* other),
     (s, d, buffer, flags, volume, other), return fake->Connect(*buffer, flags))
FAKE(pa_stream_state_t, pa_stream_get_state, (const pa_stream* s), (s), return fake->StateOf(s))
FAKE(std::size_t, pa_stream_writable_size, (const pa_stream* s), (s), return fake->RoomBytes())
FAKE(int, pa_stream_write,
     (pa_stream * s, const void* samples, std::size_t bytes, pa_free_cb_t f, std::int64_t at,
      pa_seek_mode_t mode),
     (s, samples, bytes, f, at, mode),
     return fake->Write(static_cast<const std::int16_t*>(samples), bytes, at))
FAKE(pa_operation*, pa_stream_cork, (pa_stream * s, int corked, Done call, void* who),
     (s, corked, call, who), return fake->Cork(corked))
FAKE(pa_operation*, pa_stream_flush, (pa_stream * s, Done call, void* who), (s, call, who),
     return fake->Flush())
FAKE(pa_operation*, pa_stream_set_name, (pa_stream * s, const char* name, Done call, void* who),
     (s, name, call, who), return fake->Ask(std::string("name=") + name))
FAKE(pa_operation*, pa_stream_update_timing_info, (pa_stream * s, Done call, void* who),
     (s, call, who), return fake->AskTiming(call, who))
FAKE(const pa_timing_info*, pa_stream_get_timing_info, (pa_stream * s), (s), return &fake->Timing)
FAKE(int, pa_stream_is_suspended, (const pa_stream* s), (s), return fake->Suspended)
FAKE(const pa_sample_spec*, pa_stream_get_sample_spec, (pa_stream * s), (s), return &fake->Spec)
FAKE(void, pa_stream_set_suspended_callback, (pa_stream * s, Told call, void* who), (s, call, who),
     fake->OnSuspended = call)
FAKE(void, pa_stream_set_moved_callback, (pa_stream * s, Told call, void* who), (s, call, who))
FAKE(void, pa_stream_set_state_callback, (pa_stream * s, Told call, void* who), (s, call, who),
     fake->OnState = call)
FAKE(void, pa_stream_set_write_callback, (pa_stream * s, pa_stream_request_cb_t call, void* who),
     (s, call, who), fake->OnRequest = call;
     fake->Requester = who)
FAKE(int, pa_stream_disconnect, (pa_stream * s), (s), return fake->Leave(s))
FAKE(void, pa_stream_unref, (pa_stream * s), (s), fake->Free())

} // extern "C"
