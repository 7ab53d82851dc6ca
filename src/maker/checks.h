// The checks that a skin goes through, one procedure for each subject. Each reads the trial and
// adds what it finds; none changes anything.
#pragma once

#include "maker/finding.h"
#include "maker/measure_text.h"

/// The text of a file that was read: keys and sections that nothing reads or that don't count,
/// values that don't convert or are cut.
void CheckKeys(Report& report, const Text& file);

/// The window's size and its background's file.
void CheckSettings(Report& report);

/// The regions and the shape that they make.
void CheckShape(Report& report);

/// The objects: their types, their files, the sizes of their pictures.
void CheckObjects(Report& report);

enum class FileKind { Picture, Other };

/// Whether the file that a path of the skin's record names is there, under that very name, and can
/// be read. What is wrong in words, or nothing.
[[nodiscard]] Text FileWords(const Trial& trial, const Text& path, FileKind kind);

/// What can be seen of the client area, as rectangles that don't overlap.
[[nodiscard]] std::vector<Rect> VisiblePart(const Form& form);

/// How many pixels of `place` the rectangles cover.
[[nodiscard]] std::int64_t AreaIn(const std::vector<Rect>& rectangles, const Rect& place);

/// Where the controls stand on the window, by the order in which they are painted.
void CheckPlaces(Report& report);

/// Whether texts and visualisation have room; `playing` has the words of a track that is on.
void CheckTexts(Report& report, const Form& playing, const MeasureText& measure);

/// The rows by which a drag over the volume finds its steps.
void CheckVolume(Report& report);

/// Whether all lights are there and large enough. Faults of their values are `CheckKeys`'s.
void CheckLights(Report& report);

/// The companion beside this skin. `other` is the null pointer where there is none to look at.
void CheckCompanion(Report& report, const Trial* other);
