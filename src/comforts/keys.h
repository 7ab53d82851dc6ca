// What the keys mean, and the list of them for F1.
#pragma once

#include "platform/window_extras.h"

/// What a key asks for.
enum class KeyCommand {
    None,
    Pause,
    PlayOrStop,
    SecondsBack,
    SecondsOn,
    Louder,
    Softer,
    Previous,
    Next,
    Open,
    Jump,
    ShowKeys,
};

/// A key that is held repeats only what goes a little way at a time.
[[nodiscard]] KeyCommand CommandOfKey(Key key, bool isRepeated, bool hasJump);

/// A line for each key; J is left out where there is no list to jump in.
[[nodiscard]] Text ListOfKeys(bool hasJump);
