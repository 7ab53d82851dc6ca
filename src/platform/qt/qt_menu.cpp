// An entry's children are the entries of the next level that follow it.
#include "platform/qt/qt_menu.h"

#include <QAction>
#include <QMenu>

#include "platform/qt/qt_text.h"

namespace {

QAction* AddEntry(QMenu& popup, std::span<const MenuEntry> menu, std::size_t index) {
    const MenuEntry& entry = menu[index];
    if (entry.Caption == u"-") return popup.addSeparator();
    if (!entry.OpensMenu) return popup.addAction(ToQString(entry.Caption));
    QMenu* inside = popup.addMenu(ToQString(entry.Caption));
    FillMenu(*inside, menu, index);
    return inside->menuAction();
}

} // namespace

void FillMenu(QMenu& popup, std::span<const MenuEntry> menu, std::size_t root) {
    for (std::size_t index = root + 1; index < menu.size() && menu[index].Level > menu[root].Level;
         ++index) {
        const MenuEntry& entry = menu[index];
        if (entry.Level != menu[root].Level + 1 || !entry.Visible) continue;
        QAction* action = AddEntry(popup, menu, index);
        action->setEnabled(entry.Enabled);
        action->setCheckable(entry.Marked.has_value());
        action->setChecked(entry.Marked.value_or(false));
        action->setData(static_cast<qulonglong>(index));
    }
}
