// Reading a skin file into a slot. Nothing is shown by it.
#pragma once

#include "state/velora.h"

/// The sections of a skin's regions and objects are called so, with a number from 1 behind it.
constexpr TextView kRegionSection = u"rgn", kObjectSection = u"object";

/// Reads the skin file at `Path` into the next free slot and gives the slot's number. A value that
/// doesn't convert or doesn't fit leaves its field at 0, false or empty; a missing key takes its
/// default, so any file makes a skin. Counts above 20 regions and 24 objects are kept, and the
/// surplus is passed over.
///
/// 0 if the file isn't there, which the user is told, or if all 15 slots are taken, in silence. No
/// slot is used then.
[[nodiscard]] Integer LoadSkinFile(Velora& velora, const Text& Path);
