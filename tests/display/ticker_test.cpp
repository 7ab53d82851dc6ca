// The running text: what it says in which case, and how it turns.
#include "display/ticker.h"

#include "support/velora_fixture.h"

namespace {

constexpr TextView kTagged =
    u" ..:: velora is currently playing ::.. Moon by Tide ::..            ..:: bitrate: 128 ::.."
    u"            ..:: sample: 44100 ::..            ..:: visit team quillo on the web: "
    u"http://www.quillo.example ::.. "
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
    for (const PlayerState state : {PlayerState::Stopped, PlayerState::Paused,
                                    PlayerState::SeekingForward, PlayerState::SeekingBackward})
        EXPECT_EQ(line(state, u"Moon", u"Tide"), u"");
}

TEST(Ticker, TurnsAndIsCutByWholeCharactersAndLooksAtNothingElse) {
    struct Row {
        TextView Text, Turned, WithoutFirst, WithoutLast;
    };
    Stage at;
    Text& caption = at.form.lblFilescroll.Caption;
    // A character of two places, and halves of one.
    for (const Row& row :
         {Row{u"", u"", u"", u""}, Row{u"a", u"a", u"", u""},
          Row{u"\U0001F319", u"\U0001F319", u"", u""},
          Row{u"\U0001F319ab", u"ab\U0001F319", u"ab", u"\U0001F319a"},
          Row{u"ab\U0001F319", u"b\U0001F319a", u"b\U0001F319", u"ab"},
          Row{u"\xD83Cx", u"x\xD83C", u"x", u"\xD83C"},
          Row{u"x\xDF19", u"\xDF19x", u"\xDF19", u"x"}, Row{u"\xD83C", u"\xD83C", u"", u""},
          Row{u"\xDF19", u"\xDF19", u"", u""}}) {
        caption = row.Text;
        tmrScrollFiletitle_Timer(at.velora);
        EXPECT_EQ(caption, row.Turned);
        EXPECT_EQ(WithoutFirstCharacter(row.Text), row.WithoutFirst);
        EXPECT_EQ(WithoutLastCharacter(row.Text), row.WithoutLast);
    }
}
