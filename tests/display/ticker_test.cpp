// The running text: what it says in which case, and how it turns.
#include "display/ticker.h"

#include "display/characters.h"
#include "support/velora_fixture.h"

namespace {

class Ticker : public VeloraTest {};

constexpr TextView kTagged =
    u" ..:: velora is currently playing ::.. Moon by Tide ::..            ..:: bitrate: 128 ::..            "
    u"..:: sample: 44100 ::..            ..:: visit team quillo on the web: http://www.quillo.example ::.. "
    u"          ";
constexpr TextView kUntagged = u" ..:: velora is currently playing ::.. a.mp3::..           ";

} // namespace

TEST(TickerLine, FollowsTitleArtistAndState) {
    struct Row {
        const char* Name;
        PlayerState State;
        TextView Title, Artist;
        TextView Expected;
    };
    const Row rows[] = {
        {"tagged", PlayerState::Playing, u"Moon", u"Tide", kTagged},
        {"title alone", PlayerState::Playing, u"Moon", u"", kUntagged},
        {"artist alone", PlayerState::Playing, u"", u"Tide", kUntagged},
        {"neither", PlayerState::Playing, u"", u"", kUntagged},
        {"stopped", PlayerState::Stopped, u"Moon", u"Tide", u""},
        {"paused", PlayerState::Paused, u"Moon", u"Tide", u""},
        {"seeking forward", PlayerState::SeekingForward, u"Moon", u"Tide", u""},
        {"seeking backward", PlayerState::SeekingBackward, u"", u"", u""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Utf8(TickerLine({row.State, row.Title, row.Artist, u"a.mp3", 128, 44100})),
                  Utf8(row.Expected))
            << row.Name;
}

TEST_F(Ticker, TurnsByOneWholeCharacter) {
    struct Row {
        TextView Before, After;
    };
    for (const Row& row : {Row{u"", u""}, Row{u"a", u"a"}, Row{u"abc", u"bca"},
                           Row{u"\U0001F319ab", u"ab\U0001F319"}, Row{u"\xD83Cx", u"x\xD83C"}}) {
        form.lblFilescroll.Caption = row.Before;
        tmrScrollFiletitle_Timer(velora);
        EXPECT_EQ(form.lblFilescroll.Caption, row.After) << Utf8(row.Before);
    }
}

TEST_F(Ticker, RunsOnTenTimesASecondAndStandsStillWhenEmpty) {
    form.tmrScrollFiletitle.Enabled = true;
    form.lblFilescroll.Caption = u"abcdef";
    velora.PlayerState = PlayerState::Paused;
    loop.Wait(0.35);
    EXPECT_EQ(form.lblFilescroll.Caption, u"defabc");
    form.lblFilescroll.Caption.clear();
    loop.Wait(1);
    EXPECT_EQ(form.lblFilescroll.Caption, u"");
}

TEST(Characters, AreNeverCutInTwo) {
    EXPECT_EQ(WithoutFirstCharacter(u"\U0001F319a"), u"a");
    EXPECT_EQ(WithoutLastCharacter(u"a\U0001F319"), u"a");
    EXPECT_EQ(WithoutLastCharacter(u"\xDF19"), u"");
    EXPECT_EQ(WithoutFirstCharacter(u""), u"");
    EXPECT_EQ(WithoutLastCharacter(u""), u"");
}
