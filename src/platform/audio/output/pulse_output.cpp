// The server's clock is asked every few seconds and followed by our own in between: libpulse's
// automatic updates would wake the process for as long as the stream exists, held or not.
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

constexpr std::int64_t kOpenLimitUs = 2'000'000;
constexpr std::int64_t kAskSoonUs = 40'000;
constexpr std::int64_t kAskAgainUs = 200'000;
constexpr std::int64_t kAskUs = 5'000'000;
/// A question that is nearly due goes along with whatever woke the thread.
constexpr std::int64_t kAskEarlyUs = 150'000;
constexpr std::int64_t kRestUs = 5'000'000;
/// The server asks once a second; each time wakes us.
constexpr int kRequestMs = 1000;

std::int64_t BytesOfMs(const SoundFormat& format, int ms) {
    return static_cast<std::int64_t>(format.RateHz) * ms / 1000 * format.Channels * 2;
}

} // namespace

void PulseOutput::Open(const SoundFormat& format, const std::string& title, std::int64_t nowUs) {
    if (TakeRested(format, title)) {
        m_held = false;
        Drop(nowUs);
        return;
    }
    Disconnect();
    m_format = format;
    m_openLimitUs = nowUs + kOpenLimitUs;
    m_held = m_uncorkAtWrite = false;
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
    m_tooSlow = !m_stream || !Connect(m_stream);
}

bool PulseOutput::Connect(pa_stream* stream) {
    pa_stream_set_suspended_callback(stream, OnChange, this);
    pa_stream_set_moved_callback(stream, OnChange, this);
    pa_buffer_attr buffer{};
    buffer.maxlength = static_cast<std::uint32_t>(-1);
    buffer.tlength = static_cast<std::uint32_t>(BytesOfMs(m_format, kAheadMs));
    // Not zero: the server would then go on counting while the queue is empty, and drop samples
    // that come late.
    buffer.prebuf = static_cast<std::uint32_t>(2 * m_format.Channels);
    buffer.minreq = static_cast<std::uint32_t>(BytesOfMs(m_format, kRequestMs));
    buffer.fragsize = static_cast<std::uint32_t>(-1);
    return pa_stream_connect_playback(stream, nullptr, &buffer, PA_STREAM_ADJUST_LATENCY, nullptr,
                                      nullptr) == 0;
}

void PulseOutput::Close(std::int64_t nowUs) {
    if (m_restUntilUs) return;
    if (State() != OutputState::Running) {
        Disconnect();
        return;
    }
    Drop(nowUs);
    m_restUntilUs = nowUs + kRestUs;
}

bool PulseOutput::TakeRested(const SoundFormat& format, const std::string& title) {
    if (!m_restUntilUs) return false;
    m_restUntilUs.reset();
    if (format != m_format) return false;
    Forget(pa_stream_set_name(m_stream, title.c_str(), nullptr, nullptr));
    return true;
}

void PulseOutput::PollRest(std::int64_t nowUs) {
    if (m_restUntilUs && (nowUs >= *m_restUntilUs || StreamState() != OutputState::Running))
        Disconnect();
}

void PulseOutput::Disconnect() {
    m_restUntilUs.reset();
    m_tooSlow = false;
    m_asked.clear();
    if (!m_stream) return;
    pa_stream_set_suspended_callback(m_stream, nullptr, nullptr);
    pa_stream_set_moved_callback(m_stream, nullptr, nullptr);
    pa_stream_disconnect(m_stream);
    pa_stream_unref(m_stream);
    m_stream = nullptr;
}

OutputState PulseOutput::State() const {
    return m_restUntilUs ? OutputState::Closed : StreamState();
}

OutputState PulseOutput::StreamState() const {
    if (m_tooSlow) return OutputState::Lost;
    if (!m_stream) return OutputState::Closed;
    switch (pa_stream_get_state(m_stream)) {
    case PA_STREAM_READY:
        return OutputState::Running;
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
    m_asked.push_back(afterDrop);
}

void PulseOutput::OnTiming(pa_stream* stream, int success, void* self) {
    auto* output = static_cast<PulseOutput*>(self);
    if (stream != output->m_stream || output->m_asked.empty()) return;
    const bool afterDrop = output->m_asked.front();
    output->m_asked.pop_front();
    if (success) output->TakeTiming(afterDrop);
}

void PulseOutput::OnChange(pa_stream* stream, void* self) {
    auto* output = static_cast<PulseOutput*>(self);
    if (stream == output->m_stream) output->m_askAtUs = 0;
}

void PulseOutput::TakeTiming(bool afterDrop) {
    const pa_timing_info* info = pa_stream_get_timing_info(m_stream);
    if (!info || info->read_index_corrupt) return;
    const std::int64_t read = FramesOfBytes(info->read_index);
    if (afterDrop) {
        m_base = read;
        m_baseKnown = std::find(m_asked.begin(), m_asked.end(), true) == m_asked.end();
        return;
    }
    // Between a drop and its answer nobody knows which frames the numbers mean.
    if (!m_baseKnown) return;
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
    if (m_timing.Running && !m_held)
        heard += std::max<std::int64_t>(0, nowUs - m_timing.AtUs) * m_format.RateHz / 1'000'000;
    m_heard = std::clamp(heard, m_heard, std::max(m_heard, m_written));
    return m_heard;
}

double PulseOutput::Pace() const {
    return m_timing.Running && !m_held ? m_format.RateHz : 0;
}

void PulseOutput::AskSoon(std::int64_t nowUs) {
    m_askAtUs = nowUs + kAskSoonUs;
}

std::optional<std::int64_t> PulseOutput::DueUs() const {
    switch (State()) {
    case OutputState::Opening:
        return m_openLimitUs;
    case OutputState::Running:
        if (m_held || m_written == 0) return std::nullopt;
        return m_askAtUs;
    default:
        return std::nullopt;
    }
}

void PulseOutput::Poll(std::int64_t nowUs) {
    if (State() == OutputState::Opening && nowUs >= m_openLimitUs) m_tooSlow = true;
    if (State() != OutputState::Running || m_held || m_written == 0) return;
    if (nowUs < m_askAtUs - (m_timing.Running ? kAskEarlyUs : 0)) return;
    AskTiming(false);
    m_askAtUs = nowUs + (m_timing.Running ? kAskUs : kAskAgainUs);
}
