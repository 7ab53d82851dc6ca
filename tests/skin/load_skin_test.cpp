// Skin files into records: every key, every default, and files that are none.
#include <filesystem>

#include "support/skin_fixture.h"

namespace {

struct LoadRow {
    const char* Name;
    std::string File;
    const char* Changed; ///< Of everything, so nothing is shown by a load.
};

const LoadRow kLoads[] = {
    {"every key has its field, and an element that isn't enabled keeps all empty",
     SkinText("Left=7 Top=8 Name=Some Author=Body Type=2 Playlist=other.vs4 ShapeCount=4 ObjectCount=5 "
              "[object1] enabled=True name=knob filename=a.gif filename2=b.gif height=1 width=2 left=3 "
              "top=4 type=11 [object2] enabled=2 [object3] left=5 [object4] enabled=FALSE left=5 "
              "[object5] enabled=perhaps left=5 [rgn1] enabled=1 [rgn2] enabled=1 name=part destrgn=1 "
              "srcrgn1=2 srcrgn2=3 combinemode=4 x1=5 x2=6 x3=7 y1=8 y2=9 y3=10 type=3 [rgn3] x1=5 "
              "[rgn4] enabled=0 x1=5",
              "Width=3000 Height=1500 Graphic=back.gif "),
     "skin 1 ~|skin.vs4|Some|Body|~back.gif|~other.vs4 type 2 3000x1500 at 7,8 with 4 and 5; "
     "skin 1 region 1 -1  type 1 0,0-0,0 corner 0x0 mode 0: 0 from 0,0; "
     "skin 1 region 2 -1 part type 3 5,8-6,9 corner 7x10 mode 4: 1 from 2,3; "
     "skin 1 object 1 -1 knob type 11 3,4 2x1 ~a.gif ~b.gif; skin 1 object 2 -1  type 0 0,0 0x0 ~ ~"},
    {"a picture is a skin of defaults, and without a count no section is read",
     std::string("\0\xFF\xFE picture\n[rgn1]\nenabled=1\n[object1]\nenabled=1\n", 47),
     "skin 1 ~|skin.vs4|||~| type 1 200x200 at 200,200 with 0 and 0"},
    {"a value that doesn't convert or fit is zero and not the default",
     "[Settings]\nWidth=wide\nHeight=2147483648\nLeft=1,5\nTop=2.5\nShapeCount=40000\nObjectCount=1e9\n"
     "Type=one\n",
     "skin 1 ~|skin.vs4|||~| type 0 0x0 at 0,2 with 0 and 0"},
    {"a skin from a caseless system, in its code page",
     "\xEF\xBB\xBF[SETTINGS]\r\nwidth = 3000 \r\nNAME=M\xFCnchen\r\nOBJECTCOUNT=1\r\n[Object1]\r\n"
     "ENABLED=TRUE\r\nFileName2=\"images\\play2.gif\"\r\n",
     "skin 1 ~|skin.vs4|M\u00FCnchen||~| type 1 3000x200 at 200,200 with 0 and 1; "
     "skin 1 object 1 -1  type 0 0,0 0x0 ~ ~images\\play2.gif"},
};

} // namespace

TEST(LoadSkin, FillsTheRecordFromTheFileAndShowsNothing) {
    const TempDirectory directory;
    directory.Put("back.gif", "picture");
    for (const LoadRow& row : kLoads) {
        SkinMachine at(directory);
        const Lines before = at.All();
        EXPECT_EQ(at.Load(row.File), 1);
        EXPECT_EQ(Changes(before, at.All()), row.Changed) << row.Name;
        EXPECT_EQ(at.pictures.Loads + at.velora.CurrentSkin, 0);
    }
}

TEST(LoadSkin, CountsAreKeptAndWhatIsBeyondTheArraysIsPassedOver) {
    struct Row {
        Integer Count;
        int Regions, Objects;
    };
    const TempDirectory directory;
    for (const Row& row :
         {Row{-1, 0, 0}, Row{20, 20, 20}, Row{21, 20, 21}, Row{25, 20, 24}, Row{32767, 20, 24}}) {
        std::string words = Joined("ShapeCount=", row.Count, " ObjectCount=", row.Count);
        for (int number = 0; number <= 26; ++number)
            words += Joined(" [rgn", number, "] enabled=1 [object", number, "] enabled=1");
        SkinMachine at(directory);
        at.Load(SkinText(words));
        const SkinRecord& skin = at.velora.Skins[1];
        EXPECT_EQ(skin.ShapeCount + skin.ObjectCount, 2 * row.Count);
        const auto enabled = [](const auto& element) { return bool(element.Enabled); };
        EXPECT_EQ(std::ranges::count_if(skin.Regions, enabled), row.Regions) << row.Count;
        EXPECT_EQ(std::ranges::count_if(skin.Objects, enabled), row.Objects) << row.Count;
    }
}

TEST(LoadSkin, AMissingFileIsToldAndASixteenthSkinIsRefusedInSilence) {
    const TempDirectory directory;
    SkinMachine at(directory);
    const Lines before = at.All();
    std::filesystem::create_directory(directory.Path("dir.vs4"));
    for (const Text& path : {Text(), directory.PathText("no.vs4"), directory.PathText("dir.vs4")})
        EXPECT_EQ(LoadSkinFile(at.velora, path), 0);
    EXPECT_EQ(Changes(before, at.All()), "MessageBox Skin  not found; MessageBox Skin ~no.vs4 not found; "
                                         "MessageBox Skin ~dir.vs4 not found");
    for (Integer slot = 1; slot <= 15; ++slot)
        EXPECT_EQ(at.Load(""), slot);
    const Lines full = at.All();
    EXPECT_EQ(at.Load(SkinText("Name=another")), 0);
    EXPECT_EQ(Changes(full, at.All()), "");
    EXPECT_EQ(at.velora.SkinCount, 15);
}

TEST(LoadSkin, ASkinNamedWithoutADirectoryHasABackslashForOne) {
    const TempDirectory directory;
    SkinMachine at(directory);
    directory.Put("bare.vs4", "");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(directory.Path());
    EXPECT_EQ(LoadSkinFile(at.velora, u"bare.vs4"), 1);
    std::filesystem::current_path(before);
    EXPECT_EQ(at.velora.Skins[1].Directory + u"|" + at.velora.Skins[1].FileName, u"\\|bare.vs4");
}
