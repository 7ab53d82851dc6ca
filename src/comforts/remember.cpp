// A drag over the volume is many changes and one write.
#include "comforts/remember.h"

#include <algorithm>
#include <utility>

#include "comforts/media_facts.h"
#include "comforts/settings.h"
#include "platform/paths.h"
#include "skin/apply_skin.h"
#include "skin/load_skin.h"

bool RememberClock::Note(const Remembered& now, std::int64_t nowMs) {
    if (now == m_seen) return false;
    m_seen = now;
    m_changed = true;
    m_changedAtMs = nowMs;
    return !std::exchange(m_waits, true);
}

std::optional<std::int64_t> RememberClock::DueIn(std::int64_t nowMs) {
    if (!m_changed) {
        m_waits = false;
        return std::nullopt;
    }
    return std::max<std::int64_t>(m_changedAtMs + kRestMs - nowMs, 0);
}

void RememberClock::SetWritten(const Remembered& written) {
    m_seen = written;
    m_changed = m_waits = false;
}

std::vector<ProfileString> StringsToRemember(const Velora& velora, const Remembered& now) {
    std::vector<ProfileString> strings{
        {u"Settings", u"Volume", Decimal(StepNearest(now.VolumePercent))}};
    const SkinRecord& skin = velora.Skins[now.Skin];
    Text path = skin.Directory + skin.FileName;
    if (!path.empty() && ReadsBackWhole(path))
        strings.push_back({Text(kComfortSection), u"Skin", std::move(path)});
    return strings;
}

void ShowSkin(Velora& velora, const Text& path) {
    if (path.empty() || !FileExists(path)) return;
    Integer slot = velora.SkinCount;
    while (slot > 0 && velora.Skins[slot].Directory + velora.Skins[slot].FileName != path)
        --slot;
    if (slot != 0 && slot == velora.CurrentSkin) return;
    if (slot == 0) slot = LoadSkinFile(velora, path);
    ApplySkin(velora, slot);
}
