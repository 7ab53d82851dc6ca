// Which skin comes up at start, and which one the playlist button brings.
#include "skin/catalogue.h"

#include <filesystem>

#include "platform/file_dialogs.h"
#include "support/skin_fixture.h"

namespace {

class Catalogue : public SkinTest {
protected:
    Catalogue() {
        std::vector<FilterRow> media, playlists;
        InitialiseFilters(media, playlists, velora.SkinFilter);
    }

    // A skin of a width of its own, which names a companion.
    Text PutSkin(const std::string& name, int widthPx, const std::string& companion = {}) const {
        return directory.Put(name, "[Settings]\nWidth=" + std::to_string(widthPx * 15) +
                                       "\nGraphic=none.gif\nPlaylist=" + companion + "\n");
    }
    void PutCatalogue(const std::string& settings, const std::vector<std::string>& files) const {
        std::string text = "[Settings]\n" + settings;
        int number = 0;
        for (const std::string& file : files)
            text += "[" + std::to_string(++number) + "]\nFilename=" + file + "\n";
        directory.Put("velskins.ini", text);
    }
    std::string InDirectory(const std::string& name) const { return Utf8(directory.PathText(name)); }
    Long WidthPx() const { return form.Width / 15; }
};

using Lines = std::vector<std::string>;

} // namespace

TEST_F(Catalogue, LastSkinNamesTheSlotToShow) {
    PutSkin("a.vs4", 100);
    PutSkin("b.vs4", 200);
    PutCatalogue("LastSkin=2\nCount=2\n", {InDirectory("a.vs4"), InDirectory("b.vs4")});
    LoadSkinCatalogue(velora);
    EXPECT_EQ(velora.SkinCount, 2);
    EXPECT_EQ(velora.CurrentSkin, 2);
    EXPECT_EQ(WidthPx(), 200);
}

TEST_F(Catalogue, AMissingFileMovesTheOthersOneSlotDown) {
    PutSkin("a.vs4", 100);
    PutSkin("c.vs4", 300);
    PutCatalogue("LastSkin=2\nCount=3\n", {InDirectory("a.vs4"), InDirectory("b.vs4"), InDirectory("c.vs4")});
    LoadSkinCatalogue(velora);
    EXPECT_EQ(journal.Take(), (Lines{"MessageBox Couldn't find \"" + InDirectory("b.vs4") + "\""}));
    EXPECT_EQ(WidthPx(), 300);
}

TEST_F(Catalogue, AMissingLastFileBringsUpTheFirstSkinEvenOverTheRightOne) {
    PutSkin("a.vs4", 100);
    PutSkin("b.vs4", 200);
    PutCatalogue("LastSkin=2\nCount=3\n", {InDirectory("a.vs4"), InDirectory("b.vs4"), InDirectory("c.vs4")});
    LoadSkinCatalogue(velora);
    EXPECT_EQ(velora.CurrentSkin, 1);
    EXPECT_EQ(WidthPx(), 100);
}

TEST_F(Catalogue, ALastSkinThatIsNoSlotShowsNone) {
    PutSkin("a.vs4", 100);
    for (const char* last : {"0", "2", "-1", "99999", "x"}) {
        PutCatalogue(std::string("Count=1\nLastSkin=") + last + "\n", {InDirectory("a.vs4")});
        velora.LastSkin = 0;
        velora.SkinCount = 0;
        LoadSkinCatalogue(velora);
        EXPECT_EQ(velora.SkinCount, 1) << last;
        EXPECT_EQ(velora.CurrentSkin, 0) << last;
    }
}

TEST_F(Catalogue, AnyCountButZeroIsACatalogue) {
    PutSkin("program/VELORA_MAIN/velora.vs4", 400);
    for (const char* count : {"2", "-1", "32767"}) {
        PutCatalogue(std::string("LastSkin=1\nCount=") + count + "\n", {"", ""});
        LoadSkinCatalogue(velora);
        EXPECT_EQ(velora.SkinCount, 0) << count;
    }
    EXPECT_TRUE(journal.Take().empty());
}

TEST_F(Catalogue, WithoutOneTheDefaultSkinComesUp) {
    PutSkin("program/VELORA_MAIN/velora.vs4", 400);
    for (const char* text : {"", "[Settings]\nCount=x\n", "[Settings]\nCount=40000\n"}) {
        directory.Put("velskins.ini", text);
        LoadSkinCatalogue(velora);
        EXPECT_EQ(WidthPx(), 400);
    }
    EXPECT_EQ(velora.CurrentSkin, 3);
}

TEST_F(Catalogue, ARefusalToLookForASkinEndsTheProcess) {
    EXPECT_THROW(LoadSkinCatalogue(velora), ProcessEnded);
    EXPECT_EQ(journal.Take(), (Lines{"Question Unable to locate skin, find yourself?", "EndProcess"}));
}

TEST_F(Catalogue, TheUserMayChooseASkin) {
    dialogs.Answers = {MessageAnswer::Yes};
    dialogs.Files = {PutSkin("mine/own.vs4", 150)};
    LoadSkinCatalogue(velora);
    EXPECT_EQ(WidthPx(), 150);
    EXPECT_EQ(dialogs.LastDirectory, machine.Directory + u"\\VELORA_MAIN");
    EXPECT_EQ(dialogs.LastRows,
              (std::vector<FilterRow>{{u"Skin Files (*.vs4)", u"*.vs4"}, {u"All Files (*.*)", u"*.*"}}));
    EXPECT_EQ(journal.Take(),
              (Lines{"Question Unable to locate skin, find yourself?", "ChooseFile Select skin ..."}));
}

TEST_F(Catalogue, ACancelledChoiceIsAMissingFile) {
    dialogs.Answers = {MessageAnswer::Yes};
    LoadSkinCatalogue(velora);
    EXPECT_EQ(journal.Take().back(), "MessageBox Skin  not found");
    EXPECT_EQ(velora.CurrentSkin, 0);
}

TEST_F(Catalogue, ASkinThatGoesBetweenTheLookAndTheLoadIsAMissingFile) {
    // The box about the first file is open while the second one goes away.
    PutSkin("b.vs4", 200);
    PutCatalogue("LastSkin=1\nCount=2\n", {InDirectory("a.vs4"), InDirectory("b.vs4")});
    dialogs.WhileOpen = [this] { std::filesystem::remove(directory.Path("b.vs4")); };
    LoadSkinCatalogue(velora);
    EXPECT_EQ(journal.Take().size(), 2u);
    EXPECT_EQ(velora.SkinCount, 0);
}

TEST_F(Catalogue, TheCatalogueIsNeverWritten) {
    PutSkin("a.vs4", 100);
    PutCatalogue("LastSkin=1\nCount=1\n", {InDirectory("a.vs4")});
    const auto before = directory.Get("velskins.ini");
    LoadSkinCatalogue(velora);
    ShowCompanionSkin(velora);
    EXPECT_EQ(directory.Get("velskins.ini"), before);
}

class Companion : public Catalogue {};

TEST_F(Companion, ItIsLoadedAnewAsLongAsASlotIsFree) {
    ApplySkin(velora, LoadSkinFile(velora, PutSkin("a.vs4", 100, "b.vs4")));
    PutSkin("b.vs4", 200, "a.vs4");
    for (Integer press = 2; press <= 15; ++press) {
        ShowCompanionSkin(velora);
        EXPECT_EQ(velora.CurrentSkin, press);
        EXPECT_EQ(WidthPx(), press % 2 ? 100 : 200);
    }
    EXPECT_EQ(velora.SkinCount, 15);
    for (int press = 0; press < 50; ++press) {
        ShowCompanionSkin(velora);
        EXPECT_EQ(velora.CurrentSkin, press % 2 ? 15 : 14) << "the latest slot of the file";
        EXPECT_EQ(WidthPx(), press % 2 ? 100 : 200);
    }
    EXPECT_TRUE(journal.Take().empty());
}

TEST_F(Companion, WithAllSlotsTakenAFileInAnotherSpellingIsTheSame) {
    for (int slot = 1; slot <= 14; ++slot)
        (void)LoadSkinFile(velora, PutSkin("B.vs4", 200));
    ApplySkin(velora, LoadSkinFile(velora, PutSkin("a.vs4", 100, "b.VS4")));
    ShowCompanionSkin(velora);
    EXPECT_EQ(velora.CurrentSkin, 14);
}

TEST_F(Companion, WithAllSlotsTakenAnUnknownFileChangesNothing) {
    for (int slot = 1; slot <= 15; ++slot)
        (void)LoadSkinFile(velora, PutSkin("a.vs4", 100, "b.vs4"));
    ApplySkin(velora, 3);
    PutSkin("b.vs4", 200);
    ShowCompanionSkin(velora);
    EXPECT_EQ(velora.CurrentSkin, 3);
    EXPECT_TRUE(journal.Take().empty());
}

TEST_F(Companion, WithoutOneNothingHappens) {
    ShowCompanionSkin(velora);
    ApplySkin(velora, LoadSkinFile(velora, PutSkin("a.vs4", 100)));
    ShowCompanionSkin(velora);
    ApplySkin(velora, LoadSkinFile(velora, PutSkin("c.vs4", 100, "none.vs4")));
    ShowCompanionSkin(velora);
    EXPECT_EQ(velora.SkinCount, 2);
    EXPECT_TRUE(journal.Take().empty());
}

TEST_F(Companion, PicPlayShowsPlayWhenStoppedAndStopOtherwise) {
    PutPictures({"play.gif", "stop.gif"});
    directory.Put("a.vs4", "[Settings]\nPlaylist=a.vs4\nObjectCount=2\n"
                           "[object1]\nenabled=1\ntype=1\nfilename=play.gif\nfilename2=play.gif\n"
                           "[object2]\nenabled=1\ntype=2\nfilename=stop.gif\nfilename2=stop.gif\n");
    ApplySkin(velora, LoadSkinFile(velora, directory.PathText("a.vs4")));
    for (const PlayerState playing : {PlayerState::Playing, PlayerState::Paused, PlayerState::SeekingForward,
                                      PlayerState::SeekingBackward}) {
        velora.PlayerState = playing;
        ShowCompanionSkin(velora);
        EXPECT_EQ(form.picPlay.Picture, form.picStop1.Picture);
        EXPECT_EQ(FileOf(form.picPlay), "stop.gif");
    }
    velora.PlayerState = PlayerState::Stopped;
    ShowCompanionSkin(velora);
    EXPECT_EQ(form.picPlay.Picture, form.picPlay1.Picture);
    EXPECT_EQ(FileOf(form.picPlay), "play.gif");
}

TEST_F(Companion, OneOfAnotherTypeLeavesPicPlayAlone) {
    directory.Put("b.vs4", "[Settings]\nType=2\n");
    ApplySkin(velora, LoadSkinFile(velora, PutSkin("a.vs4", 100, "b.vs4")));
    const PicturePtr shown = std::make_shared<LoadedPicture>(3, 3);
    SetPicture(form.picPlay, shown);
    ShowCompanionSkin(velora);
    EXPECT_EQ(velora.CurrentSkin, 1);
    EXPECT_EQ(form.picPlay.Picture, shown);
}
