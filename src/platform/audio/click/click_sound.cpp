// The stream lives on a loop with a thread of libpulse's own. It is filled while it is held
// (corked) and released for a click. It is held again only a while later, since holding takes back
// what the sink hasn't played yet.
#include "platform/audio/click/click_sound.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <pulse/pulseaudio.h>
#include <utility>

#include "platform/audio/click/sound_file.h"
#include "platform/audio/output/pulse_operation.h"
#include "platform/audio/worker_thread.h"

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds kMostWait{1000};
constexpr milliseconds kReadyWait{100};
/// What a click may cost beyond its own length; a sink that is slower is not waited for.
constexpr milliseconds kMostLatency{20};
constexpr pa_usec_t kRestUs = 500'000;

} // namespace

/// A file, a connection and a stream, or one attempt that failed.
struct ClickSound::Stream {
    enum class State { Preparing, Ready, Failed };

    ~Stream() { Close(); }

    /// Reads and connects; on a thread of its own.
    void Open(const Text& path, const std::string& server) {
        std::optional<SoundClip> clip = ReadSoundFile(path);
        if (!clip || !Connect(server)) {
            Tell(State::Failed);
            return;
        }
        pa_threaded_mainloop_lock(Loop);
        Clip = std::move(*clip);
        // The connection may have come up before the sound was there.
        if (pa_context_get_state(Context) == PA_CONTEXT_READY) MakeStream();
        pa_threaded_mainloop_unlock(Loop);
    }

    bool Connect(const std::string& server) {
        Loop = pa_threaded_mainloop_new();
        if (!Loop) return false;
        Context = pa_context_new(pa_threaded_mainloop_get_api(Loop), "Velora");
        if (!Context) return false;
        pa_context_set_state_callback(Context, OnContext, this);
        const char* address = server.empty() ? nullptr : server.c_str();
        if (pa_context_connect(Context, address, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0) return false;
        return pa_threaded_mainloop_start(Loop) >= 0;
    }

    void Close() {
        if (Loop) pa_threaded_mainloop_stop(Loop);
        Forget(Timing);
        if (Rest) pa_threaded_mainloop_get_api(Loop)->time_free(Rest);
        if (Playback) {
            pa_stream_disconnect(Playback);
            pa_stream_unref(Playback);
        }
        if (Context) {
            pa_context_disconnect(Context);
            pa_context_unref(Context);
        }
        if (Loop) pa_threaded_mainloop_free(Loop);
    }

    // From here to `OnTiming`: on libpulse's thread, or with its loop locked.

    static void OnContext(pa_context* context, void* self) {
        auto* stream = static_cast<Stream*>(self);
        const pa_context_state_t state = pa_context_get_state(context);
        if (state == PA_CONTEXT_READY && !stream->Clip.Samples.empty()) stream->MakeStream();
        if (!PA_CONTEXT_IS_GOOD(state)) stream->Tell(State::Failed);
    }

    static void OnStream(pa_stream* playback, void* self) {
        auto* stream = static_cast<Stream*>(self);
        const pa_stream_state_t state = pa_stream_get_state(playback);
        if (state == PA_STREAM_READY) {
            stream->Fill();
            stream->Tell(State::Ready);
        }
        if (!PA_STREAM_IS_GOOD(state)) stream->Tell(State::Failed);
    }

    void MakeStream() {
        if (Playback) return;
        const pa_sample_spec format{PA_SAMPLE_S16NE, static_cast<std::uint32_t>(Clip.RateHz),
                                    static_cast<std::uint8_t>(Clip.Channels)};
        pa_proplist* properties = pa_proplist_new();
        pa_proplist_sets(properties, PA_PROP_MEDIA_ROLE, "event");
        pa_proplist_sets(properties, PA_PROP_APPLICATION_ICON_NAME, "velora");
        Playback = pa_stream_new_with_proplist(Context, "Button", &format, nullptr, properties);
        pa_proplist_free(properties);
        if (!Playback) {
            Tell(State::Failed);
            return;
        }
        pa_stream_set_state_callback(Playback, OnStream, this);
        // The whole sound fits; no latency is asked for, since that would make the sink wake more
        // often.
        const auto bytes = static_cast<std::uint32_t>(Clip.Samples.size() * sizeof(std::int16_t));
        const pa_buffer_attr buffer{bytes * 2 + 65'536, bytes + 65'536, 0, UINT32_MAX, UINT32_MAX};
        const auto flags = static_cast<pa_stream_flags_t>(PA_STREAM_START_CORKED);
        if (pa_stream_connect_playback(Playback, nullptr, &buffer, flags, nullptr, nullptr) < 0)
            Tell(State::Failed);
    }

    void Fill() {
        pa_stream_write(Playback, Clip.Samples.data(), Clip.Samples.size() * sizeof(std::int16_t),
                        nullptr, 0, PA_SEEK_RELATIVE_ON_READ);
    }

    /// Holds the stream and fills it anew. Samples that are written to a running stream can be too
    /// late for the sink, and then their beginning isn't heard.
    void HoldFilled() {
        Forget(pa_stream_cork(Playback, 1, nullptr, nullptr));
        Forget(pa_stream_flush(Playback, nullptr, nullptr));
        Fill();
        IsHeld = true;
    }

    static void OnRest(pa_mainloop_api*, pa_time_event*, const timeval*, void* self) {
        auto* stream = static_cast<Stream*>(self);
        if (pa_stream_get_state(stream->Playback) == PA_STREAM_READY) stream->HoldFilled();
    }

    void Release() {
        if (!IsHeld) HoldFilled();
        Forget(pa_stream_cork(Playback, 0, nullptr, nullptr));
        IsHeld = false;
        const pa_usec_t restUs =
            pa_rtclock_now() + static_cast<pa_usec_t>(Clip.LengthMs()) * 1000 + kRestUs;
        if (!Rest)
            Rest = pa_context_rttime_new(Context, restUs, OnRest, this);
        else
            pa_context_rttime_restart(Context, Rest, restUs);
        Forget(Timing);
        Timing = pa_stream_update_timing_info(Playback, OnTiming, this);
    }

    static void OnTiming(pa_stream* playback, int success, void* self) {
        const pa_timing_info* timing = success ? pa_stream_get_timing_info(playback) : nullptr;
        auto* stream = static_cast<Stream*>(self);
        const std::lock_guard lock(stream->Mutex);
        const pa_usec_t latencyUs = timing ? timing->sink_usec : 0;
        stream->Latency =
            std::chrono::duration_cast<milliseconds>(std::chrono::microseconds(latencyUs));
        stream->Changed.notify_all();
    }

    // From here on: on any thread.

    void Tell(State state) {
        const std::lock_guard lock(Mutex);
        if (Current != State::Failed) Current = state;
        Changed.notify_all();
    }

    bool HasFailed() {
        const std::lock_guard lock(Mutex);
        return Current == State::Failed;
    }

    bool IsReadyWithin(milliseconds limit) {
        std::unique_lock lock(Mutex);
        Changed.wait_for(lock, limit, [this] { return Current != State::Preparing; });
        return Current == State::Ready;
    }

    bool PlayAndWait() {
        {
            std::unique_lock lock(Mutex);
            // A server that hasn't answered the last click plays this one no more than that.
            const auto answered = [this] {
                return Latency || !WasPlayed || Current == State::Failed;
            };
            if (!Changed.wait_for(lock, kReadyWait, answered)) Current = State::Failed;
            if (Current == State::Failed) return false;
            WasPlayed = true;
            Latency.reset();
        }
        const Clock::time_point start = Clock::now();
        pa_threaded_mainloop_lock(Loop);
        Release();
        pa_threaded_mainloop_unlock(Loop);

        const auto failed = [this] { return Current == State::Failed; };
        std::unique_lock lock(Mutex);
        Changed.wait_until(lock, start + kMostLatency, [&] { return Latency || failed(); });
        const milliseconds latency = std::min(Latency.value_or(kMostLatency), kMostLatency);
        const milliseconds length = std::min(milliseconds(Clip.LengthMs()), kMostWait - latency);
        Changed.wait_until(lock, start + latency + length, failed);
        return !failed();
    }

    pa_threaded_mainloop* Loop = nullptr;
    pa_context* Context = nullptr;
    pa_stream* Playback = nullptr;
    pa_time_event* Rest = nullptr; ///< Holds the stream when the click is over.
    pa_operation* Timing = nullptr;
    bool IsHeld = true;
    SoundClip Clip;

    std::mutex Mutex;
    std::condition_variable Changed;
    State Current = State::Preparing;
    bool WasPlayed = false;
    std::optional<milliseconds> Latency; ///< Of the sink; nothing until it is told for this click.
};

ClickSound::ClickSound(std::string server) : m_server(std::move(server)) {}

ClickSound::~ClickSound() = default;

void ClickSound::Prepare(const Text& path) {
    m_path = path;
    m_stream = std::make_shared<Stream>();
    const std::shared_ptr<Stream> stream = m_stream;
    const std::string server = m_server;
    if (!StartDetached("velora-click", [stream, path, server] { stream->Open(path, server); }))
        stream->Tell(Stream::State::Failed);
}

bool ClickSound::PlayAndWait(const Text& path) {
    if (!m_stream || path != m_path) Prepare(path);
    if (m_stream->IsReadyWithin(kReadyWait) && m_stream->PlayAndWait()) return true;
    // Perhaps the server or the file is there again when the next click comes. What only takes its
    // time goes on.
    if (m_stream->HasFailed()) Prepare(path);
    return false;
}
