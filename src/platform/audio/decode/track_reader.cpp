// The threads share nothing but the session, so one that hangs can be left behind.
#include "platform/audio/decode/track_reader.h"

#include <utility>

#include "platform/audio/worker_thread.h"

namespace {

/// The first sound is asked for in small pieces, so that it is there soon.
constexpr int kFirstChunkMs = 50;
constexpr int kChunkMs = 1000;
constexpr int kQueueMs = 3000;

std::size_t FramesOfMs(int ms, int rateHz) {
    return static_cast<std::size_t>(ms) * static_cast<std::size_t>(rateHz) / 1000;
}

bool IsAbsolute(const Text& path) {
    return !path.empty() && (path[0] == u'\\' || path[0] == u'/');
}

FileHandle OpenSource(const TrackSource& source) {
    if (!IsAbsolute(source.Path))
        for (const Text& directory : source.Directories) {
            const bool parted =
                directory.empty() || directory.back() == u'\\' || directory.back() == u'/';
            if (FileHandle file = source.Open(directory + (parted ? u"" : u"\\") + source.Path))
                return file;
        }
    return source.Open(source.Path);
}

void ScanLength(const TrackSource& source, TrackSession& session) {
    const std::unique_ptr<MpegDecoder> decoder =
        MpegDecoder::Open(OpenSource(source), session.QuitFlag());
    session.SetScan(decoder ? decoder->Scan() : std::nullopt);
}

void DecodeInto(TrackSession& session, MpegDecoder& decoder) {
    const int rateHz = decoder.Facts().Format.RateHz;
    const auto channels = static_cast<std::size_t>(decoder.Facts().Format.Channels);
    int serial = 0;
    std::int64_t at = 0;
    int chunkMs = kFirstChunkMs;
    std::optional<SeekRequest> seek;
    while (session.WaitForWork(serial, seek)) {
        if (seek) {
            if (const std::optional<FrameIndex> index = session.TakeIndex())
                decoder.UseIndex(*index);
            at = decoder.SeekTo(seek->Frame);
            serial = seek->Serial;
            chunkMs = kFirstChunkMs;
            seek.reset();
        }
        Chunk chunk{at, {}};
        decoder.Decode(FramesOfMs(chunkMs, rateHz), chunk.Samples);
        at += static_cast<std::int64_t>(chunk.Samples.size() / channels);
        session.Push(serial, std::move(chunk));
        chunkMs = kChunkMs;
    }
}

void ReadTrack(const TrackSource& source, const std::shared_ptr<TrackSession>& session) {
    const std::unique_ptr<MpegDecoder> decoder =
        MpegDecoder::Open(OpenSource(source), session->QuitFlag());
    if (!decoder) return session->Refuse();
    const TrackFacts& facts = decoder->Facts();
    session->SetFacts(facts, FramesOfMs(kQueueMs, facts.Format.RateHz));
    if (!facts.LengthFrames) {
        if (!StartDetached("velora-length", [source, session] { ScanLength(source, *session); }))
            session->SetScan(std::nullopt);
    }
    DecodeInto(*session, *decoder);
}

} // namespace

void StartReading(TrackSource source, std::shared_ptr<TrackSession> session) {
    // Without a thread the track is one that can't be played.
    if (!StartDetached("velora-reader",
                       [source = std::move(source), session] { ReadTrack(source, session); }))
        session->Refuse();
}
