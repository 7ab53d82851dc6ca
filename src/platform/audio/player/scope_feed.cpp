// Where a frame will be heard is reckoned from the place that is heard now and its pace.
#include "platform/audio/player/scope_feed.h"

#include <algorithm>
#include <span>

namespace {

constexpr std::int64_t kScopeUs = 33'333;
/// Beyond the next position, so that the frames need no wake-up of their own.
constexpr std::int64_t kScopeAheadUs = 260'000;

} // namespace

std::optional<std::int64_t> ScopeFeed::DueUs() const {
    if (!m_ring.IsVisible()) return std::nullopt;
    return m_atUs;
}

void ScopeFeed::Fill(const TrackSound& sound, const EventStamp& stamp, std::int64_t nowUs) {
    if (!m_ring.IsVisible()) return;
    const double pace = sound.Pace();
    const std::int64_t heard = sound.Heard(nowUs);
    m_atUs = std::max(m_atUs, nowUs);
    while (m_atUs <= nowUs + (pace > 0 ? kScopeAheadUs : 0)) {
        const double ahead = static_cast<double>(m_atUs - nowUs) / 1e6 * pace;
        const std::int64_t middle = heard + static_cast<std::int64_t>(ahead);
        // What isn't decoded yet can wait until its moment.
        if (m_atUs > nowUs && middle + SampleFrame::kCount / 2 > sound.History().End()) break;
        m_relay.RaiseFrame(stamp, Put(sound, middle), m_atUs);
        m_atUs += kScopeUs;
    }
}

Long ScopeFeed::Put(const TrackSound& sound, std::int64_t middle) {
    SampleFrame frame;
    frame.RateHz = sound.Format().RateHz;
    frame.AtMs = m_atUs / 1000;
    const auto channels = static_cast<std::size_t>(sound.Format().Channels);
    const std::int64_t first = middle - SampleFrame::kCount / 2;
    std::int64_t at = std::max(first, sound.History().First());
    while (at < first + SampleFrame::kCount) {
        const std::span<const std::int16_t> part =
            sound.History().From(at, first + SampleFrame::kCount - at);
        if (part.empty()) break;
        for (std::size_t i = 0; i + channels <= part.size(); i += channels, ++at) {
            const int sum = channels == 2 ? part[i] + part[i + 1] : 2 * part[i];
            frame.Samples[static_cast<std::size_t>(at - first)] =
                static_cast<float>(sum) / 65536.0F;
        }
    }
    return m_ring.Put(frame);
}
