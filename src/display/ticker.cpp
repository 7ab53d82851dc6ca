// The pieces of the line, in the order in which a reader sees them pass.
#include "display/ticker.h"

#include <algorithm>

namespace {

constexpr TextView kHead = u" ..:: velora is currently playing ::.. ";
constexpr TextView kWebBlock =
    u" ..:: visit team quillo on the web: http://www.quillo.example ::.. ";
constexpr std::size_t kGapLength = 10;

Text TaggedLine(const PlayingTrack& track) {
    const Text gap(kGapLength, u' ');
    const Text rateBlock = u" ..:: bitrate: " + Decimal(track.Bitrate) + u" ::.. ";
    const Text sampleBlock = u" ..:: sample: " + Decimal(track.SampleRate) + u" ::.. ";
    Text line(kHead);
    line.append(track.Title).append(u" by ").append(track.Artist).append(u" ::.. ").append(gap);
    line.append(rateBlock).append(gap).append(sampleBlock).append(gap);
    return line.append(kWebBlock).append(gap);
}

Text UntaggedLine(const PlayingTrack& track) {
    return Text(kHead).append(track.File).append(u"::.. ").append(kGapLength, u' ');
}

} // namespace

Text TickerLine(const PlayingTrack& track) {
    if (track.State != PlayerState::Playing) return {};
    const bool tagged = !track.Artist.empty() && !track.Title.empty();
    return tagged ? TaggedLine(track) : UntaggedLine(track);
}

void UpdateTicker(Velora& velora) {
    const MediaEntry& entry = velora.MediaList[velora.CurrentTrack];
    velora.frmMain.lblFilescroll.Caption =
        TickerLine({velora.PlayerState, velora.TrackTitle, velora.TrackArtist, entry.File,
                    velora.TrackBitrate, velora.TrackSampleRate});
}

void tmrScrollFiletitle_Timer(Velora& velora) {
    Text& caption = velora.frmMain.lblFilescroll.Caption;
    const auto length = static_cast<std::ptrdiff_t>(FirstCharacterLength(caption));
    std::rotate(caption.begin(), caption.begin() + length, caption.end());
}
