// Only what is up is compared and noted, as a real window would.
#include "platform/null/null_window.h"

#include <algorithm>

void NullWindow::ShowFirst() {
    m_isUp = true;
    Shown = SceneOf(*m_form);
}

void NullWindow::Present() {
    if (!m_isUp) return;
    Scene now = SceneOf(*m_form);
    if (now.Caption != Shown.Caption) m_journal.Note("Caption " + Utf8(now.Caption));
    if (now.Client != Shown.Client)
        m_journal.Note("Size " + std::to_string(now.Client.Right) + " x " +
                       std::to_string(now.Client.Bottom));
    if (now.Region != Shown.Region) m_journal.Note("Region");
    if (now.State != Shown.State)
        m_journal.Note("State " + std::to_string(static_cast<int>(now.State)));
    Damage = DamageBetween(Shown, now);
    Shown = std::move(now);
}

void NullWindow::BeginMove(Integer button) {
    m_journal.Note("BeginMove " + std::to_string(button));
    if (WhileOpen) WhileOpen();
}

std::size_t NullWindow::PopupMenu(std::span<const MenuEntry> menu, std::size_t root) {
    m_journal.Note("PopupMenu");
    const auto entry = std::ranges::find(menu, MenuChoice, &MenuEntry::Name);
    const auto chosen = static_cast<std::size_t>(entry - menu.begin());
    if (WhileOpen) WhileOpen();
    return chosen < menu.size() ? chosen : root;
}
