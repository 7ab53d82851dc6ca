// Unlike all else of a skin the lights end at the first fault: later ones would stand in a row with
// a gap.
#include "skin/lights.h"

#include "platform/paths.h"
#include "platform/profile_strings.h"

namespace {

struct ColourName {
    TextView Name;
    Long Value; // Blue, green, red from the high byte down.
};

constexpr ColourName kColours[] = {
    {u"vbblue", 0xFF0000},  {u"vbblack", 0x000000},   {u"vbcyan", 0xFFFF00},
    {u"vbgreen", 0x00FF00}, {u"vbmagenta", 0xFF00FF}, {u"vbred", 0x0000FF},
    {u"vbwhite", 0xFFFFFF}, {u"vbyellow", 0x00FFFF},
};

constexpr Integer kLastForm = static_cast<Integer>(ShapeForm::RoundedSquare);

// A key whose default is empty has to be there.
struct PlaceKey {
    TextView Key;
    TextView Default;
    Long Control::*Field;
};

constexpr PlaceKey kPlaceKeys[] = {
    {u"left", u"0", &Control::Left},
    {u"top", u"", &Control::Top},
    {u"width", u"0", &Control::Width},
    {u"height", u"", &Control::Height},
};

bool ReadPlaceAndForm(ProfileReader& file, const Text& section, Shape& light) {
    for (const PlaceKey& row : kPlaceKeys) {
        const auto number = FlooredNumber<Long>(file.Read(section, row.Key, row.Default));
        if (!number) return false;
        light.*row.Field = *number;
    }
    const auto form = FlooredNumber<Integer>(file.Read(section, u"shape", u"2"));
    if (!form || *form < 0 || *form > kLastForm) return false;
    light.Form = static_cast<ShapeForm>(*form);
    return true;
}

bool MakeLight(ProfileReader& file, Shape& light, Integer number) {
    if (light.Exists) return false;
    light.Exists = true;
    const Text section = Decimal(number);
    if (!ReadPlaceAndForm(file, section, light)) return false;
    light.Visible = true;
    // The defaults are numbers and no names: a missing colour stays that of the pattern.
    const Text backColour = file.Read(section, u"backcolor", u"16711680");
    const Text borderColour = file.Read(section, u"bordercolor", u"0");
    SetShapeColours(light, backColour, borderColour);
    return true;
}

void SetNamedColour(const Text& name, Long& colour) {
    const Text lower = LowerCase(name);
    for (const ColourName& row : kColours)
        if (row.Name == lower) colour = row.Value;
}

} // namespace

void LoadShapeObject(Velora& velora, Integer Slot, Integer ObjectIndex) {
    const SkinObjectRecord& object = velora.Skins[Slot].Objects[ObjectIndex];
    if (!FileExists(object.FileName)) return;
    ProfileReader file(object.FileName);
    for (Integer number = 1; number <= kLights; ++number)
        if (!MakeLight(file, velora.frmMain.shpPercent[number], number)) return;
}

void SetShapeColours(Shape& Shape, const Text& BackColour, const Text& BorderColour) {
    if (BackColour.empty() || BorderColour.empty()) return;
    SetNamedColour(BackColour, Shape.FillColour);
    SetNamedColour(BorderColour, Shape.BorderColour);
}
