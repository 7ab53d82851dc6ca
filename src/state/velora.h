// Everything that the system knows, on one page: the form, the shared variables, the lists, and the
// parts of the platform that it works with. A procedure takes `Velora&` first, or only the part
// that it needs.
#pragma once

#include <vector>

#include "platform/dialogs.h"
#include "platform/loop.h"
#include "platform/picture.h"
#include "platform/player.h"
#include "platform/profile_strings.h"
#include "platform/regions.h"
#include "platform/scope.h"
#include "platform/system.h"
#include "platform/window.h"
#include "state/capture.h"
#include "state/form.h"
#include "state/listeners.h"
#include "state/media_index.h"
#include "state/records.h"

/// What the player is doing.
enum class PlayerState : Long { Stopped, Playing, Paused, SeekingForward, SeekingBackward };

/// The platform's parts, made by main, or by a test.
struct PlatformParts {
    ::Window& Window;
    ::Dialogs& Dialogs;
    ::Loop& Loop;
    ::Pictures& Pictures;
    ::System& System;
    ::Player& VFmp3player1;
    ::Scope& VFmp3scope;
};

struct Velora : PlatformParts {
    explicit Velora(const PlatformParts& parts) : PlatformParts(parts) {}

    Form frmMain;
    MouseCapture Capture; ///< Which control has the mouse.
    ::Listeners Listeners;

    ::PlayerState PlayerState = ::PlayerState::Stopped;

    // Set once at start-up. The three are full paths.
    Text SettingsIni;
    Text PlaylistsIni;
    Text SkinsIni;
    Integer MediaLimit = 0; ///< How many entries the media list takes.
    std::vector<FilterRow> MediaFilter;
    std::vector<FilterRow> PlaylistFilter;
    std::vector<FilterRow> SkinFilter;

    // What the player's events said last; never cleared.
    Integer TrackBitrate = 0; ///< Kilobits a second.
    Long TrackSampleRate = 0; ///< Hertz.
    Text TrackTitle;
    Text TrackArtist;
    Long TrackLength = 0; ///< Milliseconds.

    Integer CurrentTrack = 0; ///< The entry started last, 0 before the first.
    Integer SeekOffset = 0;   ///< Seconds to seek by, collected while a seek button is held.

    Numbered<MediaEntry, 2500> MediaList; ///< What can be played; `Count` is the last entry.
    Integer Count = 0;
    MediaIndex MediaNames; ///< Only `FindMedia` uses it.

    Numbered<PlaylistRecord, 500> Playlists; ///< The catalogue of playlists.
    Integer PlaylistCount = 0;

    Numbered<SkinRecord, 15> Skins; ///< Each slot is filled once.
    Integer SkinCount = 0;
    Integer CurrentSkin = 0;   ///< The slot now shown, 0 for none.
    Integer LastSkin = 0;      ///< The slot that start-up has to show.
    Integer RegionOffsetX = 0; ///< Pixels added to a region's `X1` and `X2`.
    Integer RegionOffsetY = 0; ///< Pixels added to a region's `Y1` and `Y2`.
    RegionTable Regions;       ///< The region objects behind the skins' handles.
    ProfileWatch SkinWatch;    ///< Hears what each key of a skin comes to; empty in the player.
};
