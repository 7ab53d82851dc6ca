// One procedure for each kind of section. Keys are read in the order in which skin files have
// always been read.
#include "skin/load_skin.h"

#include <algorithm>

#include "platform/paths.h"
#include "platform/profile_strings.h"
#include "state/messages.h"

namespace {

// A section of a skin file, with the kinds of value that it can hold.
class SkinSection {
public:
    SkinSection(ProfileReader& file, Text name) : m_file(file), m_name(std::move(name)) {}

    void String(TextView key, Text& field) { ReadProfileText(m_file, m_name, key, field); }
    // A path, which counts from `directory`. The directory alone if there is none.
    void Path(TextView key, const Text& directory, Text& field) {
        String(key, field);
        field.insert(0, directory);
    }
    template<typename Whole>
    void Number(TextView key, TextView otherwise, Whole& field) {
        ReadProfileNumber(m_file, m_name, key, otherwise, field);
    }
    void Truth(TextView key, TextView otherwise, Boolean& field) {
        ReadProfileBoolean(m_file, m_name, key, otherwise, field);
    }

private:
    ProfileReader& m_file;
    Text m_name;
};

void ReadSettings(ProfileReader& file, SkinRecord& skin) {
    SkinSection settings(file, u"Settings");
    settings.Number(u"Width", u"200", skin.Width);
    settings.Number(u"Height", u"200", skin.Height);
    settings.Number(u"Left", u"200", skin.Left);
    settings.Number(u"Top", u"200", skin.Top);
    settings.Path(u"Graphic", skin.Directory, skin.Graphic);
    settings.String(u"Name", skin.Name);
    settings.Number(u"ShapeCount", u"0", skin.ShapeCount);
    settings.Number(u"ObjectCount", u"0", skin.ObjectCount);
    settings.String(u"Author", skin.Author);
    settings.Number(u"Type", u"1", skin.Type);
    settings.String(u"Playlist", skin.Playlist);
    if (!skin.Playlist.empty()) skin.Playlist.insert(0, skin.Directory);
}

void ReadRegion(SkinSection section, SkinRegionRecord& region) {
    section.Truth(u"enabled", u"", region.Enabled);
    if (!region.Enabled) return;
    section.String(u"name", region.Name);
    section.Number(u"destrgn", u"0", region.DestRgn);
    section.Number(u"srcrgn1", u"0", region.SrcRgn1);
    section.Number(u"srcrgn2", u"0", region.SrcRgn2);
    section.Number(u"combinemode", u"0", region.CombineMode);
    section.Number(u"x1", u"0", region.X1);
    section.Number(u"x2", u"0", region.X2);
    section.Number(u"x3", u"0", region.X3);
    section.Number(u"y1", u"0", region.Y1);
    section.Number(u"y2", u"0", region.Y2);
    section.Number(u"y3", u"0", region.Y3);
    section.Number(u"type", u"1", region.Type);
}

void ReadObject(SkinSection section, const Text& directory, SkinObjectRecord& object) {
    section.Truth(u"enabled", u"False", object.Enabled);
    if (!object.Enabled) return;
    section.String(u"name", object.Name);
    section.Path(u"filename", directory, object.FileName);
    section.Path(u"filename2", directory, object.FileName2);
    section.Number(u"height", u"0", object.Height);
    section.Number(u"width", u"0", object.Width);
    section.Number(u"left", u"0", object.Left);
    section.Number(u"top", u"0", object.Top);
    section.Number(u"type", u"0", object.Type);
}

} // namespace

Integer LoadSkinFile(Velora& velora, const Text& Path) {
    if (!FileExists(Path)) {
        ShowMessage(velora, u"Skin " + Path + u" not found");
        return 0;
    }
    if (!velora.Skins.Has(velora.SkinCount + 1)) return 0;
    const Integer slot = ++velora.SkinCount;
    SkinRecord& skin = velora.Skins[slot];
    skin.Loaded = true;
    skin.FileName = GetFileName(Path);
    skin.Directory = Path.substr(0, Path.size() - skin.FileName.size());
    if (!skin.Directory.ends_with(u'\\')) skin.Directory += u'\\';

    ProfileReader file(Path, velora.SkinWatch);
    ReadSettings(file, skin);
    for (Integer number = 1; number <= std::min(skin.ShapeCount, skin.Regions.kLast); ++number)
        ReadRegion(SkinSection(file, Text(kRegionSection) + Decimal(number)), skin.Regions[number]);
    for (Integer number = 1; number <= std::min(skin.ObjectCount, skin.Objects.kLast); ++number)
        ReadObject(SkinSection(file, Text(kObjectSection) + Decimal(number)), skin.Directory,
                   skin.Objects[number]);
    return slot;
}
