// A skin's objects take over the form's controls: place, pictures, visibility. Nothing is hidden or
// cleared, so what a skin doesn't place stays as the skin before it left it. A step that fails is
// passed over.
#pragma once

#include "state/velora.h"

struct ObjectType;

/// An object on its way to its control.
struct PlacedObject {
    Integer Slot;
    Integer Index;
    const SkinObjectRecord& Record;
    const ObjectType& Type;
};

/// When an object counts: if it is enabled, or if its first file is there as well.
enum class ObjectRule { Enabled, FirstFile };

/// What an object can be: who places it, and the controls that it takes. The lights have none here.
struct ObjectType {
    TextView Words; ///< For people.
    ObjectRule Counts;
    void (*Place)(Velora& velora, const PlacedObject& object);
    PictureBox Form::*Box = nullptr;
    PictureBox Form::*NormalHolder = nullptr;
    PictureBox Form::*PressedHolder = nullptr;
    Label Form::*TextLabel = nullptr;
    ScopeBox Form::*Scope = nullptr;
};

/// The type with that number; the null pointer for a number that stands for no object.
[[nodiscard]] const ObjectType* ObjectTypeOf(Long Type);

/// Whether the layout places the object.
[[nodiscard]] bool ObjectCounts(const SkinObjectRecord& object);

/// Lays out the objects of the filled slot `Slot`, in their order. The slot has to be `CurrentSkin`
/// already, whose record the volume object is written to.
void LayoutSkinObjects(Velora& velora, Integer Slot);

/// Gives a label its place and size in pixels and shows it.
void PlaceLabelObject(Label& Label, Long Left, Long Top, Long Width, Long Height);
