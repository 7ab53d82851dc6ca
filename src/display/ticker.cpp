// The pieces of the line, in the order in which a reader sees them pass.
#include "display/ticker.h"

#include <algorithm>

namespace {

constexpr TextView kHead = u" ..:: velora is currently playing ::.. ";
constexpr TextView kWebBlock =
    u" ..:: visit team quillo on the web: http://www.quillo.example ::.. ";
constexpr std::size_t kGapLength = 10;

Text TaggedLine(const TickerFacts& facts) {
    const Text gap(kGapLength, u' ');
    const Text rateBlock = u" ..:: bitrate: " + Decimal(facts.Bitrate) + u" ::.. ";
    const Text sampleBlock = u" ..:: sample: " + Decimal(facts.SampleRate) + u" ::.. ";
    Text line(kHead);
    line.append(facts.Title).append(u" by ").append(facts.Artist).append(u" ::.. ").append(gap);
    line.append(rateBlock).append(gap).append(sampleBlock).append(gap);
    return line.append(kWebBlock).append(gap);
}

Text UntaggedLine(const TickerFacts& facts) {
    return Text(kHead).append(facts.File).append(u"::.. ").append(kGapLength, u' ');
}

} // namespace

Text TickerLine(const TickerFacts& facts) {
    if (facts.State != PlayerState::Playing) return {};
    const bool tagged = !facts.Artist.empty() && !facts.Title.empty();
    return tagged ? TaggedLine(facts) : UntaggedLine(facts);
}

void UpdateTicker(Velora& velora) {
    const MediaEntry& entry = velora.MediaList[static_cast<std::size_t>(velora.CurrentTrack)];
    velora.frmMain.lblFilescroll.Caption =
        TickerLine({velora.PlayerState, velora.TrackTitle, velora.TrackArtist, entry.File,
                    velora.TrackBitrate, velora.TrackSampleRate});
}

void tmrScrollFiletitle_Timer(Velora& velora) {
    Text& caption = velora.frmMain.lblFilescroll.Caption;
    const auto length = static_cast<std::ptrdiff_t>(FirstCharacterLength(caption));
    std::rotate(caption.begin(), caption.begin() + length, caption.end());
}
