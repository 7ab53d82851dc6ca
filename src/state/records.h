// The five record types of the lists and the skins, field by field in their order and width.
#pragma once

#include "platform/numbered.h"
#include "platform/numbers.h"
#include "platform/text.h"

/// A file in the media list.
struct MediaEntry {
    Boolean Enabled;  ///< True once the entry is filled.
    Text Path;        ///< The directory with its trailing backslash, or empty.
    Text File;        ///< The name without directory. It alone decides whether a file is new.
    Long Type = 0;    ///< The kind of file, 0 for one that isn't known.
    Integer Flag = 0; ///< Where the entry came from; nothing reads it.
};

/// A playlist of the catalogue.
struct PlaylistRecord {
    Boolean Enabled; ///< A disabled record keeps its other fields empty.
    Text Name;
    Text File;
    Text Path; ///< Ends in a backslash after a load.
};

/// A region of a skin's shape. Places and sizes in pixels.
struct SkinRegionRecord {
    Text Name;
    Long Type = 0;               ///< 1 rectangle, 2 ellipse, 3 rectangle with rounded corners.
    Long Handle = 0;             ///< Of the region built last, 0 before the first.
    Long X1 = 0, X2 = 0, X3 = 0; ///< Left, right, width of the corner ellipse.
    Long Y1 = 0, Y2 = 0, Y3 = 0; ///< Top, bottom, height of the corner ellipse.
    Long CombineMode = 0;        ///< 1 AND, 2 OR, 3 XOR, 4 DIFF, 5 COPY; 0 combines nothing.
    Integer DestRgn = 0, SrcRgn1 = 0, SrcRgn2 = 0;
    Boolean Enabled;
};

/// An object of a skin: what takes over one of the form's controls. Places and sizes in pixels.
struct SkinObjectRecord {
    Boolean Enabled;
    Text Name;
    Long Type = 0;
    Long Width = 0, Height = 0, Left = 0, Top = 0;
    Text FileName;  ///< Full path of the first file.
    Text FileName2; ///< Full path of the second file.
};

/// A loaded skin.
struct SkinRecord {
    Text Author;
    Boolean Loaded;
    Text Name;
    Numbered<SkinRegionRecord, 20> Regions;
    Numbered<SkinObjectRecord, 24> Objects;
    Long Width = 0, Height = 0;     ///< The window's outer size in twips.
    Long Left = 0, Top = 0;         ///< Nothing reads them.
    Integer ShapeCount = 0;         ///< As the file states it, also above 20.
    Integer ObjectCount = 0;        ///< As the file states it, also above 24.
    Text FileName;                  ///< The skin file's name.
    Text Directory;                 ///< Its directory, ending in a backslash.
    Text Graphic;                   ///< Full path of the background picture.
    Long Type = 0;                  ///< Only 1 can be applied.
    Numbered<Text, 9> VolumeImages; ///< Full paths of the pictures of the steps 1 to 7.
    /// Mouse positions of the steps 1 to 7, in twips.
    Numbered<Integer, 9> VolumeX, VolumeY;
    Text Playlist; ///< Full path of the companion skin, or empty.
};
