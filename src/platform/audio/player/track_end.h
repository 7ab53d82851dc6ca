// The length of a track, and what is left to do when its end has come.
#pragma once

#include <cstdint>
#include <optional>
#include <utility>

/// The end may come before the length is known, and may be left again by a seek.
class TrackEnd {
public:
    /// In frames; nothing while it isn't known.
    [[nodiscard]] std::optional<std::int64_t> Length() const { return m_length; }
    void SetLength(std::int64_t frames) { m_length = frames; }
    /// Whether `frame` is known to be the end or to lie behind it.
    [[nodiscard]] bool IsAt(std::int64_t frame) const { return m_length && frame >= *m_length; }

    /// The end has come. Until `closeAtUs` the output may still play what it holds.
    void Reach(std::int64_t closeAtUs) {
        m_closeAtUs = closeAtUs;
        m_told = false;
    }
    [[nodiscard]] std::int64_t CloseAtUs() const { return m_closeAtUs; }

    /// The listener may have missed that the end was told.
    void TellAgain() { m_told = false; }
    [[nodiscard]] bool IsTold() const { return m_told; }
    void NoteTold() { m_told = true; }

private:
    std::optional<std::int64_t> m_length;
    std::int64_t m_closeAtUs = 0;
    bool m_told = false;
};
