// Volume and skin of this run, for the next one.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/profile_strings.h"
#include "state/velora.h"

/// What comes back at the next start.
struct Remembered {
    Integer VolumePercent = 100; ///< As it was sent to the player.
    Integer Skin = 0;            ///< The slot that is shown.

    bool operator==(const Remembered&) const = default;
};

/// When it has to be written: once, some time after the last change.
class RememberClock {
public:
    /// `now` is how things are at `nowMs`. Whether something changed that isn't to be written yet,
    /// and nobody waits for it so far: then `IsDue` is to be asked in `kRestMs`.
    [[nodiscard]] bool Note(const Remembered& now, std::int64_t nowMs);
    /// The time that is still to be waited, in ms; 0 if it is to be written now; nothing if there
    /// is nothing to write.
    [[nodiscard]] std::optional<std::int64_t> DueIn(std::int64_t nowMs);
    /// How things are in the file from now on.
    void SetWritten(const Remembered& written);
    [[nodiscard]] bool IsWritten() const { return !m_changed; }

    static constexpr std::int64_t kRestMs = 5000;

private:
    Remembered m_seen;
    bool m_changed = false, m_waits = false;
    std::int64_t m_changedAtMs = 0;
};

/// The keys to be written. A skin whose path couldn't be read back is left out.
[[nodiscard]] std::vector<ProfileString> StringsToRemember(const Velora& velora,
                                                           const Remembered& now);

/// Shows the skin file at `path`, if it is there: from its slot, or loaded anew. The play button
/// then shows what its state asks for.
void ShowSkin(Velora& velora, const Text& path);
