// Read before the toolkit is there, and by everybody at each start: so one look at the file, and no
// more than the first key where the section is missing.
#include "comforts/settings.h"

#include "platform/profile_strings.h"

namespace {

constexpr ComfortRow kRows[] = {
    {u"GoOn", "mnuGoOn", &ComfortSettings::GoOn},
    {u"Repeat", "mnuRepeat", &ComfortSettings::Repeat},
    {u"Shuffle", "mnuShuffle", &ComfortSettings::Shuffle},
    {u"MediaKeys", "mnuMediaKeys", &ComfortSettings::MediaKeys},
    {u"Keys", "mnuKeys", &ComfortSettings::Keys},
    {u"Drop", "mnuDrop", &ComfortSettings::Drop},
    {u"OneWindow", "mnuOneWindow", &ComfortSettings::OneWindow},
    {u"Remember", "mnuRemember", &ComfortSettings::Remember},
    {u"Jump", "mnuJumpList", &ComfortSettings::Jump},
};

} // namespace

std::span<const ComfortRow> ComfortTable() {
    return kRows;
}

ComfortSettings ReadComforts(TextView file) {
    ComfortSettings settings;
    ProfileReader reader(file);
    ReadProfileBoolean(reader, kComfortSection, u"Enabled", u"False", settings.Enabled);
    if (!settings.Enabled) return settings;
    for (const ComfortRow& row : kRows)
        ReadProfileBoolean(reader, kComfortSection, row.Key, u"", settings.*row.Field);
    Integer scale = 0;
    ReadProfileNumber(reader, kComfortSection, u"Scale", u"0", scale);
    if (scale >= 0 && scale <= kMostScale) settings.Scale = scale;
    settings.Skin = reader.Read(kComfortSection, u"Skin", u"");
    return settings;
}

TextView TruthWord(bool truth) {
    return truth ? u"True" : u"False";
}
