// What comes into the media list, and what is refused.
#include "playlist/media_list.h"

#include "support/velora_fixture.h"

namespace {

class MediaListing : public VeloraTest {
protected:
    Integer Add(Text directory, Text fileName) { return AddMedia(velora, 1, directory, fileName); }
};

const std::string kUnsupported = "MessageBox That file format is not supported by Velora";

} // namespace

TEST(MediaTypes, FollowTheEndOfTheName) {
    struct Row {
        TextView Name;
        Long Type;
    };
    const Row rows[] = {
        {u"a.mp1", 1}, {u"a.mp2", 2}, {u"a.mp3", 3},      {u"a.MPG", 4}, {u"a.mpeg", 4}, {u"a.MPEG", 4},
        {u"a.wav", 5}, {u"a.wma", 7}, {u"a.wmv", 8},      {u"a.txt", 0}, {u"xmp3", 3},   {u"mp3", 3},
        {u"mpeg", 0},  {u"xmpeg", 0}, {u"p3", 0},         {u"", 0},      {u"a.mp3 ", 0}, {u"a.mp3.txt", 0},
        {u".mpeg", 4}, {u"a.mp4", 0}, {u"\xD83C.mp3", 3},
    };
    for (const Row& row : rows)
        EXPECT_EQ(MediaTypeOf(MediaExtension(row.Name)), row.Type) << Utf8(row.Name);
}

TEST_F(MediaListing, ANameStandsInItOnceWhateverItsDirectoryAndCase) {
    EXPECT_EQ(Add(u"C:\\a", u"song.mp3"), 1);
    EXPECT_EQ(Add(u"C:\\b\\", u"SONG.MP3"), 1);
    EXPECT_EQ(Add(u"C:\\b\\", u"\x00C4.mp3"), 2);
    EXPECT_EQ(Add(u"", u"\x00E4.mp3"), 2);
    EXPECT_EQ(velora.Count, 2);
    EXPECT_EQ(velora.MediaList[1].Path, u"C:\\a\\") << "the first one's directory, with its backslash";
    EXPECT_EQ(velora.MediaList[1].Flag, 1);
    EXPECT_EQ(journal.Take(), Lines{});
}

TEST_F(MediaListing, AnUnknownKindIsToldAndNotAdded) {
    EXPECT_EQ(Add(u"C:\\", u"notes.txt"), 0);
    EXPECT_EQ(journal.Take(), Lines{kUnsupported});
    EXPECT_EQ(velora.Count, 0);
}

TEST_F(MediaListing, ACancelledDialogIsSilentAndAChosenPathIsCutInTwo) {
    Text directory, fileName;
    EXPECT_EQ(AddMedia(velora, 0, directory, fileName), 0);
    EXPECT_EQ(journal.Take(), Lines{"ChooseFile Select Media ..."});
    dialogs.Files = {u"\\music\\a b.mp3"};
    EXPECT_EQ(AddMedia(velora, 0, directory, fileName), 1);
    EXPECT_EQ(directory, u"\\music\\");
    EXPECT_EQ(fileName, u"a b.mp3");
    EXPECT_EQ(velora.MediaList[1].Flag, 0);
}

TEST_F(MediaListing, ANameWithoutDirectoryIsAPathOfItsOwn) {
    EXPECT_EQ(Add(u"", u"a.mp3"), 1);
    EXPECT_EQ(velora.MediaList[1].Path, u"");
    EXPECT_EQ(Add(u"", u"x\\b.mp3"), 2);
    EXPECT_EQ(velora.MediaList[2].Path, u"x\\");
}

TEST_F(MediaListing, AtTheLimitNothingIsFoundAndNoDialogOpens) {
    for (int entry = 1; entry <= 2500; ++entry)
        AddEntry(u"", Decimal(entry) + u".mp3");
    EXPECT_EQ(FindMedia(velora, u"2500.MP3"), 2500);
    EXPECT_EQ(Add(u"", u"1.mp3"), 0);
    Text directory, fileName;
    EXPECT_EQ(AddMedia(velora, 0, directory, fileName), 0);
    EXPECT_EQ(journal.Take(), Lines(2, "MessageBox Media Limit reached"));
    EXPECT_EQ(AppendMedia(velora, u"", u"x.mp3", 1), 0) << "the array has no further element";
    EXPECT_EQ(velora.Count, 2500);
}

TEST_F(MediaListing, LongNamesDifferByTheirLastLetter) {
    const Text stem = Text(999, u'x') + u"\U0001F319" + Text(5000, u'y');
    AddEntry(u"", stem + u"a.mp3");
    AddEntry(u"", stem + u"b.mp3");
    EXPECT_EQ(FindMedia(velora, stem + u"B.mp3"), 2);
    EXPECT_EQ(FindMedia(velora, stem + u"c.mp3"), 0);
}
