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

constexpr TextView kAColour = u"the name of a colour, such as vbRed";

std::optional<Long> ColourOf(const Text& name) {
    const Text lower = LowerCase(name);
    for (const ColourName& row : kColours)
        if (row.Name == lower) return row.Value;
    return std::nullopt;
}

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
        file.Tell(section, row.Key, &(light.*row.Field), number.has_value(), kNumberWords<Long>);
        if (!number) return false;
        light.*row.Field = *number;
    }
    const auto form = FlooredNumber<Integer>(file.Read(section, u"shape", u"2"));
    const bool isForm = form && *form >= 0 && *form <= kLastForm;
    file.Tell(section, u"shape", &light.Form, isForm, u"a number from 0 to 5");
    if (!isForm) return false;
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
    file.Tell(section, u"backcolor", &light.FillColour, ColourOf(backColour).has_value(), kAColour);
    const Text borderColour = file.Read(section, u"bordercolor", u"0");
    file.Tell(section, u"bordercolor", &light.BorderColour, ColourOf(borderColour).has_value(),
              kAColour);
    SetShapeColours(light, backColour, borderColour);
    return true;
}

} // namespace

void LoadShapeObject(Velora& velora, Integer Slot, Integer ObjectIndex) {
    const SkinObjectRecord& object = velora.Skins[Slot].Objects[ObjectIndex];
    if (!FileExists(object.FileName)) return;
    ProfileReader file(object.FileName, velora.SkinWatch);
    for (Integer number = 1; number <= kLights; ++number)
        if (!MakeLight(file, velora.frmMain.shpPercent[number], number)) return;
}

void SetShapeColours(Shape& Shape, const Text& BackColour, const Text& BorderColour) {
    if (BackColour.empty() || BorderColour.empty()) return;
    Shape.FillColour = ColourOf(BackColour).value_or(Shape.FillColour);
    Shape.BorderColour = ColourOf(BorderColour).value_or(Shape.BorderColour);
}
