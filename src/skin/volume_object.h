// The volume indicator of a skin: the pictures of its seven steps and the mouse positions that
// belong to them.
#pragma once

#include "state/velora.h"

/// Shows `FileName` on `picVolume`, loads the pictures of the steps into `picVolumeArray` 1 to 7
/// and reads the mouse positions of object `ObjectIndex` into the record of `CurrentSkin`; then
/// puts `picVolume` in its place and starts from step 1. The steps' pictures are named by
/// `FileName2` without its last four characters, the step, and ".gif". The player's volume isn't
/// touched. A step that fails is passed over. Both names are full paths. Places in pixels.
void LoadVolumeObject(Velora& velora, Integer ObjectIndex, Long Left, Long Top,
                      const Text& FileName, const Text& FileName2);
