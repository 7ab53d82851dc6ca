// The server's clock is asked every few seconds and followed by our own in between: libpulse's
// automatic updates would wake the process for as long as the stream exists, held or not. What the
// server asks for tells in between that it is alive; one that is silent is asked whether it is.
#include "platform/audio/output/pulse_output.h"

#include <algorithm>
#include <pulse/context.h>
#include <pulse/operation.h>
#include <pulse/proplist.h>
#include <pulse/sample.h>
#include <pulse/stream.h>

#include "platform/audio/output/audio_clock.h"
#include "platform/audio/output/pulse_operation.h"

namespace {

constexpr std::int64_t kAskSoonUs = 40'000;
constexpr std::int64_t kAskAgainUs = 200'000;
constexpr std::int64_t kAskUs = 5'000'000;
/// A question that is nearly due goes along with whatever woke the thread.
constexpr std::int64_t kAskEarlyUs = 150'000;
constexpr std::int64_t kRestUs = 5'000'000;
/// The server asks for samples once a second; each time wakes us.
constexpr int kRequestMs = 1000;
/// So long after its last sign of life a server is asked for one,
constexpr std::int64_t kQuietUs = 1'250'000;
/// and so long our clock is followed without any. What a server that hangs doesn't play would
/// otherwise be taken for heard, and be skipped when it is gone.
constexpr std::int64_t kTrustUs = 1'500'000;

std::int64_t BytesOfMs(const SoundFormat& format, int ms) {
    return static_cast<std::int64_t>(format.RateHz) * ms / 1000 * format.Channels * 2;
}

/// Of a stream that nobody wanted any more when it was made.
void LeaveWhenUp(pa_stream* stream, void*) {
    if (pa_stream_get_state(stream) == PA_STREAM_READY) pa_stream_disconnect(stream);
}

} // namespace

void PulseOutput::Open(const SoundFormat& format, const std::string& title, std::int64_t nowUs) {
    if (TakeRested(format, title)) {
        m_held = false;
        Drop(nowUs);
        // Not given a track before the server has shown that it doesn't hang.
        m_returns = !m_baseKnown;
        return;
    }
    Disconnect();
    m_format = format;
    m_held = false;
    m_uncorkAtWrite = true;
    m_base = m_written = m_heard = 0;
    m_baseKnown = true;
    m_timing = {};
    AskSoon(nowUs);
    const pa_sample_spec spec{PA_SAMPLE_S16NE, static_cast<std::uint32_t>(format.RateHz),
                              static_cast<std::uint8_t>(format.Channels)};
    pa_proplist* properties = pa_proplist_new();
    pa_proplist_sets(properties, PA_PROP_MEDIA_ROLE, "music");
    m_stream =
        pa_stream_new_with_proplist(m_server.Context(), title.c_str(), &spec, nullptr, properties);
    pa_proplist_free(properties);
    m_refused = !m_stream || !Connect(m_stream);
}

bool PulseOutput::Connect(pa_stream* stream) {
    pa_stream_set_suspended_callback(stream, OnChange, this);
    pa_stream_set_moved_callback(stream, OnChange, this);
    pa_stream_set_write_callback(stream, OnRequest, this);
    pa_buffer_attr buffer{};
    buffer.maxlength = static_cast<std::uint32_t>(-1);
    buffer.tlength = static_cast<std::uint32_t>(BytesOfMs(m_format, kAheadMs));
    // Not zero: the server would then go on counting while the queue is empty, and drop samples
    // that come late.
    buffer.prebuf = static_cast<std::uint32_t>(2 * m_format.Channels);
    buffer.minreq = static_cast<std::uint32_t>(BytesOfMs(m_format, kRequestMs));
    buffer.fragsize = static_cast<std::uint32_t>(-1);
    // Held from the start: a pause or a stop before it is up would come too late otherwise.
    const auto flags =
        static_cast<pa_stream_flags_t>(PA_STREAM_ADJUST_LATENCY | PA_STREAM_START_CORKED);
    return pa_stream_connect_playback(stream, nullptr, &buffer, flags, nullptr, nullptr) == 0;
}

void PulseOutput::Close(std::int64_t nowUs) {
    if (m_rests) return;
    const OutputState state = StreamState();
    if (state == OutputState::Closed || state == OutputState::Lost) {
        Disconnect();
        return;
    }
    Drop(nowUs);
    m_rests = true;
    if (state == OutputState::Running) m_restUntilUs = nowUs + kRestUs;
}

bool PulseOutput::TakeRested(const SoundFormat& format, const std::string& title) {
    if (!m_rests) return false;
    m_rests = false;
    m_restUntilUs.reset();
    if (format != m_format || StreamState() == OutputState::Lost) return false;
    m_newName = title;
    if (StreamState() == OutputState::Running) SetName();
    return true;
}

void PulseOutput::SetName() {
    if (m_newName.empty()) return;
    Forget(pa_stream_set_name(m_stream, m_newName.c_str(), nullptr, nullptr));
    m_newName.clear();
}

OutputState PulseOutput::RestState() const {
    return m_rests ? StreamState() : OutputState::Closed;
}

void PulseOutput::PollRest(std::int64_t nowUs) {
    if (!m_rests || StreamState() == OutputState::Opening) return;
    if (StreamState() == OutputState::Running) {
        if (!m_restUntilUs) m_restUntilUs = nowUs + kRestUs;
        if (nowUs < *m_restUntilUs) return;
    }
    Disconnect();
}

void PulseOutput::Disconnect() {
    m_rests = m_returns = m_refused = false;
    m_restUntilUs.reset();
    m_newName.clear();
    m_asked.clear();
    if (!m_stream) return;
    pa_stream_set_suspended_callback(m_stream, nullptr, nullptr);
    pa_stream_set_moved_callback(m_stream, nullptr, nullptr);
    pa_stream_set_write_callback(m_stream, nullptr, nullptr);
    // A stream that the server is still making can't be disconnected before it is made.
    if (pa_stream_get_state(m_stream) == PA_STREAM_CREATING)
        pa_stream_set_state_callback(m_stream, LeaveWhenUp, nullptr);
    else
        pa_stream_disconnect(m_stream);
    pa_stream_unref(m_stream);
    m_stream = nullptr;
}

OutputState PulseOutput::State() const {
    return m_rests ? OutputState::Closed : StreamState();
}

OutputState PulseOutput::StreamState() const {
    if (m_refused) return OutputState::Lost;
    if (!m_stream) return OutputState::Closed;
    switch (pa_stream_get_state(m_stream)) {
    case PA_STREAM_READY:
        return m_returns ? OutputState::Opening : OutputState::Running;
    case PA_STREAM_FAILED:
    case PA_STREAM_TERMINATED:
        return OutputState::Lost;
    default:
        return OutputState::Opening;
    }
}

std::int64_t PulseOutput::FramesOfBytes(std::int64_t bytes) const {
    return bytes / (2 * m_format.Channels);
}

std::int64_t PulseOutput::WritableFrames(std::int64_t) {
    if (State() != OutputState::Running) return 0;
    const std::size_t bytes = pa_stream_writable_size(m_stream);
    return bytes == static_cast<std::size_t>(-1) ? 0
                                                 : FramesOfBytes(static_cast<std::int64_t>(bytes));
}

void PulseOutput::Write(std::span<const std::int16_t> samples, std::int64_t nowUs) {
    const bool ranDry = HeardFrames(nowUs) == m_written;
    if (ranDry) {
        // The sound stood still, so the place must not have moved when it goes on.
        m_timing.Running = false;
        m_timing.HeardFrame = m_base + m_written;
    }
    if (pa_stream_write(m_stream, samples.data(), samples.size_bytes(), nullptr, 0,
                        PA_SEEK_RELATIVE) != 0)
        return;
    m_written += static_cast<std::int64_t>(samples.size()) / m_format.Channels;
    if (m_uncorkAtWrite) {
        m_uncorkAtWrite = false;
        SetName();
        if (!m_held) Cork(false);
    }
    if (ranDry) AskSoon(nowUs);
}

void PulseOutput::Rewrite(std::span<const std::int16_t> samples) {
    if (State() != OutputState::Running || samples.empty()) return;
    // Backwards from the end of what was written: so the server doesn't count it as new.
    pa_stream_write(m_stream, samples.data(), samples.size_bytes(), nullptr,
                    -static_cast<std::int64_t>(samples.size_bytes()), PA_SEEK_RELATIVE);
}

void PulseOutput::Cork(bool corked) {
    Forget(pa_stream_cork(m_stream, corked, nullptr, nullptr));
}

void PulseOutput::Hold(bool held, std::int64_t nowUs) {
    m_heard = HeardFrames(nowUs);
    m_held = held;
    // The time until the next answer, however late it comes, isn't taken for played.
    m_timing.Running = false;
    m_timing.HeardFrame = m_base + m_heard;
    if (State() != OutputState::Running) return;
    if (held || !m_uncorkAtWrite) Cork(held);
    AskTiming(false);
    AskSoon(nowUs);
}

void PulseOutput::Drop(std::int64_t nowUs) {
    m_written = m_heard = 0;
    m_timing = {};
    if (State() != OutputState::Running) return;
    // Corking makes the server take back what it has mixed already; only then is all of it in the
    // queue that the flush empties.
    Cork(true);
    Forget(pa_stream_flush(m_stream, nullptr, nullptr));
    m_baseKnown = false;
    AskTiming(true);
    m_uncorkAtWrite = !m_held;
    AskSoon(nowUs);
}

void PulseOutput::AskTiming(bool afterDrop) {
    pa_operation* question = pa_stream_update_timing_info(m_stream, OnTiming, this);
    if (!question) return;
    pa_operation_unref(question);
    m_askedUs = NowUs();
    m_asked.push_back(afterDrop);
}

void PulseOutput::OnTiming(pa_stream* stream, int success, void* self) {
    auto* output = static_cast<PulseOutput*>(self);
    if (stream != output->m_stream || output->m_asked.empty()) return;
    const bool afterDrop = output->m_asked.front();
    output->m_asked.pop_front();
    if (afterDrop) output->m_returns = false;
    if (success) output->TakeTiming(afterDrop);
}

void PulseOutput::OnChange(pa_stream* stream, void* self) {
    auto* output = static_cast<PulseOutput*>(self);
    if (stream == output->m_stream) output->m_askAtUs = 0;
}

void PulseOutput::OnRequest(pa_stream* stream, std::size_t, void* self) {
    auto* output = static_cast<PulseOutput*>(self);
    if (stream == output->m_stream) output->m_signUs = NowUs();
}

void PulseOutput::TakeTiming(bool afterDrop) {
    const pa_timing_info* info = pa_stream_get_timing_info(m_stream);
    m_signUs = NowUs();
    if (!info || info->read_index_corrupt) return;
    const std::int64_t read = FramesOfBytes(info->read_index);
    if (afterDrop) {
        m_base = read;
        m_baseKnown = std::find(m_asked.begin(), m_asked.end(), true) == m_asked.end();
        return;
    }
    // Between a drop and its answer nobody knows which frames the numbers mean; where that answer
    // failed, they are those that were written since.
    if (std::find(m_asked.begin(), m_asked.end(), true) != m_asked.end()) return;
    if (!m_baseKnown && info->write_index_corrupt) return;
    if (!m_baseKnown) m_base = FramesOfBytes(info->write_index) - m_written;
    m_baseKnown = true;
    const auto framesOfUs = [this](std::uint64_t us) {
        return static_cast<std::int64_t>(us) * m_format.RateHz / 1'000'000;
    };
    const bool stands = m_held || pa_stream_is_suspended(m_stream) > 0;
    m_timing.Known = true;
    // With the queue run dry, silence lies behind our last sample in the sink's own buffer.
    const std::uint64_t silence =
        info->playing ? 0
                      : pa_bytes_to_usec(static_cast<std::uint64_t>(info->since_underrun),
                                         pa_stream_get_sample_spec(m_stream));
    const std::uint64_t behindUs = info->sink_usec > silence ? info->sink_usec - silence : 0;
    m_timing.Running = !stands && read > m_base;
    m_timing.HeardFrame = stands ? read : read - framesOfUs(behindUs);
    m_timing.AtUs = NowUs() - static_cast<std::int64_t>(info->transport_usec);
}

std::int64_t PulseOutput::HeardFrames(std::int64_t nowUs) {
    if (!m_timing.Known) return m_heard;
    std::int64_t heard = m_timing.HeardFrame - m_base;
    m_quiet = nowUs > m_signUs + kTrustUs;
    const std::int64_t untilUs = std::min(nowUs, m_signUs + kTrustUs);
    if (m_timing.Running && !m_held)
        heard += std::max<std::int64_t>(0, untilUs - m_timing.AtUs) * m_format.RateHz / 1'000'000;
    m_heard = std::clamp(heard, m_heard, std::max(m_heard, m_written));
    return m_heard;
}

double PulseOutput::Pace() const {
    return m_timing.Running && !m_held && !m_quiet ? m_format.RateHz : 0;
}

void PulseOutput::AskSoon(std::int64_t nowUs) {
    m_askAtUs = nowUs + kAskSoonUs;
}

std::int64_t PulseOutput::AskDueUs() const {
    if (!m_timing.Running) return m_askAtUs;
    return std::min(m_askAtUs, std::max(m_signUs, m_askedUs) + kQuietUs);
}

/// One question at a time: a server that hangs would find thousands when it goes on.
bool PulseOutput::AsksNothing() const {
    return State() != OutputState::Running || m_held || m_written == 0 || !m_asked.empty();
}

std::optional<std::int64_t> PulseOutput::DueUs() const {
    if (AsksNothing()) return std::nullopt;
    return AskDueUs();
}

void PulseOutput::Poll(std::int64_t nowUs) {
    if (AsksNothing() || nowUs < AskDueUs() - (m_timing.Running ? kAskEarlyUs : 0)) return;
    AskTiming(false);
    m_askAtUs = nowUs + (m_timing.Running ? kAskUs : kAskAgainUs);
}
