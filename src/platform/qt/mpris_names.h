// The names of MPRIS 2, and its interfaces as the bus describes them.
#pragma once

#include <QString>

#include "platform/media_bus.h"

constexpr char kMprisService[] = "org.mpris.MediaPlayer2.velora";
constexpr char kMprisPath[] = "/org/mpris/MediaPlayer2";
constexpr char kMprisRoot[] = "org.mpris.MediaPlayer2";
constexpr char kMprisPlayer[] = "org.mpris.MediaPlayer2.Player";
constexpr char kProperties[] = "org.freedesktop.DBus.Properties";
/// A track's object path is this and the number of its entry.
constexpr char kTrackPath[] = "/velora/track/";
constexpr char kNoTrack[] = "/org/mpris/MediaPlayer2/TrackList/NoTrack";

/// The description of both interfaces, in the bus's own language.
[[nodiscard]] QString MprisDescription();

/// The name of a property.
[[nodiscard]] QString NameOfProperty(MediaProperty property);
