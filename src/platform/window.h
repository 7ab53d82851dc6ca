// The window as procedures see it. What it shows are the form's records; this is what can't be a
// record.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "platform/numbers.h"
#include "platform/text.h"

/// A row of a menu tree, in the tree's order. `Level` 0 is a root; an entry's children are the
/// entries of the next level that follow it.
struct MenuEntry {
    std::string_view Name;
    int Level = 0;
    Text Caption; ///< "-" is a separator.
    bool Visible = true;
    bool Enabled = true;
    std::optional<bool> Marked = std::nullopt; ///< One that can have a mark, and whether it has.
    bool OpensMenu = false;                    ///< Its children show in a menu of their own.
};

/// The mouse buttons as mouse events number them; a set of held buttons is their sum.
enum MouseButton : Integer { kNoButton = 0, kLeftButton = 1, kRightButton = 2, kMiddleButton = 4 };

class Window {
public:
    virtual ~Window() = default;

    /// Shows the form's records as they are now, on the screen before the call returns. The loop
    /// does this after each event by itself; only what blocks calls it by hand. Nothing happens
    /// before `ShowFirst`.
    virtual void Present() = 0;

    /// Lets the window come up: from now on `Present` shows it. Called once, when start-up is done.
    virtual void ShowFirst() = 0;

    /// Lets the window follow the pointer until `button` is released. Returns at once or at the
    /// release, as the platform has it; events go on either way. Without a movement the window
    /// stays where it is.
    virtual void BeginMove(Integer button) = 0;

    /// Pops up the children of `menu[root]` at the pointer, visible ones only, and waits, with
    /// events going on. Children of children show only where they are asked for. The index in
    /// `menu` of the chosen entry, or `root` if the user dismissed it.
    [[nodiscard]] virtual std::size_t PopupMenu(std::span<const MenuEntry> menu,
                                                std::size_t root) = 0;
};
