// The section [Comforts] of the settings file: the one switch for all comforts, and a key for each.
#pragma once

#include <span>
#include <string_view>

#include "platform/numbers.h"
#include "platform/text.h"

/// What the section says. Without it nothing is on, whatever the other fields hold.
struct ComfortSettings {
    Boolean Enabled;          ///< The switch for all of them.
    Boolean GoOn = true;      ///< The next entry starts at the end of a track.
    Boolean Repeat;           ///< Behind the last entry comes the first.
    Boolean Shuffle;          ///< Each next entry is chosen at random, each once.
    Boolean MediaKeys = true; ///< The desktop's media controls reach the player.
    Boolean Keys = true;      ///< The keyboard does.
    Boolean Drop = true;      ///< Files can be dropped on the window.
    Boolean OneWindow = true; ///< A second start hands its file to the first.
    Boolean Remember = true;  ///< Volume and skin come back at the next start.
    Boolean Jump = true;      ///< The list can be seen, and searched.
    Integer Scale = 0;        ///< How much larger the window is, 1 to 4; 0 leaves it alone.
    Text Skin;                ///< The skin file that was shown last; empty for none.
};

/// A comfort that is on or off.
struct ComfortRow {
    TextView Key;
    std::string_view MenuName; ///< Of its entry in the menu.
    Boolean ComfortSettings::*Field;
};

/// All of them, in the order of the menu.
[[nodiscard]] std::span<const ComfortRow> ComfortTable();

constexpr TextView kComfortSection = u"Comforts";
constexpr Integer kMostScale = 4;

/// Reads the section of an ini file. A key that is missing or doesn't convert leaves what the
/// record starts with, and so does a scale outside 0 to 4; unless `Enabled` is true the others
/// aren't looked at.
[[nodiscard]] ComfortSettings ReadComforts(TextView file);

/// The word for a truth value in an ini file.
[[nodiscard]] TextView TruthWord(bool truth);
