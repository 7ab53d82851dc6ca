// Skin files into records: every key, every default, and files that are none.
#include "support/skin_fixture.h"

// What regions and objects take from their sections is seen by what they do.
TEST(LoadSkin, FillsTheRecordFromTheFileAndShowsNothing) {
    struct Row {
        std::string Name, File;
        const char* Changed; ///< Of everything.
    };
    for (const Row& row : {
             Row{"every key",
                 SkinText("Left=7 Top=8 Name=A Author=B Type=1 Playlist=other.vs4 ShapeCount=4 "
                          "ObjectCount=5 [object1] enabled=1 type=12 [rgn1] enabled=1",
                          "Width=3000 Height=1500 Graphic=back.gif "),
                 "skin 1 ~|skin.vs4|A|B|~back.gif|~other.vs4 type 1 3000x1500 at 7,8 with 4 and 5"},
             Row{"no key, as in a picture",
                 std::string("\0\xFF\xFE picture\n[rgn1]\nenabled=1\n[object1]\nenabled=1\n", 47),
                 "skin 1 ~|skin.vs4|||~| type 1 200x200 at 200,200 with 0 and 0"},
             Row{"a value that doesn't convert or fit is zero and not the default",
                 SkinText("Left=1,5 Top=2.5 ShapeCount=40000 ObjectCount=1e9 Type=one",
                          "Width=wide Height=2147483648 "),
                 "skin 1 ~|skin.vs4|||~| type 0 0x0 at 0,2 with 0 and 0"},
         }) {
        SkinMachine at;
        at.directory.Put("back.gif", "picture");
        const Lines before = at.All();
        EXPECT_EQ(at.Load(row.File), 1);
        EXPECT_EQ(Changes(before, at.All()), row.Changed) << row.Name;
        EXPECT_EQ(at.pictures.Loads + at.velora.CurrentSkin, 0);
    }
}

TEST(LoadSkin, AMissingFileIsToldAndASixteenthSkinIsRefusedInSilence) {
    SkinMachine at;
    for (Integer slot = 0; slot <= 15; ++slot)
        EXPECT_EQ(slot == 0 ? LoadSkinFile(at.velora, at.directory.PathText("no.vs4"))
                            : at.Load(""),
                  slot);
    const Lines full = at.All();
    EXPECT_EQ(full.back(), "MessageBox Skin ~no.vs4 not found");
    EXPECT_EQ(at.Load(SkinText("Name=another")), 0);
    EXPECT_EQ(Changes(full, at.All()), "");
    EXPECT_EQ(at.velora.SkinCount, 15);
}

TEST(LoadSkin, ASkinNamedWithoutADirectoryHasABackslashForOne) {
    const WorkingDirectory here;
    SkinMachine at;
    here.Put("bare.vs4", SkinText("ObjectCount=1 [object1] enabled=1 type=1"));
    EXPECT_EQ(LoadSkinFile(at.velora, u"bare.vs4"), 1);
    EXPECT_EQ(at.velora.Skins[1].Directory + u"|" + at.velora.Skins[1].FileName, u"\\|bare.vs4");
    ApplySkin(at.velora, 1);
    EXPECT_FALSE(at.form.picPlay.Visible) << "no file isn't the root, even if that holds files";
}
