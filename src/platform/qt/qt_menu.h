// A menu of the toolkit from the records of a menu tree.
#pragma once

#include <cstddef>
#include <span>

#include "platform/window.h"

class QMenu;

/// Fills `popup` with the visible children of `menu[root]`, and menus with theirs where they open
/// one. The data of each action is the entry's index.
void FillMenu(QMenu& popup, std::span<const MenuEntry> menu, std::size_t root);
