// Lights, status text and caption while a track plays, and the way back to the stopped display. The
// end of a track is found here, too: no event tells it.
#pragma once

#include "state/velora.h"

/// What a position comes to, each rounded to the nearest whole number, the exact half to the even
/// neighbour; 0 where that doesn't fit.
struct Progress {
    Integer Segments = 0; ///< Of `kLights`.
    Integer Percent = 0;

    bool operator==(const Progress&) const = default;
};

/// `Length` isn't 0.
[[nodiscard]] Progress ProgressAt(Long Position, Long Length);

/// The caption of the window at `percent`: title and artist if both are known, otherwise `file`, in
/// lower case.
[[nodiscard]] Text CaptionAt(TextView title, TextView artist, TextView file, Integer percent);

/// Shows the place in the track, and ends the display once exactly 13 segments have passed. Does
/// nothing at `Position` or `Length` 0, or unless a track plays. Position and length in one unit.
void UpdateProgress(Velora& velora, Long Position, Long Length);

/// Turns the lights 1 to `Segments` yellow and leaves the others; ends at the first that the skin
/// hasn't.
void FillProgress(Form& form, Integer Segments);

/// Stops the display, not the player: `PlayerState` becomes `Stopped`, the lights go out one after
/// the other in 0.26 seconds with events running, and the visualisation hides unless something
/// plays by then.
void ResetDisplay(Velora& velora);
