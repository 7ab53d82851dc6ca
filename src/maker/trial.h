// A skin put onto a form by the program's own procedures, with note of all that they read and load.
#pragma once

#include <algorithm>
#include <map>

#include "state/velora.h"

/// A key that the skin's procedures asked for, and what came of it.
struct KeyRead {
    Text File, Section, Key;
    const void* Field = nullptr; ///< The field of a record that it fills.
    std::optional<Text> Given;   ///< As it stands in the file; nothing if it is missing or empty.
    bool Fits = false;
    TextView Wanted; ///< What would fit, in words.
};

/// Loads by another loader, and keeps what came of each path.
class NotedPictures : public Pictures {
public:
    explicit NotedPictures(Pictures& pictures) : m_pictures(pictures) {}
    [[nodiscard]] PicturePtr LoadPicture(const Text& path) override;

    std::map<Text, PicturePtr> Loaded;

private:
    Pictures& m_pictures;
};

/// The first skin of a run, as start-up leaves it. Stays where it was made.
class Trial {
public:
    /// Loads the skin file at `path` and applies it.
    Trial(const PlatformParts& parts, const Text& path);
    Trial(const Trial&) = delete;
    Trial& operator=(const Trial&) = delete;

    [[nodiscard]] const SkinRecord& Skin() const { return State.Skins[1]; }
    [[nodiscard]] bool IsShown() const { return State.CurrentSkin == 1; }

    /// The key that fills a field. One without a name for a field that wasn't asked for.
    [[nodiscard]] const KeyRead& ReadOf(const void* field) const;

    /// The light at which the row ended by a fault of its section; 0 for none.
    [[nodiscard]] Integer BrokenLight() const;

    const Text Path; ///< With a directory.
    NotedPictures Pictures;
    Velora State;
    std::vector<KeyRead> Reads; ///< In their order.
};

/// Plays a track, by the procedures of the player's own events, up to 43 per cent. The
/// visualisation shows a full sound.
void PlayTrial(Velora& velora);
