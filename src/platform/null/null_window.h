// A window without a display: it shows scenes to a journal.
#pragma once

#include <functional>

#include "platform/null/journal.h"
#include "platform/window.h"
#include "state/scene.h"

/// Notes what changes on the form at each `Present` ("Caption TEXT", "Size W x H", "Region", "State
/// N"), and "BeginMove BUTTON" and "PopupMenu". Needs its form before it is up. `Damage` and
/// `Shown` are those of the last `Present`.
class NullWindow : public Window {
public:
    explicit NullWindow(Journal& journal) : m_journal(journal) {}

    void Attach(const Form& form) { m_form = &form; }
    void Present() override;
    void ShowFirst() override;
    void BeginMove(Integer button) override;
    std::size_t PopupMenu(std::span<const MenuEntry> menu, std::size_t root) override;

    std::string
        MenuChoice; ///< Name of the entry that the user chooses next; empty dismisses the menu.
    std::function<void()> WhileOpen; ///< Runs inside each menu and move.
    Scene Shown;
    std::vector<Rect> Damage;

private:
    Journal& m_journal;
    const Form* m_form = nullptr;
    bool m_isUp = false;
};
