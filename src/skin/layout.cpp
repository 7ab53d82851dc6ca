// What an object can be is one table. Its rows say when an object counts, which controls it takes,
// and who places them.
#include "skin/layout.h"

#include <algorithm>
#include <iterator>

#include "platform/paths.h"
#include "skin/lights.h"
#include "skin/picture_object.h"
#include "skin/volume_object.h"

namespace {

struct ObjectType;

// An object on its way to its control.
struct PlacedObject {
    Integer Slot;
    Integer Index;
    const SkinObjectRecord& Record;
    const ObjectType& Type;
};

// When an object counts: if it is enabled, or if its first file is there as well.
enum class Rule { Enabled, FirstFile };

struct ObjectType {
    Rule Counts;
    void (*Place)(Velora& velora, const PlacedObject& object);
    PictureBox Form::*Box = nullptr;
    PictureBox Form::*NormalHolder = nullptr;
    PictureBox Form::*PressedHolder = nullptr;
    Label Form::*TextLabel = nullptr;
};

void PlacePictures(Velora& velora, const PlacedObject& object) {
    Form& form = velora.frmMain;
    PlacePictureObject(velora.Pictures,
                       {form.*object.Type.Box, form.*object.Type.NormalHolder,
                        form.*object.Type.PressedHolder, object.Record.FileName,
                        object.Record.FileName2, object.Record.Left, object.Record.Top});
}

void PlaceScope(Velora& velora, const PlacedObject& object) {
    ScopeBox& scope = velora.frmMain.VFmp3scope1;
    scope.Left = object.Record.Left;
    scope.Top = object.Record.Top;
    scope.Width = object.Record.Width;
    scope.Height = object.Record.Height;
}

void PlaceText(Velora& velora, const PlacedObject& object) {
    PlaceLabelObject(velora.frmMain.*object.Type.TextLabel, object.Record.Left, object.Record.Top,
                     object.Record.Width, object.Record.Height);
}

void PlaceVolume(Velora& velora, const PlacedObject& object) {
    LoadVolumeObject(velora, object.Index, object.Record.Left, object.Record.Top,
                     object.Record.FileName, object.Record.FileName2);
}

void PlaceLights(Velora& velora, const PlacedObject& object) {
    LoadShapeObject(velora, object.Slot, object.Index);
}

// The place in the table is the object's `Type`. A row without a procedure stands for no object.
constexpr ObjectType kObjectTypes[] = {
    {Rule::FirstFile, PlacePictures, &Form::picBackground, &Form::picBackground1,
     &Form::picBackground2},
    {Rule::FirstFile, PlacePictures, &Form::picPlay, &Form::picPlay1, &Form::picPlay2},
    {Rule::FirstFile, PlacePictures, &Form::picStop, &Form::picStop1, &Form::picStop2},
    {Rule::FirstFile, PlacePictures, &Form::picForward, &Form::picForeward1, &Form::picForeward2},
    {Rule::FirstFile, PlacePictures, &Form::picBackward, &Form::picBackward1, &Form::picBackward2},
    {Rule::FirstFile, PlacePictures, &Form::picEject, &Form::picEject1, &Form::picEject2},
    {Rule::FirstFile, PlacePictures, &Form::picPlaylist, &Form::picPlaylist1, &Form::picPlaylist2},
    {Rule::FirstFile, PlacePictures, &Form::picPause, &Form::picPause1, &Form::picPause2},
    {Rule::Enabled, PlaceScope},
    {Rule::Enabled, PlaceText, nullptr, nullptr, nullptr, &Form::lblFilescroll},
    {Rule::Enabled, nullptr},
    {Rule::Enabled, PlaceVolume},
    {Rule::Enabled, PlaceText, nullptr, nullptr, nullptr, &Form::lblStatusLabel},
    {Rule::Enabled, PlaceLights},
};

bool Counts(const SkinObjectRecord& object, Rule rule) {
    return object.Enabled && (rule == Rule::Enabled || FileExists(object.FileName));
}

} // namespace

void LayoutSkinObjects(Velora& velora, Integer Slot) {
    const SkinRecord& skin = velora.Skins[Slot];
    const Integer last = std::min(skin.ObjectCount, skin.Objects.kLast);
    for (Integer index = 1; index <= last; ++index) {
        const SkinObjectRecord& object = skin.Objects[index];
        if (object.Type < 0 || object.Type >= Long{std::size(kObjectTypes)}) continue;
        const ObjectType& type = kObjectTypes[object.Type];
        if (type.Place && Counts(object, type.Counts))
            type.Place(velora, {Slot, index, object, type});
    }
}

void PlaceLabelObject(Label& Label, Long Left, Long Top, Long Width, Long Height) {
    Label.Left = Left;
    Label.Top = Top;
    Label.Width = Width;
    Label.Height = Height;
    Label.Visible = true;
}
