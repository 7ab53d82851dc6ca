// What a window can do beside showing the form and reporting the mouse: keys, drops, coming to the
// front, a list to choose from, and the door at which a second start knocks.
#pragma once

#include <string>
#include <vector>

#include "platform/text.h"

/// The keys that mean something.
enum class Key { Space, Return, Left, Right, Up, Down, PageUp, PageDown, O, J, F1 };

/// Who hears of it, on the loop's thread.
class ExtraEvents {
public:
    virtual ~ExtraEvents() = default;
    /// A key went down while the window had the focus, without Control, Alt or the like.
    /// `isRepeated`: by being held.
    virtual void OnKey(Key key, bool isRepeated) = 0;
    /// Whether files may be dropped now.
    [[nodiscard]] virtual bool TakesDrops() const = 0;
    /// Files were dropped on the window; their addresses are URIs.
    virtual void OnDrop(const std::vector<std::string>& addresses) = 0;
    /// A second start has handed over its command line.
    virtual void OnSecondStart(const Text& commandLine) = 0;
};

/// The extras of the one window.
class WindowExtras {
public:
    virtual ~WindowExtras() = default;
    /// From now on `events` hears of keys and drops. Called once, when the window is up.
    virtual void Listen(ExtraEvents& events) = 0;
    /// Whether second starts are let in.
    virtual void OpenDoor(bool open) = 0;
    /// Brings the window to the front.
    virtual void Raise() = 0;
    /// Lets the user choose one of `rows`, which are searched as one types, and waits, with events
    /// going on. The number of the chosen row, counted from 1; 0 for none. Row `marked` is the one
    /// that plays, 0 for none.
    [[nodiscard]] virtual std::size_t ChooseRow(const std::vector<Text>& rows,
                                                std::size_t marked) = 0;
};
