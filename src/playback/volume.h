// The volume indicator, which is its own slider: a drag over it walks the steps 1 to 7 one at a
// time.
#pragma once

#include <optional>

#include "state/mouse_event.h"
#include "state/velora.h"

/// The step that a mouse position means, nothing between the steps. The first step whose `VolumeY`
/// is exactly `y` wins, whatever the other coordinate is. Both in twips.
[[nodiscard]] std::optional<Integer> VolumeStepAt(Single y, const SkinRecord& skin);

/// The number that `SendVolume` takes for a step: 1 to 10.
[[nodiscard]] Integer VolumeValue(Integer step);

/// With the left button alone held.
void picVolume_MouseMove(Velora& velora, const MouseEvent& event);

/// Goes to the step at that place if it is a neighbour of the one that shows: shows its picture and
/// sends its volume. Twips from the corner of `picVolume`.
void PickVolumeStep(Velora& velora, Single X, Single Y);

/// Shows `step`, 1 to 7, on the indicator. A missing picture leaves it empty.
void ShowVolumeStep(Form& form, Integer step);

/// Makes a percentage of `Value` and sends it to the player: 0 of 1, ten times as much of any
/// other, and `Value` itself where that doesn't fit.
void SendVolume(Player& player, Integer& Value);

/// Goes to `step`, 1 to 7, from any other. It shows only on a skin that has a volume object.
void GoToVolumeStep(Velora& velora, Integer step);

/// Applies the volume that the settings file holds, a number from 1 to 7, as if the user had
/// dragged to that step; without one nothing is sent. It shows only on a skin that has a volume
/// object.
void RestoreVolume(Velora& velora);
