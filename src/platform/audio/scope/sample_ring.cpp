// Numbers run from 1 to the largest Long and begin again; a slot is found by its number alone.
#include "platform/audio/scope/sample_ring.h"

#include <limits>

Long SampleRing::Put(const SampleFrame& frame) {
    const std::lock_guard lock(m_mutex);
    m_last = m_last == std::numeric_limits<Long>::max() ? 1 : m_last + 1;
    m_slots[static_cast<std::size_t>(m_last) % kSlots] = frame;
    return m_last;
}

bool SampleRing::Take(Long number, SampleFrame& frame) const {
    const std::lock_guard lock(m_mutex);
    if (number < 1 || number > m_last || m_last - number >= static_cast<Long>(kSlots)) return false;
    frame = m_slots[static_cast<std::size_t>(number) % kSlots];
    return true;
}
