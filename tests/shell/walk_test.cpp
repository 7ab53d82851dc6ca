// A hand that chance leads: thousands of events of the mouse, the timers and the player, answers to
// dialogs, choices of the menu, changes of skin, and waits with more of all that inside, with the
// product's own skins. After each one the form has to be such that a user can go on. A failure
// tells the words that led to it.
#include <iterator>
#include <random>
#include <sstream>

#include "support/use.h"

namespace {

// What can happen at any time. "later" puts a further event behind this one, or into the wait of
// its handler.
constexpr const char* kAlways = R"(0.02s 0.1s 0.3s 1s later later later tags stream bars:3
    length:1000 length:30000 length:0 at:0 at:300 at:400 at:950 at:1000 lost restored
    file:\music\a.mp3 file:\music\b.mp1 file:\music\c.wav file:\music\d.txt file: input:Name
    menu: menu:mnuMinimize menu:mnuRunPressdeck)";

// What the hand does, which a dialog, the menu or a move keeps away from the form.
constexpr const char* kHand = R"(picPlay picPlay picPause picBackward picBackward picForward
    picForward picPlaylist picPlaylist picEject picEject picVolume VFmp3scope1 lblFilescroll
    beside off in in =5,60 -7,3 5,70 5,1 =5,10 +L +L +L +L +L +L -L -L -L -L -L -L +R +R -R -R +M -M
    +S -S shift shift ctrl)";

std::vector<std::string> WordsOf(const std::string& text) {
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), {}};
}

class Walk : public Program {
public:
    explicit Walk(unsigned seed) : m_chance(seed) {
        Do("start");
        for (const Long type : {3, 5, 2}) // The second isn't played.
            AddEntry(u"", u"one.mp3", type);
        dialogs.WhileOpen = window.WhileOpen = [this] {
            Expect(!velora.Capture.Active, "dialog");
            ++m_covers;
            for (auto events = m_chance() % 4; events > 0; --events)
                Step();
            --m_covers;
        };
    }

    void Go(int events) {
        while (events-- > 0 && !::testing::Test::HasFailure())
            Step();
        // With nothing held all comes to rest, and play does what it is there for.
        Do("3s -L -R -M lost restored 3s");
        if (velora.PlayerState != PlayerState::Stopped) Do("picPlay +L -L");
        dialogs.Files = {u"\\music\\last.mp3"};
        Do("picPlay +L -L");
        Expect(form.lblFilescroll.Caption == u"last ... ", "title");
        Expect(velora.PlayerState == PlayerState::Playing, "play");
    }

private:
    void Step() {
        static const std::vector<std::string> always = WordsOf(kAlways), hand = WordsOf(kHand);
        const std::size_t place = m_chance() % (always.size() + (m_covers == 0 ? hand.size() : 0));
        const auto& word = place < always.size() ? always[place] : hand[place - always.size()];
        m_trail += word + " ";
        if (word == "later")
            loop.Post([this] { Step(); });
        else
            Do(word);
        Check();
    }

    void Expect(bool holds, std::string_view what) const {
        EXPECT_TRUE(holds || ::testing::Test::HasFailure()) << what << " after: " << m_trail;
    }

    void Check() {
        const MouseCapture& capture = velora.Capture;
        Expect(capture.Active ? (held & 7) != 0 : !capture.Holder && capture.Button == kNoButton,
               "capture");
        const bool stopped = velora.PlayerState == PlayerState::Stopped;
        Expect(stopped || (velora.CurrentTrack > 0 && form.tmrScrollFiletitle.Enabled), "player");
        Expect(NameOf(form.picPlay.Picture).starts_with(stopped ? "picPlay" : "picStop"), "stop");
        CheckSeek(form.picBackward, form.tmrSeekBackward, PlayerState::SeekingBackward);
        CheckSeek(form.picForward, form.tmrSeekForward, PlayerState::SeekingForward);
    }

    // A button hides only to blink, and blinks only while it is held.
    void CheckSeek(const PictureBox& button, const Timer& blink, PlayerState seeking) {
        Expect(!blink.Enabled || (velora.Capture.Active && velora.Capture.Holder == &button),
               blink.Name);
        Expect(blink.Enabled || (velora.PlayerState != seeking && button.Visible), button.Name);
    }

    std::mt19937 m_chance;
    std::string m_trail;
    int m_covers = 0; ///< Dialogs, menus and moves that are open.
};

} // namespace

TEST(Walk, LeavesAFormThatAUserCanGoOnFrom) {
    for (unsigned seed = 1; seed <= 8 && !HasFailure(); ++seed)
        Walk(seed).Go(400);
}
