// A hand that chance leads: thousands of events of the mouse, the timers and the player, answers to dialogs,
// choices of the menu, changes of skin, and waits with more of all that inside, with the product's own skins.
// After each one the form has to be such that a user can go on. A failure tells the words that led to it.
#include <algorithm>
#include <iterator>
#include <random>
#include <sstream>

#include "support/use.h"

namespace {

// What can happen at any time. "later" puts a further event behind this one, or into the wait of its handler.
constexpr const char* kAlways = R"(0.02s 0.1s 0.3s 1s later later later tags stream bars:3 length:1000
    length:30000 length:0 at:0 at:300 at:400 at:950 at:1000 lost restored file:\music\a.mp3 file:\music\b.mp1
    file:\music\c.wav file:\music\d.txt file: input:Name menu: menu:mnuMinimize menu:mnuRunPressdeck)";

// What the hand does, which a dialog, the menu or a move keeps away from the form.
constexpr const char* kHand = R"(picPlay picPlay picPause picBackward picBackward picForward picForward
    picPlaylist picPlaylist picEject picEject picVolume VFmp3scope1 lblFilescroll beside off in in =5,60 -7,3
    5,70 5,1 =5,10 +L +L +L +L +L +L -L -L -L -L -L -L +R +R -R -R +M -M +S -S shift shift ctrl)";

std::vector<std::string> WordsOf(const std::string& text) {
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), {}};
}

class Walk : public Program {
public:
    explicit Walk(unsigned seed) : m_chance(seed) {
        directory.Put("list.m3u", "one.mp3\r\ntwo.mp2\r\nthree.wav\r\nfour.mp3\r\n");
        directory.Put("velplaylists.ini", "[Settings]\nCount=1\n[1]\nEnabled=True\nFile=list.m3u\nPath=" +
                                              Utf8(machine.Directory));
        Do("start");
        loop.AfterEvent = [this] {
            window.Present();
            Check();
        };
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
        Rest();
    }

private:
    void Step() {
        static const std::vector<std::string> always = WordsOf(kAlways), hand = WordsOf(kHand);
        const std::size_t place = m_chance() % (always.size() + (m_covers == 0 ? hand.size() : 0));
        const std::string& word = place < always.size() ? always[place] : hand[place - always.size()];
        m_trail += word + " ";
        ++m_depth;
        if (word == "later")
            loop.Post([this] { Step(); });
        else
            Do(word);
        --m_depth;
        Check();
    }

    // With nothing held all comes to rest, and the buttons do what they are there for.
    void Rest() {
        ++m_depth;
        Do("3s -L -R -M lost restored 3s");
        Expect(!form.tmrSeekBackward.Enabled && !form.tmrSeekForward.Enabled, "rest");
        if (velora.PlayerState != PlayerState::Stopped) Do("picPlay +L -L");
        dialogs.Files = {u"\\music\\last.mp3"};
        Do("picPlay +L -L");
        Check();
        Expect(velora.PlayerState == PlayerState::Playing && form.lblFilescroll.Caption == u"last ... ",
               "play");
        Do("picPlay +L -L");
        Check();
        Expect(velora.PlayerState == PlayerState::Stopped && !m_runs, "stop");
    }

    void Expect(bool holds, std::string_view what) const {
        EXPECT_TRUE(holds || ::testing::Test::HasFailure()) << what << " after: " << m_trail;
    }

    void Check() {
        CheckPlayer();
        CheckLights();
        CheckSeek(form.picBackward, form.tmrSeekBackward, PlayerState::SeekingBackward);
        CheckSeek(form.picForward, form.tmrSeekForward, PlayerState::SeekingForward);
        for (const auto& [button, holder] : kButtons) {
            const std::string shown = NameOf((form.*button).Picture), own((form.*holder).Name);
            Expect(shown == "fresh" || shown.starts_with(own.substr(0, own.size() - 1)) ||
                       (button == &Form::picPlay && shown.starts_with("picStop")),
                   shown);
        }
        const MouseCapture& capture = velora.Capture;
        Expect(capture.Active ? (held & 7) != 0 : !capture.Holder && capture.Button == kNoButton, "capture");
        Expect(velora.CurrentTrack >= 0 && velora.CurrentTrack <= velora.Count, "track");
        Expect(velora.CurrentSkin >= 1 && velora.CurrentSkin <= velora.SkinCount, "skin");
        Expect(form.lCurVol >= 1 && form.lCurVol <= kVolumeSteps, "volume");
    }

    // Only a track that was started is held, sought in and shown.
    void CheckPlayer() {
        for (const std::string& line : journal.Take()) {
            if (!line.starts_with("Player.")) continue;
            Expect(m_runs || (line != "Player.TogglePause" && !line.starts_with("Player.Seek")), line);
            Expect(line != "Player.Play" || m_asked.starts_with("Player.TrackFile"), line);
            if (line == "Player.Play" || line == "Player.Stop") m_runs = line == "Player.Play";
            m_asked = line;
        }
        const bool stopped = velora.PlayerState == PlayerState::Stopped;
        const TextView shown = stopped                                     ? u"Ready"
                               : velora.PlayerState == PlayerState::Paused ? u"Paused"
                                                                           : u"Playing";
        Expect(form.lblStatusLabel.Caption.starts_with(shown), "status");
        Expect(stopped || (m_runs && velora.CurrentTrack > 0 && form.tmrScrollFiletitle.Enabled), "player");
        Expect(NameOf(form.picPlay.Picture).starts_with(stopped ? "picPlay" : "picStop"), "play or stop");
    }

    // A button hides only to blink, and blinks only while it is held.
    void CheckSeek(const PictureBox& button, const Timer& blink, PlayerState seeking) {
        Expect(!blink.Enabled || (velora.Capture.Active && velora.Capture.Holder == &button), blink.Name);
        Expect(blink.Enabled || (velora.PlayerState != seeking && button.Visible), button.Name);
    }

    // With no wait open: they only go on, but where time passes or the skin changes, and stand in a row.
    void CheckLights() {
        const auto lit = [](const Shape& light) { return light.FillColour == kPassedColour; };
        const auto first = form.shpPercent.begin() + 1, last = form.shpPercent.end();
        const auto lights = std::count_if(first, last, lit);
        const std::pair now{loop.NowMs(), velora.CurrentSkin};
        if (m_depth > 0) return;
        Expect(now != std::exchange(m_lightsAt, now) || lights >= m_lights, "lights");
        Expect(std::is_partitioned(first, last, lit), "row of lights");
        m_lights = lights;
    }

    std::mt19937 m_chance;
    std::string m_trail;
    int m_covers = 0; ///< Dialogs, menus and moves that are open.
    int m_depth = 0;  ///< Words that are being done.
    std::pair<std::int64_t, Integer> m_lightsAt;
    std::ptrdiff_t m_lights = 0;
    bool m_runs = false;
    std::string m_asked;
};

} // namespace

TEST(Walk, LeavesAFormThatAUserCanGoOnFrom) {
    for (unsigned seed = 1; seed <= 8 && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Walk(seed).Go(400);
    }
}
