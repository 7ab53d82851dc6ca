// Which skin files are loaded and which one the window shows.
#pragma once

#include "state/velora.h"

/// Loads all skins of the catalogue and applies the one whose slot is its `LastSkin`. Without a
/// catalogue the default skin is loaded and applied; if that is missing the user may choose a skin
/// file, or the process ends. Needs `SkinsIni` and `SkinFilter`. Called once, at start-up.
void LoadSkinCatalogue(Velora& velora);

/// Loads and applies the skin that the current one names as its companion; nothing happens if there
/// is none. The file is loaded anew each time as long as a slot is free, after that the slot of
/// that file that was loaded last is applied. `picPlay` then shows what its state asks for.
void ShowCompanionSkin(Velora& velora);
