// The comforts' entries of the menu, as records behind the system's own.
#pragma once

#include <string_view>
#include <vector>

#include "comforts/settings.h"
#include "platform/window.h"

/// Appends the entries; once.
void AppendComforts(std::vector<MenuEntry>& menu, const ComfortSettings& settings);

/// Has marks and visibility follow the settings.
void MarkComforts(std::vector<MenuEntry>& menu, const ComfortSettings& settings);

/// What an entry asks for.
enum class MenuCommand { None, Open, Jump, Playlist, Switch, Scale };

/// A command, with the comfort that it switches or the scale that it sets.
struct MenuChoice {
    MenuCommand Command = MenuCommand::None;
    const ComfortRow* Comfort = nullptr;
    Integer Scale = 0;
};

/// What the entry called `name` asks for; nothing for one that isn't a comfort's.
[[nodiscard]] MenuChoice ChoiceOf(std::string_view name);
