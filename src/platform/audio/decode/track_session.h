// All that a track's reading threads and the player's thread share; whoever lets go last frees it.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "platform/audio/bell.h"
#include "platform/audio/decode/mpeg_decoder.h"

/// Decoded samples that follow each other, the first of them at `StartFrame` of the track.
struct Chunk {
    std::int64_t StartFrame = 0;
    std::vector<std::int16_t> Samples;
};

/// A place that the player asked for. Chunks decoded for an earlier one are of no use any more.
struct SeekRequest {
    int Serial = 0;
    std::int64_t Frame = 0;
};

/// A reader may hang inside the file system for ever. So nobody waits for one, the lock is never
/// held while a file is touched, and session and bell stay until the last thread lets go.
class TrackSession {
public:
    explicit TrackSession(std::shared_ptr<Bell> bell) : m_bell(std::move(bell)) {}

    // The player's thread.

    /// Tells the readers to end. Nobody takes what they still bring.
    void Quit();
    /// Has the reader go on at `frame`; forgets what is decoded.
    void RequestSeek(std::int64_t frame);
    /// The facts, given once, when the reader has found them.
    [[nodiscard]] std::optional<TrackFacts> TakeFacts();
    /// Whether the reader has found that the file can't be played; told once.
    [[nodiscard]] bool TakeRefusal();
    /// The exact length in frames, given once, if a scan had to find it.
    [[nodiscard]] std::optional<std::int64_t> TakeScannedLength();
    /// The next chunk from the place asked for last. Nothing if none is ready; the bell rings when
    /// one is.
    [[nodiscard]] std::optional<Chunk> TakeChunk();
    /// Whether the track's end has been reached and every chunk taken.
    [[nodiscard]] bool AtEnd();
    /// Whether the scan came back without a length.
    [[nodiscard]] bool ScanFailed();

    // The reading threads.

    /// True from `Quit` on; stays as long as the session.
    [[nodiscard]] const std::atomic<bool>* QuitFlag() const { return &m_quit; }
    /// What the file is, and how many frames the queue of chunks is to hold.
    void SetFacts(TrackFacts facts, std::size_t queueFrames);
    /// The file can't be played; neither facts nor chunks follow.
    void Refuse();
    /// The result of a scan; nothing if it failed.
    void SetScan(std::optional<LengthScan> scan);
    /// The index of the scan, given once.
    [[nodiscard]] std::optional<FrameIndex> TakeIndex();
    /// Leaves `chunk`, decoded after the seek `serial`; after an older seek than the last it is
    /// dropped. An empty one is the end of the track.
    void Push(int serial, Chunk chunk);
    /// Sleeps until there is room for a chunk, a seek newer than `serial`, or the end of the
    /// session. False at the end of the session; a newer seek is written to `seek`.
    [[nodiscard]] bool WaitForWork(int serial, std::optional<SeekRequest>& seek);

private:
    [[nodiscard]] bool WantsChunk() const;

    const std::shared_ptr<Bell> m_bell;
    std::atomic<bool> m_quit{false};
    std::mutex m_mutex;
    std::condition_variable m_work;
    SeekRequest m_seek;
    std::optional<TrackFacts> m_facts;
    std::optional<std::int64_t> m_scannedLength;
    std::optional<FrameIndex> m_index;
    bool m_scanFailed = false;
    bool m_refused = false;
    std::deque<Chunk> m_chunks;
    std::size_t m_queuedSamples = 0;
    std::size_t m_queueLimit = 0; ///< In samples.
    bool m_filling = true;        ///< From half empty until it is full.
    bool m_starving = true;       ///< The player found nothing when it last looked.
    bool m_end = false;
};
