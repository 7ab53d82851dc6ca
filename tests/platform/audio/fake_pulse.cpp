// Without a `FakePulse` each function is libpulse's own.
#include "platform/audio/fake_pulse.h"

#include <dlfcn.h>

/// Defines a function of libpulse's: its result, name, parameters, arguments, and the answer.
#define FAKE(result, function, parameters, arguments, ...)                                                   \
    result function parameters {                                                                             \
        static const auto next = reinterpret_cast<decltype(&function)>(dlsym(RTLD_NEXT, #function));         \
        FakePulse* const fake = FakePulse::Present;                                                          \
        if (!fake) return next arguments;                                                                    \
        __VA_ARGS__;                                                                                         \
    }

using std::to_string;

extern "C" {

FAKE(pa_usec_t, pa_rtclock_now, (), (), return static_cast<pa_usec_t>(fake->NowUs))
FAKE(void, pa_operation_unref, (pa_operation * operation), (operation), --fake->Operations)

FAKE(pa_context*, pa_context_new_with_proplist,
     (pa_mainloop_api * loop, const char* name, const pa_proplist* list), (loop, name, list), {
         fake->Note("dial");
         return reinterpret_cast<pa_context*>(fake);
     })
FAKE(int, pa_context_connect,
     (pa_context * context, const char* server, pa_context_flags_t flags, const pa_spawn_api* api),
     (context, server, flags, api), {
         fake->Context = PA_CONTEXT_CONNECTING;
         return -fake->Refuses;
     })
FAKE(pa_context_state_t, pa_context_get_state, (const pa_context* context), (context), return fake->Context)
FAKE(void, pa_context_disconnect, (pa_context * context), (context), fake->Note("hangup"))
FAKE(void, pa_context_unref, (pa_context * context), (context), fake->Note("forget"))

FAKE(pa_stream*, pa_stream_new_with_proplist,
     (pa_context * context, const char* name, const pa_sample_spec* spec, const pa_channel_map* map,
      pa_proplist* list),
     (context, name, spec, map, list), {
         fake->Note(std::string("open=") + name);
         fake->Spec = *spec;
         fake->Stream = PA_STREAM_CREATING;
         fake->Corked = false;
         fake->Read = fake->Written = fake->Queued = 0;
         ++fake->Streams;
         return fake->StreamPointer();
     })
FAKE(int, pa_stream_connect_playback,
     (pa_stream * stream, const char* device, const pa_buffer_attr* buffer, pa_stream_flags_t flags,
      const pa_cvolume* volume, pa_stream* other),
     (stream, device, buffer, flags, volume, other), {
         fake->WantedFrames = buffer->tlength / fake->FrameBytes();
         if (!fake->Details) return -fake->Refuses;
         std::string note = "buffer";
         for (const std::uint32_t number :
              {buffer->maxlength, buffer->tlength, buffer->prebuf, buffer->minreq, buffer->fragsize})
             note += "/" + to_string(static_cast<std::int32_t>(number));
         return fake->Note(note);
     })
FAKE(pa_stream_state_t, pa_stream_get_state, (const pa_stream* stream), (stream), return fake->Stream)
FAKE(std::size_t, pa_stream_writable_size, (const pa_stream* stream), (stream), {
    fake->Settle();
    const std::int64_t room = fake->WantedFrames - (fake->Written - fake->Read);
    return static_cast<std::size_t>(fake->RoomFrames >= 0 ? fake->FrameBytes() * fake->RoomFrames
                                    : fake->RoomFrames == -1
                                        ? fake->FrameBytes() * std::max<std::int64_t>(0, room)
                                        : -1);
})
FAKE(int, pa_stream_write,
     (pa_stream * stream, const void* samples, std::size_t bytes, pa_free_cb_t free, std::int64_t offset,
      pa_seek_mode_t mode),
     (stream, samples, bytes, free, offset, mode),
     return fake->Write(static_cast<const std::int16_t*>(samples), bytes, offset))
FAKE(pa_operation*, pa_stream_cork, (pa_stream * stream, int corked, pa_stream_success_cb_t call, void* who),
     (stream, corked, call, who), {
         fake->Settle();
         fake->Corked = corked;
         return fake->Ask(corked ? "cork" : "uncork");
     })
FAKE(pa_operation*, pa_stream_flush, (pa_stream * stream, pa_stream_success_cb_t call, void* who),
     (stream, call, who), {
         fake->Settle();
         fake->Written = fake->Read;
         fake->Queued = 0;
         return fake->Ask("flush");
     })
FAKE(pa_operation*, pa_stream_set_name,
     (pa_stream * stream, const char* name, pa_stream_success_cb_t call, void* who),
     (stream, name, call, who), return fake->Ask(std::string("name=") + name))
FAKE(pa_operation*, pa_stream_update_timing_info,
     (pa_stream * stream, pa_stream_success_cb_t call, void* who), (stream, call, who), {
         if (!fake->Refuses) fake->AskTiming(call);
         fake->Asker = who;
         return fake->Ask("ask");
     })
FAKE(const pa_timing_info*, pa_stream_get_timing_info, (pa_stream * stream), (stream), return &fake->Timing)
FAKE(int, pa_stream_is_suspended, (const pa_stream* stream), (stream), return fake->Suspended)
FAKE(const pa_sample_spec*, pa_stream_get_sample_spec, (pa_stream * stream), (stream), return &fake->Spec)
FAKE(void, pa_stream_set_suspended_callback, (pa_stream * stream, pa_stream_notify_cb_t call, void* who),
     (stream, call, who), fake->OnSuspended = call)
FAKE(void, pa_stream_set_moved_callback, (pa_stream * stream, pa_stream_notify_cb_t call, void* who),
     (stream, call, who), fake->OnMoved = call)
FAKE(int, pa_stream_disconnect, (pa_stream * stream), (stream), return fake->Note("leave"))
FAKE(void, pa_stream_unref, (pa_stream * stream), (stream), fake->Note("free"))

} // extern "C"
