// Which skin comes up at start, and which one the playlist button brings.
#include "skin/catalogue.h"

#include "platform/file_dialogs.h"
#include "support/skin_fixture.h"

namespace {

// Before a directory of skins of widths of their own, which name one another.
struct CatalogueMachine : SkinMachine {
    explicit CatalogueMachine(const TempDirectory& place) : SkinMachine(place) {
        std::vector<FilterRow> media, playlists;
        InitialiseFilters(media, playlists, velora.SkinFilter);
        Put("a.vs4", 100, "b.VS4");
        Put("b.vs4", 200, "a.vs4");
        Put("c.vs4", 300, "none.vs4");
    }
    void Put(const std::string& name, int widthPx, const std::string& companion) const {
        directory.Put(name, SkinText("Playlist=" + companion, Joined("Width=", widthPx * 15, " ")));
    }
    void LoadMany(int count, const char* name) {
        for (int at = 0; at < count; ++at)
            (void)LoadSkinFile(velora, directory.PathText(name));
    }
    // The slot that shows, of how many, the window's width, and what the user was told.
    std::string Outcome() {
        std::string text = Joined(velora.CurrentSkin, " of ", velora.SkinCount, ", ", form.Width / 15);
        for (const std::string& line : journal.Take())
            text += "; " + line;
        return Short(text);
    }
};

struct StartRow {
    const char *Name, *Catalogue, *Outcome;
};

const StartRow kStarts[] = {
    {"LastSkin names the slot to show",
     "LastSkin=2 Count=3 [1] Filename=~a.vs4 [2] Filename=~b.vs4 [3] Filename=~c.vs4", "2 of 3, 200"},
    {"entries behind the count", "LastSkin=2 Count=1 [1] Filename=~a.vs4 [2] Filename=~b.vs4", "0 of 1, 389"},
    {"a missing file moves the others a slot down and shows nothing",
     "LastSkin=3 Count=3 [1] Filename=~a.vs4 [2] Filename=~m.vs4 [3] Filename=~c.vs4",
     "0 of 2, 389; MessageBox Couldn't find \"~m.vs4\""},
    {"a missing last file brings up the first skin even over the right one",
     "LastSkin=2 Count=3 [1] Filename=~a.vs4 [2] Filename=~b.vs4 [3] Filename=~m.vs4",
     "1 of 2, 100; MessageBox Couldn't find \"~m.vs4\""},
    {"a missing file alone", "LastSkin=1 Count=1 [1] Filename=~m.vs4",
     "0 of 0, 389; MessageBox Couldn't find \"~m.vs4\""},
    {"an empty name is passed over", "LastSkin=1 Count=2 [1] Filename= [2] Filename=~b.vs4", "1 of 1, 200"},
    {"a LastSkin that is no number", "LastSkin=x Count=1 [1] Filename=~a.vs4", "0 of 1, 389"},
    {"a count below zero is a catalogue", "LastSkin=1 Count=-1 [1] Filename=~a.vs4", "0 of 0, 389"},
    {"so is the largest", "LastSkin=1 Count=32767 [9] Filename=~b.vs4", "1 of 1, 200"},
    {"a count of 0 is none", "LastSkin=7 Count=0 [1] Filename=~a.vs4", "1 of 1, 400"},
    {"a count that doesn't fit", "Count=40000", "1 of 1, 400"},
};

} // namespace

TEST(Catalogue, BringsUpTheSkinOfItsLastNumberOrElseTheDefault) {
    const TempDirectory directory;
    for (const StartRow& row : kStarts) {
        CatalogueMachine at(directory);
        at.Put("program/VELORA_MAIN/velora.vs4", 400, "");
        std::string text = SkinText(row.Catalogue, "");
        for (std::size_t place; (place = text.find('~')) != std::string::npos;)
            text.replace(place, 1, Utf8(directory.PathText()));
        directory.Put("velskins.ini", text);
        LoadSkinCatalogue(at.velora);
        EXPECT_EQ(at.Outcome(), row.Outcome) << row.Name;
        EXPECT_EQ(directory.Get("velskins.ini"), text) << "the catalogue is never written";
    }
}

TEST(Catalogue, WithoutTheDefaultSkinTheUserMayChooseOne) {
    const TempDirectory directory;
    CatalogueMachine chosen(directory), cancelled(directory), refused(directory);
    chosen.dialogs.Answers = cancelled.dialogs.Answers = {MessageAnswer::Yes};
    chosen.dialogs.Files = {directory.PathText("b.vs4")};
    chosen.velora.Capture.Active = true;
    LoadSkinCatalogue(chosen.velora);
    EXPECT_FALSE(chosen.velora.Capture.Active);
    LoadSkinCatalogue(cancelled.velora);
    EXPECT_THROW(LoadSkinCatalogue(refused.velora), ProcessEnded);
    const std::string question = "Question Unable to locate skin, find yourself?";
    EXPECT_EQ(chosen.Outcome(), "1 of 1, 200; " + question + "; ChooseFile Select skin ...");
    EXPECT_EQ(chosen.dialogs.LastDirectory, chosen.machine.Directory + u"\\VELORA_MAIN");
    EXPECT_EQ(chosen.dialogs.LastRows, chosen.velora.SkinFilter);
    EXPECT_EQ(cancelled.Outcome(),
              "0 of 0, 389; " + question + "; ChooseFile Select skin ...; MessageBox Skin  not found");
    EXPECT_EQ(refused.Outcome(), "0 of 0, 389; " + question + "; EndProcess");
}

TEST(Companion, IsLoadedAnewAsLongAsASlotIsFreeAndThenTakenFromItsLatestSlot) {
    const TempDirectory directory;
    CatalogueMachine at(directory), first(directory), none(directory);
    at.LoadMany(1, "a.vs4");
    ApplySkin(at.velora, 1);
    for (int press = 2; press < 60; ++press) {
        ShowCompanionSkin(at.velora);
        const int slot = press <= 15 ? press : 14 + press % 2;
        EXPECT_EQ(at.Outcome(), Joined(slot, " of ", std::min(press, 15), ", ", press % 2 ? 100 : 200));
    }
    // A file is the same in another spelling.
    first.LoadMany(1, "B.vs4");
    first.LoadMany(13, "c.vs4");
    first.LoadMany(1, "a.vs4");
    ApplySkin(first.velora, 15);
    ShowCompanionSkin(first.velora);
    EXPECT_EQ(first.Outcome(), "1 of 15, 200");
    none.LoadMany(15, "a.vs4");
    ApplySkin(none.velora, 3);
    ShowCompanionSkin(none.velora);
    EXPECT_EQ(none.Outcome(), "3 of 15, 100");
}

TEST(Companion, WithoutOneOrWithOneOfAnotherTypeNothingHappens) {
    const TempDirectory directory;
    SkinMachine at(directory);
    SetPicture(at.form.picPlay, std::make_shared<NamedPicture>(3, 3, "shown"));
    directory.Put("other.vs4", SkinText("Type=2", "Width=600 "));
    for (const char* companion : {"", "none.vs4", "other.vs4"}) {
        at.Apply(SkinText(Joined("Playlist=", companion)));
        const Lines before = FormText(at.form);
        ShowCompanionSkin(at.velora);
        EXPECT_EQ(Changes(before, FormText(at.form)), "");
    }
    EXPECT_EQ(at.velora.SkinCount, 4);
}

TEST(Companion, PicPlayShowsPlayWhenStoppedAndStopOtherwise) {
    const TempDirectory directory;
    directory.Put("a.gif", "picture");
    SkinMachine at(directory);
    at.Apply(SkinText("Playlist=skin.vs4 ObjectCount=2 [object1] enabled=1 type=1 filename=a.gif "
                      "[object2] enabled=1 type=2 filename=a.gif"));
    for (int state = 4; state >= 0; --state) {
        at.velora.PlayerState = PlayerState(state);
        ShowCompanionSkin(at.velora);
        EXPECT_EQ(at.form.picPlay.Picture, (state == 0 ? at.form.picPlay1 : at.form.picStop1).Picture);
    }
}
