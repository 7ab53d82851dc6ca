// The start of a track, and where a step through the list leads.
#include "playback/navigation.h"

#include <sstream>

#include "playlist/media_list.h"
#include "support/use.h"

TEST(DisplayName, LosesFourCharactersWhateverTheyAre) {
    EXPECT_EQ(DisplayName(u".mp3"), u" ... ");
    EXPECT_EQ(DisplayName(u"mp3"), u"mp3") << "too short to be cut: nothing is joined to it either";
    EXPECT_EQ(DisplayName(u"a\U0001F319mp3"), u"a ... ");
}

// The index before, the current one of how many, the index after; -1 is none.
TEST(Steps, LeadWhereTheTableSays) {
    std::ostringstream table;
    for (const Integer count : {0, 1, 2, 5})
        for (Integer current = 0; current <= count; ++current)
            table << IndexBefore(current, count).value_or(-1) << "<" << current << "/" << count
                  << ">" << IndexAfter(current, count).value_or(-1) << " ";
    EXPECT_EQ(table.str(), "-1<0/0>-1 1<0/1>-1 0<1/1>-1 2<0/2>1 2<1/2>2 1<2/2>1 "
                           "5<0/5>1 5<1/5>2 1<2/5>3 2<3/5>4 3<4/5>5 4<5/5>1 ");
}

TEST(StartTrack, StartsOnlyAFilledEntryOfAKindThatIsPlayed) {
    Use use(0);
    use.AddEntry(u"C:\\m\\", u"a.mp1", kMp1Media);
    use.AddEntry(u"C:\\m\\", u"b.wav", kWavMedia);
    use.AddEntry(u"C:\\m\\", u"", kMp3Media);
    use.AddEntry(u"", u"");
    use.velora.MediaList[use.AddEntry(u"", u"off.mp3")].Enabled = false;
    use.AddEntry(u"", u"last.mp2", kMp2Media);
    use.velora.MediaList[0] = use.velora.MediaList[7] = {true, u"C:\\", u"never.mp3", kMp3Media, 0};
    EXPECT_EQ(
        use.Tell("track:2 track:4 track:5 track:0 track:7 track:-1 | track:1 | track:6 | track:3"),
        " | picPlay picStop1, Stop, TrackFile C:\\m\\a.mp1, Play, Playing, track 1, status "
        "Playing, title a ... , scope on, scroll on | Stop, TrackFile last.mp2, Play, track 6, "
        "title last ...  | Stop, TrackFile C:\\m\\, Play, track 3, title ");
}

TEST(Steps, InOddPlaces) {
    const auto stops = "picPlay picPlay1, Stop, Stopped, status Ready, title , scope off, 460 ms"s;
    ExpectUses({
        {"next with one entry leaves it playing while previous stops it", "count:1 track:1",
         "picForward +R -R | picBackward +R -R", " | " + stops},
        {"onto an entry that isn't played they stop there and stay there", "count:4 track:3",
         "picForward +R -R | +R -R", stops + " | Stop, 460 ms"},
        {"they wait with events going on, without the mouse; a second one leads to the same track",
         "track:1 picForward later:+R&-R", "+R -R",
         "Stop, Stop, Stop, TrackFile 2_x.mp3, Play, Stop, TrackFile 2_x.mp3, Play, track 2, title "
         "2_x ... , 900 ms"},
        {"a file that is chosen while they wait counts", "track:3 file:\\m\\new.mp3 picForward +R",
         "later:picEject&+L&-L -R",
         "free, Stop, click, over picEject1, ChooseFile Select Media ..., Stop, TrackFile "
         "\\m\\new.mp3, Play, Stop, TrackFile \\m\\new.mp3, Play, track 4, entry \\m\\new.mp3 "
         "kind 3 flag 0, in \\m, title new ... , 460 ms"},
        {"onto what starts while a stop still puts the lights out, which keeps its spectrum",
         "track:1 picPlay +L later:picForward&+R&-R", "-L",
         "picPlay picStop1, free, Stop, Stop, Stop, TrackFile 2_x.mp3, Play, track 2, title x ... "
         "2_, 700 ms"},
        {"one that overtakes a seek leaves no hidden button",
         "track:2 picForward later:+R&-R&shift&+R&0.3s +R -R", "-R",
         "picForward picForeward1, free, Stop, Stop, TrackFile 1_x.mp3, Play, track 1, title 1_x "
         "... , blink forward off, 460 ms"},
        {"the same backward", "track:2 picBackward later:+R&-R&shift&+R&0.3s +R -R", "-R",
         "picBackward picBackward1, free, Stop, Stop, TrackFile 3_x.mp3, Play, track 3, title 3_x "
         "... , blink backward off, 460 ms"},
        {"the same where the release is lost", "track:2 picForward later:+R&-R&shift&+R&0.3s +R -R",
         "lost", "picForward picForeward1, free, blink forward off"},
        {"the same backward where the release is lost",
         "track:2 picBackward later:+R&-R&shift&+R&0.3s +R -R", "lost",
         "picBackward picBackward1, free, blink backward off"},
    });
}
