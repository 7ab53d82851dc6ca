// Skin files into records: every key, every default, and files that are none.
#include <filesystem>

#include "support/skin_fixture.h"

namespace {

class LoadSkin : public SkinTest {};

constexpr std::string_view kEveryKey =
    "[Settings]\nWidth=3000\nHeight=1500\nLeft=7\nTop=8\nGraphic=back.gif\n"
    "Name=A skin\nShapeCount=1\nObjectCount=1\nAuthor=Somebody\nType=2\n"
    "Playlist=other.vs4\n"
    "[object1]\nenabled=True\nname=knob\nfilename=a.gif\nfilename2=sub\\b.gif\n"
    "height=1\nwidth=2\nleft=3\ntop=4\ntype=11\n"
    "[rgn1]\nenabled=1\nname=whole\ndestrgn=1\nsrcrgn1=2\nsrcrgn2=3\n"
    "combinemode=4\nx1=5\nx2=6\nx3=7\ny1=8\ny2=9\ny3=10\ntype=3\n";

// Sections `word`1 to `word``count`, all enabled.
std::string Sections(const std::string& word, int count) {
    std::string text;
    for (int number = 1; number <= count; ++number)
        text += "[" + word + std::to_string(number) + "]\nenabled=True\nname=n\n";
    return text;
}

} // namespace

TEST_F(LoadSkin, ReadsEveryKeyIntoItsField) {
    const SkinRecord& skin = LoadRecord(kEveryKey);
    EXPECT_TRUE(skin.Loaded);
    EXPECT_EQ(skin.FileName, u"skin.vs4");
    EXPECT_EQ(skin.Directory, directory.PathText());
    EXPECT_EQ(skin.Width, 3000);
    EXPECT_EQ(skin.Height, 1500);
    EXPECT_EQ(skin.Left, 7);
    EXPECT_EQ(skin.Top, 8);
    EXPECT_EQ(skin.Graphic, directory.PathText("back.gif"));
    EXPECT_EQ(skin.Name, u"A skin");
    EXPECT_EQ(skin.Author, u"Somebody");
    EXPECT_EQ(skin.Type, 2);
    EXPECT_EQ(skin.Playlist, directory.PathText("other.vs4"));
    const SkinRegionRecord& region = skin.Regions[1];
    EXPECT_EQ(region.Enabled.Value, -1);
    EXPECT_EQ(region.Name, u"whole");
    EXPECT_EQ((std::array<Long, 5>{region.DestRgn, region.SrcRgn1, region.SrcRgn2, region.CombineMode,
                                   region.Type}),
              (std::array<Long, 5>{1, 2, 3, 4, 3}));
    EXPECT_EQ((std::array<Long, 6>{region.X1, region.X2, region.X3, region.Y1, region.Y2, region.Y3}),
              (std::array<Long, 6>{5, 6, 7, 8, 9, 10}));
    EXPECT_EQ(region.Handle, 0);
    const SkinObjectRecord& object = skin.Objects[1];
    EXPECT_TRUE(object.Enabled);
    EXPECT_EQ(object.Name, u"knob");
    EXPECT_EQ(object.FileName, directory.PathText("a.gif"));
    EXPECT_EQ(object.FileName2, directory.PathText() + u"sub\\b.gif");
    EXPECT_EQ((std::array<Long, 5>{object.Height, object.Width, object.Left, object.Top, object.Type}),
              (std::array<Long, 5>{1, 2, 3, 4, 11}));
}

TEST_F(LoadSkin, AFileThatIsNoSkinIsASkinOfDefaults) {
    for (const std::string_view text : {std::string_view(), std::string_view("\0\xFF\xFE picture", 11),
                                        std::string_view("[rgn1]\nenabled=True\n")}) {
        const SkinRecord& skin = LoadRecord(text);
        EXPECT_TRUE(skin.Loaded);
        EXPECT_EQ((std::array<Long, 5>{skin.Width, skin.Height, skin.Left, skin.Top, skin.Type}),
                  (std::array<Long, 5>{200, 200, 200, 200, 1}));
        EXPECT_EQ(skin.Graphic, directory.PathText()) << "a missing picture is the directory itself";
        EXPECT_EQ(skin.Playlist, u"");
        EXPECT_FALSE(skin.Regions[1].Enabled) << "without a count no section is read";
    }
    EXPECT_EQ(velora.SkinCount, 3);
}

TEST_F(LoadSkin, AValueThatDoesNotConvertIsZeroAndNotTheDefault) {
    const SkinRecord& skin = LoadRecord("[Settings]\nWidth=wide\nHeight=2147483648\nLeft=1,5\nTop=2.5\n"
                                        "ShapeCount=40000\nObjectCount=1e9\nType=one\n");
    EXPECT_EQ((std::array<Long, 4>{skin.Width, skin.Height, skin.Left, skin.Top}),
              (std::array<Long, 4>{0, 0, 0, 2}));
    EXPECT_EQ(skin.ShapeCount, 0);
    EXPECT_EQ(skin.ObjectCount, 0);
    EXPECT_EQ(skin.Type, 0);
}

TEST_F(LoadSkin, AnElementThatIsNotEnabledKeepsAllElseEmpty) {
    const SkinRecord& skin = LoadRecord("[Settings]\nShapeCount=3\nObjectCount=3\n"
                                        "[rgn1]\nx1=5\n[rgn2]\nenabled=0\nx1=5\n[rgn3]\nenabled=maybe\nx1=5\n"
                                        "[object1]\nleft=5\n[object2]\nenabled=FALSE\nleft=5\n"
                                        "[object3]\nenabled=2\nleft=5\n");
    for (int number = 1; number <= 3; ++number) {
        EXPECT_FALSE(skin.Regions[std::size_t(number)].Enabled);
        EXPECT_EQ(skin.Regions[std::size_t(number)].X1, 0);
        EXPECT_EQ(skin.Regions[std::size_t(number)].Type, 0) << "not the default of 1";
    }
    EXPECT_EQ(skin.Objects[1].Left + skin.Objects[2].Left, 0);
    EXPECT_EQ(skin.Objects[1].FileName, u"");
    EXPECT_EQ(skin.Objects[3].Left, 5);
    EXPECT_EQ(skin.Objects[3].FileName, directory.PathText());
}

TEST_F(LoadSkin, CountsAreKeptAndWhatIsBeyondTheArraysIsPassedOver) {
    struct Row {
        const char* Written;
        Integer Count;
        std::size_t Regions, Objects;
    };
    for (const Row& row :
         {Row{"0", 0, 0, 0}, Row{"-1", -1, 0, 0}, Row{"20", 20, 20, 20}, Row{"21", 21, 20, 21},
          Row{"24", 24, 20, 24}, Row{"25", 25, 20, 24}, Row{"32767", 32767, 20, 24}}) {
        const std::string count = row.Written;
        const SkinRecord& skin = LoadRecord("[Settings]\nShapeCount=" + count + "\nObjectCount=" + count +
                                            "\n" + Sections("rgn", 26) + Sections("object", 26));
        EXPECT_EQ(skin.ShapeCount, row.Count);
        EXPECT_EQ(skin.ObjectCount, row.Count);
        for (std::size_t number = 0; number < skin.Regions.size(); ++number)
            EXPECT_EQ(bool(skin.Regions[number].Enabled), number >= 1 && number <= row.Regions) << count;
        for (std::size_t number = 0; number < skin.Objects.size(); ++number)
            EXPECT_EQ(bool(skin.Objects[number].Enabled), number >= 1 && number <= row.Objects) << count;
    }
}

TEST_F(LoadSkin, AMissingFileIsToldAndTakesNoSlot) {
    EXPECT_EQ(LoadSkinFile(velora, u""), 0);
    EXPECT_EQ(LoadSkinFile(velora, u"\\no\\such.vs4"), 0);
    std::filesystem::create_directory(directory.Path("dir.vs4"));
    EXPECT_EQ(LoadSkinFile(velora, directory.PathText("dir.vs4")), 0);
    EXPECT_EQ(journal.Take(), (std::vector<std::string>{
                                  "MessageBox Skin  not found", "MessageBox Skin \\no\\such.vs4 not found",
                                  "MessageBox Skin " + Utf8(directory.PathText("dir.vs4")) + " not found"}));
    EXPECT_EQ(velora.SkinCount, 0);
    EXPECT_FALSE(velora.Skins[1].Loaded);
}

TEST_F(LoadSkin, FifteenSlotsAndNoMore) {
    for (Integer slot = 1; slot <= 15; ++slot)
        EXPECT_EQ(Load("[Settings]\nName=" + std::to_string(slot)), slot);
    EXPECT_EQ(Load("[Settings]\nName=one too many"), 0);
    EXPECT_EQ(velora.SkinCount, 15);
    EXPECT_EQ(velora.Skins[15].Name, u"15");
    EXPECT_FALSE(velora.Skins[0].Loaded);
    EXPECT_TRUE(journal.Take().empty()) << "the refusal is silent";
}

TEST_F(LoadSkin, ASkinNamedWithoutADirectoryHasABackslashForOne) {
    const std::filesystem::path before = std::filesystem::current_path();
    directory.Put("bare.vs4", "[Settings]\nWidth=300\n");
    std::filesystem::current_path(directory.Path());
    const Integer slot = LoadSkinFile(velora, u"bare.vs4");
    std::filesystem::current_path(before);
    ASSERT_EQ(slot, 1);
    EXPECT_EQ(velora.Skins[1].Directory, u"\\");
    EXPECT_EQ(velora.Skins[1].Graphic, u"\\");
    EXPECT_EQ(velora.Skins[1].Width, 300);
}

TEST_F(LoadSkin, TouchesNoControlAndReadsNoPicture) {
    PutPictures({"back.gif", "a.gif"});
    const Scene before = SceneOf(form);
    const Long width = form.Width;
    Load(kEveryKey);
    EXPECT_TRUE(DamageBetween(before, SceneOf(form)).empty());
    EXPECT_EQ(form.Width, width);
    EXPECT_EQ(form.Region, nullptr);
    EXPECT_EQ(velora.CurrentSkin, 0);
    EXPECT_TRUE(pictures.Loaded.empty());
    EXPECT_TRUE(journal.Take().empty());
}

TEST_F(LoadSkin, ASkinFromACaselessSystemIsReadAndItsFilesAreFound) {
    directory.Put("Skins/Old.VS4",
                  "\xEF\xBB\xBF[SETTINGS]\r\nwidth = 3000 \r\nNAME=M\xFCnchen\r\nOBJECTCOUNT=1\r\n"
                  "graphic=Images\\BACK.GIF\r\n[Object1]\r\nENABLED=TRUE\r\nType=1\r\n"
                  "Filename=Images\\Play.GIF\r\nFileName2=\"images\\play2.gif\"\r\n");
    PutPictures({"Skins/images/back.gif", "Skins/images/play.gif", "Skins/images/Play2.gif"});
    const Integer slot = LoadSkinFile(velora, directory.PathText() + u"SKINS\\old.vs4");
    ASSERT_EQ(slot, 1);
    EXPECT_EQ(velora.Skins[1].Name, u"M\u00FCnchen");
    EXPECT_EQ(velora.Skins[1].Width, 3000);
    ApplySkin(velora, slot);
    EXPECT_EQ(FileOf(form.picPlay1), "Play.GIF");
    EXPECT_EQ(FileOf(form.picPlay2), "play2.gif");
    EXPECT_EQ(FileOf(form.picBackground), "BACK.GIF");
}
