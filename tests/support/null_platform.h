// The parts of the null platform with one journal, as every Velora without a display needs them.
#pragma once

#include "platform/null/null_loop.h"
#include "platform/null/null_parts.h"
#include "platform/null/null_window.h"
#include "state/velora.h"

struct NullPlatform {
    /// What a `Velora` is made of. `pictures` come from whoever asks, since what a picture is
    /// differs.
    [[nodiscard]] PlatformParts PartsWith(Pictures& pictures) {
        return {window, dialogs, loop, pictures, machine, player, scope};
    }

    Journal journal;
    NullWindow window{journal};
    NullDialogs dialogs{journal};
    NullLoop loop;
    NullSystem machine{journal};
    NullPlayer player{journal};
    NullScope scope{journal};
};
