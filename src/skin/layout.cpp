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

void PlacePictures(Velora& velora, const PlacedObject& object) {
    Form& form = velora.frmMain;
    PlacePictureObject(velora.Pictures,
                       {form.*object.Type.Box, form.*object.Type.NormalHolder,
                        form.*object.Type.PressedHolder, object.Record.FileName,
                        object.Record.FileName2, object.Record.Left, object.Record.Top});
}

void PlaceScope(Velora& velora, const PlacedObject& object) {
    ScopeBox& scope = velora.frmMain.*object.Type.Scope;
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
    {u"background", ObjectRule::FirstFile, PlacePictures, &Form::picBackground,
     &Form::picBackground1, &Form::picBackground2},
    {u"play button", ObjectRule::FirstFile, PlacePictures, &Form::picPlay, &Form::picPlay1,
     &Form::picPlay2},
    {u"stop picture", ObjectRule::FirstFile, PlacePictures, &Form::picStop, &Form::picStop1,
     &Form::picStop2},
    {u"forward button", ObjectRule::FirstFile, PlacePictures, &Form::picForward,
     &Form::picForeward1, &Form::picForeward2},
    {u"backward button", ObjectRule::FirstFile, PlacePictures, &Form::picBackward,
     &Form::picBackward1, &Form::picBackward2},
    {u"eject button", ObjectRule::FirstFile, PlacePictures, &Form::picEject, &Form::picEject1,
     &Form::picEject2},
    {u"playlist button", ObjectRule::FirstFile, PlacePictures, &Form::picPlaylist,
     &Form::picPlaylist1, &Form::picPlaylist2},
    {u"pause button", ObjectRule::FirstFile, PlacePictures, &Form::picPause, &Form::picPause1,
     &Form::picPause2},
    {.Words = u"visualisation",
     .Counts = ObjectRule::Enabled,
     .Place = PlaceScope,
     .Scope = &Form::VFmp3scope1},
    {.Words = u"title",
     .Counts = ObjectRule::Enabled,
     .Place = PlaceText,
     .TextLabel = &Form::lblFilescroll},
    {u"", ObjectRule::Enabled, nullptr},
    {u"volume", ObjectRule::Enabled, PlaceVolume, &Form::picVolume},
    {.Words = u"status",
     .Counts = ObjectRule::Enabled,
     .Place = PlaceText,
     .TextLabel = &Form::lblStatusLabel},
    {u"lights", ObjectRule::Enabled, PlaceLights},
};

} // namespace

const ObjectType* ObjectTypeOf(Long Type) {
    if (Type < 0 || Type >= Long{std::size(kObjectTypes)}) return nullptr;
    return kObjectTypes[Type].Place ? &kObjectTypes[Type] : nullptr;
}

bool ObjectCounts(const SkinObjectRecord& object) {
    const ObjectType* const type = ObjectTypeOf(object.Type);
    return object.Enabled && type &&
           (type->Counts == ObjectRule::Enabled || FileExists(object.FileName));
}

void LayoutSkinObjects(Velora& velora, Integer Slot) {
    const SkinRecord& skin = velora.Skins[Slot];
    const Integer last = std::min(skin.ObjectCount, skin.Objects.kLast);
    for (Integer index = 1; index <= last; ++index) {
        const SkinObjectRecord& object = skin.Objects[index];
        if (!ObjectCounts(object)) continue;
        const ObjectType& type = *ObjectTypeOf(object.Type);
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
