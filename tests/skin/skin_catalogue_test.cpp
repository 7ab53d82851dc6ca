// Which skin comes up at start, and which one the playlist button brings.
#include "skin/skin_catalogue.h"

#include "support/skin_fixture.h"

namespace {

// Before a directory of skins of widths of their own, which name one another; a.vs4 has buttons.
struct CatalogueMachine : SkinMachine {
    CatalogueMachine() {
        machine.Directory = directory.PathText("program");
        velora.SkinsIni = directory.PathText("velskins.ini");
        directory.Put("a.gif", "picture");
        Put("a.vs4", 100,
            "Playlist=b.VS4 ObjectCount=2 [object1] enabled=1 type=1 filename=a.gif "
            "[object2] enabled=1 type=2 filename=a.gif");
        Put("b.vs4", 200, "Playlist=a.vs4");
        Put("c.vs4", 300, "Playlist=b.vs4");
        Put("d.vs4", 400, "Playlist=e.vs4");
        Put("e.vs4", 500, "Type=2");
    }
    void Put(const std::string& name, int widthPx, const std::string& words) const {
        directory.Put(name, SkinText(words, Joined("Width=", widthPx * 15, " ")));
    }
    // The slot that shows, of how many, the window's width, and what the user was told.
    std::string Outcome() {
        auto text = Joined(velora.CurrentSkin, " of ", velora.SkinCount, ", ", form.Width / 15);
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
     "LastSkin=2 Count=3 [1] Filename=~a.vs4 [2] Filename=~b.vs4 [3] Filename=~c.vs4",
     "2 of 3, 200"},
    {"entries behind the count", "LastSkin=2 Count=1 [1] Filename=~a.vs4 [2] Filename=~b.vs4",
     "0 of 1, 389"},
    {"a missing file moves the others a slot down and shows nothing",
     "LastSkin=3 Count=3 [1] Filename=~a.vs4 [2] Filename=~m.vs4 [3] Filename=~c.vs4",
     "0 of 2, 389; MessageBox Couldn't find \"~m.vs4\""},
    {"a missing last file brings up the first skin even over the right one",
     "LastSkin=2 Count=3 [1] Filename=~a.vs4 [2] Filename=~b.vs4 [3] Filename=~m.vs4",
     "1 of 2, 100; MessageBox Couldn't find \"~m.vs4\""},
    {"a count below zero is a catalogue", "LastSkin=1 Count=-1 [1] Filename=~a.vs4", "0 of 0, 389"},
    {"so is the largest, and an empty name is passed over",
     "LastSkin=1 Count=32767 [1] Filename= [9] Filename=~b.vs4", "1 of 1, 200"},
    {"too large a count is none", "LastSkin=7 Count=40000 [1] Filename=~a.vs4", "1 of 1, 600"},
};

} // namespace

TEST(Catalogue, BringsUpTheSkinOfItsLastNumberOrElseTheDefault) {
    for (const StartRow& row : kStarts) {
        CatalogueMachine at;
        at.Put("program/VELORA_MAIN/velora.vs4", 600, "");
        std::string text = SkinText(row.Catalogue, "");
        for (std::size_t place; (place = text.find('~')) != std::string::npos;)
            text.replace(place, 1, Utf8(at.directory.PathText()));
        at.directory.Put("velskins.ini", text);
        LoadSkinCatalogue(at.velora);
        EXPECT_EQ(at.Outcome(), row.Outcome) << row.Name;
        EXPECT_EQ(at.directory.Get("velskins.ini"), text) << "the catalogue is never written";
    }
}

TEST(Catalogue, WithoutTheDefaultSkinTheUserMayChooseOne) {
    CatalogueMachine chosen, refused;
    chosen.dialogs.Answers = {MessageAnswer::Yes};
    chosen.dialogs.Files = {chosen.directory.PathText("b.vs4")};
    chosen.velora.Capture.Active = true;
    chosen.dialogs.WhileOpen = [&] { EXPECT_FALSE(chosen.velora.Capture.Active); };
    LoadSkinCatalogue(chosen.velora);
    EXPECT_EQ(chosen.dialogs.LastDirectory, chosen.machine.Directory + u"\\VELORA_MAIN");
    EXPECT_THROW(LoadSkinCatalogue(refused.velora), ProcessEnded);
    const std::string question = "Question Unable to locate skin, find yourself?; ";
    EXPECT_EQ(chosen.Outcome(), "1 of 1, 200; " + question + "ChooseFile Select skin ...");
    EXPECT_EQ(refused.Outcome(), "0 of 0, 389; " + question + "EndProcess");
}

TEST(Companion, IsLoadedAnewAsLongAsASlotIsFreeAndThenTakenFromItsLatestSlot) {
    struct Row {
        std::string Loads; ///< The names of skins, the last of which shows.
        int Presses, State;
        const char* Outcome; ///< And what `picPlay` shows by the player's state.
    };
    for (const Row& row :
         {Row{"a", 1, 0, "2 of 2, 200 play"}, Row{"a", 14, 1, "15 of 15, 100 stop"},
          Row{"a", 15, 2, "14 of 15, 200 stop"}, Row{"a", 16, 3, "15 of 15, 100 stop"},
          Row{"c", 1, 0, "2 of 2, 200 play"},
          // A file is the same in another spelling, one that isn't loaded has no slot, and without
          // a companion or with one of another type nothing happens.
          Row{"b" + std::string(13, 'c') + "a", 1, 4, "1 of 15, 200 stop"},
          Row{std::string(15, 'a'), 1, 0, "15 of 15, 100 own"}, Row{"", 1, 0, "0 of 0, 389 own"},
          Row{"d", 1, 0, "1 of 2, 400 own"}}) {
        CatalogueMachine at;
        for (const char name : row.Loads)
            (void)LoadSkinFile(at.velora, at.directory.PathText(Joined(name, ".vs4")));
        at.velora.PlayerState = PlayerState(row.State);
        SetPicture(at.form.picPlay, std::make_shared<LoadedPicture>(3, 3));
        ApplySkin(at.velora, at.velora.SkinCount);
        for (int press = 1; press <= row.Presses; ++press)
            ShowCompanionSkin(at.velora);
        const PicturePtr shown = at.form.picPlay.Picture;
        const char* name = shown == at.form.picPlay1.Picture   ? " play"
                           : shown == at.form.picStop1.Picture ? " stop"
                                                               : " own";
        EXPECT_EQ(at.Outcome() + name, row.Outcome) << row.Loads;
    }
}
