// What is noted is what a test can state in a line.
#include "platform/null/null_extras.h"

namespace {

// In the order of `MediaProperty`.
constexpr const char* kProperties[] = {"PlaybackStatus", "LoopStatus", "Shuffle",       "Metadata",
                                       "Volume",         "CanGoNext",  "CanGoPrevious", "CanPlay",
                                       "CanPause",       "CanSeek"};

} // namespace

void NullMediaBus::Appear(MediaRequests& requests) {
    Requests = &requests;
    m_journal.Note("Appear");
}

void NullMediaBus::Disappear() {
    Requests = nullptr;
    m_journal.Note("Disappear");
}

void NullMediaBus::TellChanged(std::span<const MediaProperty> changed) {
    std::string line = "Changed";
    for (const MediaProperty property : changed)
        line += std::string(" ") + kProperties[static_cast<std::size_t>(property)];
    m_journal.Note(line);
}

void NullMediaBus::TellSeeked(std::int64_t placeUs) {
    m_journal.Note("Seeked " + std::to_string(placeUs / 1000));
}

void NullExtras::OpenDoor(bool open) {
    m_journal.Note(open ? "Door open" : "Door shut");
}

std::size_t NullExtras::ChooseRow(const std::vector<Text>& rows, std::size_t marked) {
    m_journal.Note("ChooseRow " + std::to_string(rows.size()) + " " + std::to_string(marked));
    return Row;
}
