// The session bus and the window's extras without either: recorders.
#pragma once

#include "platform/media_bus.h"
#include "platform/null/journal.h"
#include "platform/window_extras.h"

/// Notes "Appear", "Disappear", "Changed" with the names of the properties, and "Seeked" with the
/// place in milliseconds.
class NullMediaBus : public MediaBus {
public:
    explicit NullMediaBus(Journal& journal) : m_journal(journal) {}
    void Appear(MediaRequests& requests) override;
    void Disappear() override;
    void TellChanged(std::span<const MediaProperty> changed) override;
    void TellSeeked(std::int64_t placeUs) override;

    MediaRequests* Requests = nullptr; ///< Null while the player isn't on the bus.

private:
    Journal& m_journal;
};

/// Notes "Door open" and "Door shut", "Raise", and "ChooseRow" with the number of rows and the
/// marked one.
class NullExtras : public WindowExtras {
public:
    explicit NullExtras(Journal& journal) : m_journal(journal) {}
    void Listen(ExtraEvents& events) override { Events = &events; }
    void OpenDoor(bool open) override;
    void Raise() override { m_journal.Note("Raise"); }
    std::size_t ChooseRow(const std::vector<Text>& rows, std::size_t marked) override;

    ExtraEvents* Events = nullptr;
    std::size_t Row = 0; ///< The row that the user chooses next.

private:
    Journal& m_journal;
};
