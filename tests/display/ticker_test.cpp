// The running text: what it says in which case, and how it turns.
#include "display/ticker.h"

#include <gtest/gtest.h>

#include "display/characters.h"
#include "support/null_platform.h"

namespace {

constexpr TextView kTagged =
    u" ..:: velora is currently playing ::.. Moon by Tide ::..            ..:: bitrate: 128 ::..            "
    u"..:: sample: 44100 ::..            ..:: visit team quillo on the web: http://www.quillo.example ::.. "
    u"          ";
constexpr TextView kUntagged = u" ..:: velora is currently playing ::.. a.mp3::..           ";

} // namespace

TEST(TickerLine, FollowsTitleArtistAndState) {
    const auto line = [](PlayerState state, TextView title, TextView artist) {
        return TickerLine({state, title, artist, u"a.mp3", 128, 44100});
    };
    EXPECT_EQ(line(PlayerState::Playing, u"Moon", u"Tide"), kTagged);
    EXPECT_EQ(line(PlayerState::Playing, u"Moon", u""), kUntagged);
    EXPECT_EQ(line(PlayerState::Playing, u"", u"Tide"), kUntagged);
    for (const PlayerState state : {PlayerState::Stopped, PlayerState::Paused, PlayerState::SeekingForward,
                                    PlayerState::SeekingBackward})
        EXPECT_EQ(line(state, u"Moon", u"Tide"), u"");
}

TEST(Ticker, TurnsAndIsCutByWholeCharactersAndLooksAtNothingElse) {
    struct Row {
        TextView Text, Turned, WithoutFirst, WithoutLast;
    };
    constexpr TextView kMoon = u"\U0001F319"; // Two places of a text.
    NullPlatform platform;
    NullPictures pictures;
    Velora velora(platform.PartsWith(pictures));
    for (const Row& row :
         {Row{u"", u"", u"", u""}, Row{u"a", u"a", u"", u""}, Row{u"abc", u"bca", u"bc", u"ab"},
          Row{kMoon, kMoon, u"", u""}, Row{u"\U0001F319a", u"a\U0001F319", u"a", u"\U0001F319"},
          Row{u"ab\U0001F319", u"b\U0001F319a", u"b\U0001F319", u"ab"},
          Row{u"\xD83Cx", u"x\xD83C", u"x", u"\xD83C"}, Row{u"x\xDF19", u"\xDF19x", u"\xDF19", u"x"},
          Row{kMoon.substr(0, 1), u"\xD83C", u"", u""}, Row{kMoon.substr(1), u"\xDF19", u"", u""}}) {
        velora.frmMain.lblFilescroll.Caption = row.Text;
        tmrScrollFiletitle_Timer(velora);
        EXPECT_EQ(velora.frmMain.lblFilescroll.Caption, row.Turned);
        EXPECT_EQ(WithoutFirstCharacter(row.Text), row.WithoutFirst);
        EXPECT_EQ(WithoutLastCharacter(row.Text), row.WithoutLast);
    }
}
