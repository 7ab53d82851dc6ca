// What is said of a skin: one small whole skin, and what each fault in it brings.
#include "maker/check_skin.h"

#include "maker/states.h"
#include "state/scene.h"
#include "support/skin_fixture.h"

namespace {

// Files one after the other. The client area has 100 x 60 pixels, all of them in the shape.
constexpr std::string_view kWhole = R"(== skin.vs4
[Settings]
Width=1590
Height=1275
Graphic=back.gif
Playlist=other.vs4
ShapeCount=2
ObjectCount=12
[rgn1]
enabled=True
x1=-1
y1=-3
x2=49
y2=57
[rgn2]
enabled=True
x1=49
y1=-3
x2=99
y2=57
combinemode=2
destrgn=1
srcrgn1=1
srcrgn2=2
[object1]
enabled=True
type=1
left=2
top=2
filename=play.gif
filename2=play2.gif
[object2]
enabled=True
type=2
filename=stop.gif
filename2=stop2.gif
[object3]
enabled=True
type=4
left=14
top=2
filename=play.gif
filename2=play2.gif
[object4]
enabled=True
type=3
left=26
top=2
filename=play.gif
filename2=play2.gif
[object5]
enabled=True
type=7
left=38
top=2
filename=play.gif
filename2=play2.gif
[object6]
enabled=True
type=5
left=50
top=2
filename=play.gif
filename2=play2.gif
[object7]
enabled=True
type=6
left=62
top=2
filename=play.gif
filename2=play2.gif
[object8]
enabled=True
type=8
left=64
top=28
width=20
height=14
[object9]
enabled=True
type=9
left=2
top=14
width=80
height=12
[object10]
enabled=True
type=11
left=90
top=2
filename=vol1.gif
filename2=vol.gif
y1=750
y2=630
y3=510
y4=390
y5=270
y6=150
y7=30
[object11]
enabled=True
type=12
left=2
top=28
width=60
height=14
[object12]
enabled=True
type=13
filename=lights.ini
== back.gif
picture 100 60
== play.gif
picture 10 10
== play2.gif
picture 10 10
== stop.gif
picture 10 10
== stop2.gif
picture 10 10
)";

using Edits = std::vector<std::pair<std::string_view, std::string_view>>;

std::string WholeText() {
    std::string text(kWhole);
    for (int step = 1; step <= kVolumeSteps; ++step)
        text += Joined("== vol", step, ".gif\npicture 8 56\n");
    text += "== lights.ini\n";
    for (int number = 1; number <= kLights; ++number)
        text += Joined("[", number, "]\nleft=", 6 * number - 4,
                       "\ntop=46\nwidth=5\nheight=5\nbackcolor=vbRed\n");
    return text;
}

struct Bench : NullPlatform {
    // Writes the whole skin, each edit made once, and its twin as the companion.
    explicit Bench(const Edits& edits) {
        std::string text = WholeText();
        Put("\n" + text.substr(0, text.find("\n== back.gif")), "other.vs4");
        for (const auto& [from, to] : edits) {
            const std::size_t at = text.find(from);
            EXPECT_NE(at, std::string::npos) << from;
            if (at != std::string::npos) text.replace(at, from.size(), to);
        }
        Put("\n" + text, "");
    }
    void Put(const std::string& text, std::string name) {
        constexpr std::string_view kMark = "\n== ";
        const bool named = !name.empty();
        for (std::size_t at = 0; (at = text.find(kMark, at)) != std::string::npos;) {
            const std::size_t line = text.find('\n', at + 1), end = text.find(kMark, line);
            if (!named) name = text.substr(at + kMark.size(), line - at - kMark.size());
            directory.Put(name, text.substr(line + 1, end - line));
            at = end;
        }
    }
    [[nodiscard]] std::string Check(const std::string& file = "skin.vs4") {
        const auto measure = [](const Text& words, int fontPx) {
            return Rect{0, 0, int(words.size()) * 5, fontPx + 2};
        };
        const auto findings = CheckSkin(PartsWith(pictures), measure, directory.PathText(file));
        if (!findings) return "can't be read";
        std::string all;
        for (const Finding& finding : *findings)
            all += LineOf(finding).substr(directory.Path().size() + 1) + "\n";
        // What is said of the skin file itself goes without its name.
        const std::string own = file + ": ";
        for (std::size_t at = 0; (at = all.find(own, at)) != std::string::npos;)
            all.erase(at, own.size());
        return all;
    }

    const TempDirectory directory;
    FilePictures pictures;
};

// The status, how many lights are lit, whether title and visualisation show, and the pictures but
// for those at rest.
std::string Shown(const Scene& scene) {
    std::string status, rest;
    int lit = 0;
    for (const Figure& figure : scene.Figures) {
        const std::string picture = NameOf(figure.Picture),
                          file = picture.substr(0, picture.find('#'));
        if (figure.Source->Id == ControlId::lblStatusLabel) status = Utf8(figure.Caption);
        if (figure.Source->Id == ControlId::lblFilescroll && !figure.Caption.empty())
            rest += " title";
        if (figure.Kind == ControlKind::Shape && figure.Colour == kPassedColour) ++lit;
        if (figure.Kind == ControlKind::Scope) rest += " bars";
        if (figure.Kind == ControlKind::PictureBox && file != "play.gif" && file != "back.gif")
            rest += Joined(" ", figure.Source->Name, " ", file);
    }
    return Joined(status, " ", lit, rest);
}

struct Row {
    const char* Name;
    Edits Changes;
    const char* Found;
};

const Row kFaults[] = {
    {"a picture isn't there",
     {{"play2.gif", "missing.gif"}},
     "[object1] filename2: \"missing.gif\" isn't there\n"},
    {"a picture differs in case",
     {{"== stop.gif", "== Stop.gif"}},
     "[object2] filename: \"stop.gif\" is called \"Stop.gif\"; capital and small letters "
     "differ\n"},
    {"no picture, no path and no second picture",
     {{"left=14\ntop=2\nfilename=play.gif\nfilename2=play2.gif",
       "left=14\ntop=2\nfilename=stop2.gif"},
      {"type=2\nfilename=stop.gif", "type=2\nfilename="},
      {"left=26\ntop=2\nfilename=play.gif\nfilename2=play2.gif",
       "left=26\ntop=2\nfilename=stop.gif\nfilename2=lights.ini"}},
     "[object2] filename: missing\n"
     "[object3] filename2: missing\n"
     "[object4] filename2: \"lights.ini\" is no picture that can be read\n"},
    {"pictures of two sizes",
     {{"picture 10 10\n== stop2.gif", "picture 10 9\n== stop2.gif"}},
     "[object2] filename2: 10 x 10 pixels, but the picture at rest has 10 x 9 pixels\n"
     "[object2] filename: 10 x 9 pixels, but the play button has 10 x 10 pixels\n"},
    {"values that don't convert, one of them for a remark behind it",
     {{"left=2", "left=two"}, {"top=2", "top=2 ; from above"}, {"height=14", "height=1e9 px"}},
     "[object1] left: \"two\" isn't a number\n"
     "[object1] top: \"2 ; from above\" isn't a number (a remark "
     "needs a line of its own, which begins with ;)\n"
     "[object8] height: \"1e9 px\" isn't a number\n"
     "[object8] height: no room for the visualisation\n"},
    {"a remark behind a yes and behind a path",
     {{"enabled=True\ntype=8", "enabled=True ; bars\ntype=8"},
      {"filename=stop.gif", "filename=stop.gif # square"},
      {"type=1\n", "type=1\nname=play ; a name may hold anything\n"}},
     "[object1] type: no object has the stop picture, so the button vanishes while a "
     "track is on\n"
     "[object2] filename: \"stop.gif # square\" isn't there (a remark needs a line of its "
     "own, which begins with ;)\n"
     "[object8] enabled: \"True ; bars\" isn't True or False (a remark needs a line of "
     "its own, which begins with ;); nothing of the section counts\n"},
    {"keys and lines that nothing reads",
     {{"[Settings]\n", "Left=1\n[Settings]\nlength=5\nWidth 1590\nHeigth=4\n"},
      {"left=2\n", "left=2\nhieght=3\n# left=4\nLEFT=5\n"},
      {"left=14", "x1=15\nleft=14"}},
     "Left: stands above the first section\n"
     "[Settings] length: nothing reads this key\n"
     "[Settings] \"Width 1590\" has no equals sign, so it says nothing\n"
     "[Settings] Heigth: nothing reads this key\n"
     "[object1] hieght: nothing reads this key; is \"height\" meant?\n"
     "[object1] # left: nothing reads this; a remark begins with ;\n"
     "[object1] LEFT: stands a second time; the first one counts\n"
     "[object3] x1: nothing reads this key\n"},
    {"sections that nothing reads",
     {{"[object3]", "[objekt3]\nleft=4\n[object13]\nenabled=True\n[rgn21]\n[rgn1]\n[object3]"}},
     "[rgn1] stands a second time; only the first one counts\n"
     "[objekt3] nothing reads this section\n"
     "[object13] nothing reads this section; ObjectCount is 12\n"
     "[rgn21] nothing reads this section; 20 are the most\n"},
    {"a misspelt section leaves a gap that is named",
     {{"[object8]", "[objekt8]"}},
     "[objekt8] nothing reads this section; is \"object8\" meant?\n"},
    {"a section without a yes, and one with a no, which is all right",
     {{"enabled=True\ntype=8", "enabeld=True\ntype=8"},
      {"enabled=True\ntype=4", "enabled=0\nodd=1\ntype=4"}},
     "[object8] enabled: missing, so nothing of the section counts\n"
     "[object8] enabeld: nothing reads this key; is \"enabled\" meant?\n"},
    {"a value is cut",
     {{"Playlist=other.vs4\n",
       "Author=12345678901234567890123456789012345678901234567890123456789012345678901234567890"
       "12345678901234567890123456789012345678901234567890123456789012345678901234567890"
       "12345678901234567890123456789012345678901234567890123456789012345678901234567890"
       "123456789012345\n"}},
     "[Settings] Author: only the first 254 bytes of it count\n"},
    {"types that are none, twice there or missing",
     {{"type=8", "type=10"}, {"type=4", "type=3"}, {"type=7\n", ""}},
     "[object4] type: object3 is the forward button, too; the later one counts\n"
     "[object5] type: missing, so this is taken for the background\n"
     "[object8] type: 10 is no object, so nothing is placed\n"},
    {"a slash in the companion's path; one in a picture's works",
     {{"Playlist=other.vs4", "Playlist=./other.vs4"}, {"Graphic=back", "Graphic=./back"}},
     "[Settings] Playlist: \"./other.vs4\" has a slash where only a backslash works, so "
     "the files of that skin are looked for in the wrong directory\n"},
    {"controls outside of the shape, at its edge, and under others",
     {{"left=2\ntop=2", "left=300\ntop=2"},
      {"left=14\ntop=2", "left=14\ntop=55"},
      {"left=26", "left=33"},
      {"left=64", "left=85"},
      {"left=2\ntop=14", "left=2\ntop=5"}},
     "[object1] left: the play button lies outside of the shape, so nobody sees it\n"
     "[object3] left: the backward button is cut off by the edge: 50 of its 100 pixels "
     "don't show\n"
     "[object4] left: the forward button lies partly under the pause button\n"
     "[object8] left: the visualisation is cut off by the edge: 70 of its 280 pixels don't show\n"
     "[object8] left: the visualisation lies partly under the volume\n"
     "[object9] left: the title lies partly under the eject button\n"
     "[object9] left: the title lies partly under the playlist button\n"
     "[object9] left: the title lies partly under the forward button\n"
     "[object9] left: the title lies partly under the pause button\n"},
    {"an empty shape",
     {{"x2=49", "x2=-1"}, {"srcrgn2=2", "srcrgn2=1"}},
     "[rgn1] the shape is empty, so nothing of the window shows\n"
     "[rgn2] no combination takes this region, so it is no part of the shape\n"},
    {"regions and combinations that are none",
     {{"enabled=True\nx1=-1", "enabled=True\ntype=4\nx1=-1"}, {"destrgn=1\n", ""}},
     "[rgn1] type: 4 makes no region; it has to be 1 (rectangle), 2 (ellipse) or 3\n"
     "[rgn1] there is no such region, so the window has no shape and gets the desktop's "
     "frame\n"
     "[rgn2] destrgn: missing, so nothing is combined\n"
     "[rgn2] srcrgn1: rgn1 is no region, so nothing is combined\n"},
    {"a mode that is none",
     {{"combinemode=2", "combinemode=6"}, {"x2=49", "x2=99"}},
     "[rgn2] combinemode: 6, so nothing is combined; it has to be 1 to 5\n"},
    {"a background smaller than the client area",
     {{"picture 100 60", "picture 99 60"}},
     "[Settings] Graphic: the background has 99 x 60 pixels and doesn't fill the client "
     "area of 100 x 60 pixels; what stands beyond it is cut off\n"},
    {"a background whose file isn't there",
     {{"Graphic=back.gif", "Graphic=none.gif"}},
     "[Settings] Graphic: \"none.gif\" isn't there; without a background nothing "
     "shows\n"},
    {"no background at all",
     {{"Graphic=back.gif\n", ""}},
     "[Settings] Graphic: missing, so the background is black\n"},
    {"a window in pixels instead of twips",
     {{"Height=1275", "Height=85"}},
     "[Settings] Height: 85 are only 6 pixels, since this counts in twips, 15 to the pixel\n"
     "[rgn1] the shape is empty, so nothing of the window shows\n"},
    {"sizes of a window",
     {{"Width=1590", "Width=1591"}, {"Height=1275", "Height=1e9"}},
     "[Settings] Width: 1591 is no whole number of pixels; take a multiple of 15\n"
     "[Settings] Height: 1000000000 is no size for a window, so it keeps the size that "
     "it had; count in twips, 15 to the pixel\n"},
    {"texts without room",
     {{"width=60", "width=54"}, {"height=12", "height=10"}},
     "[object9] height: no room for \" ..:: velora is currently playing ::.. Morning Song "
     "by The L...\", which needs 30 x 11 pixels\n"
     "[object11] width: no room for \"Playing 43%\", which needs 55 x 13 pixels\n"},
    {"rows of the volume",
     {{"y1=750", "y1=850"},
      {"y2=630", "y2=631"},
      {"y3=510\n", ""},
      {"y5=270", "y5=400"},
      {"y6=150", "y6=405"}},
     "[object10] y1: 850 lies between two pixels, where no pointer comes; take a multiple "
     "of 15\n"
     "[object10] y2: 631 lies between two pixels, where no pointer comes; take a multiple "
     "of 15\n"
     "[object10] y3: missing, so the step has row 0\n"
     "[object10] y5: 400 lies between two pixels, where no pointer comes; take a multiple "
     "of 15\n"
     "[object10] y6: 405 is out of order: the rows go up the picture from step to step\n"},
    {"rows outside of the picture, twice there or out of order",
     {{"y1=750", "y1=840"}, {"y3=510", "y3=630"}, {"y5=270", "y5=450"}, {"y7=30", "y7=-15"}},
     "[object10] y1: 840 lies outside of the picture, which has 56 rows\n"
     "[object10] y3: 630 is the row of the step before, so this one can't be reached\n"
     "[object10] y5: 450 is out of order: the rows go up the picture from step to step\n"
     "[object10] y7: -15 lies outside of the picture, which has 56 rows\n"},
    {"pictures of the volume",
     {{"== vol3.gif", "== vol.3.gif"}, {"== vol5.gif", "== vol.5.gif"}},
     "[object10] filename2: \"vol3.gif\" isn't there; 2 of the seven are wrong\n"},
    {"small lights and colours that are none",
     {{"width=5", "width=2"}, {"height=5\nbackcolor=vbRed", "backcolor=red\nheight=0"}},
     "lights.ini: [1] backcolor: \"red\" isn't the name of a colour, such as vbRed\n"
     "lights.ini: [1] width: a light needs 3 pixels to show its colour; this one has 2\n"
     "lights.ini: [1] height: a light needs 3 pixels to show its colour; this one has 0\n"},
    {"a light that is missing ends the row",
     {{"[3]", "[33]"}},
     "lights.ini: [33] nothing reads this section; is \"3\" meant?\n"
     "lights.ini: [3] top: missing, so this light and those behind it aren't made\n"},
    {"a light with a fault ends the row",
     {{"left=8\ntop=46", "left=8\ntop=4b"}},
     "lights.ini: [2] top: \"4b\" isn't a number; this light and those behind "
     "it aren't made\n"},
    {"no shape file",
     {{"filename=lights.ini", "filename=light.ini"}},
     "[object12] filename: \"light.ini\" isn't there\n"},
    {"no companion's file",
     {{"Playlist=other", "Playlist=another"}},
     "[Settings] Playlist: \"another.vs4\" isn't there, so the playlist button does "
     "nothing\n"},
    {"a companion that isn't shown",
     {{"Playlist=other.vs4", "Playlist=third.vs4"},
      {"== back.gif", "== third.vs4\n[Settings]\nType=2\n== back.gif"}},
     "[Settings] Playlist: \"third.vs4\" is no skin of type 1, so it is never shown\n"},
    {"a companion that leaves things behind",
     {{"Playlist=other.vs4", "Playlist=third.vs4"},
      {"== back.gif", "== third.vs4\n[Settings]\nObjectCount=1\n[object1]\nenabled=1\ntype=13\n"
                      "filename=few.ini\n== few.ini\n[1]\ntop=1\nheight=1\n== back.gif"}},
     "[Settings] Playlist: \"third.vs4\" doesn't place the play button, stop picture, backward "
     "button, forward button, pause button, eject button, playlist button, visualisation, title, "
     "volume, status; what it doesn't place stays as it is here\n"
     "[Settings] Playlist: \"third.vs4\" has its lights at other places; they keep those of the "
     "skin that comes first\n"},
    {"a type that is never shown",
     {{"[Settings]\n", "[Settings]\nType=2\n"}},
     "[Settings] Type: 2 is a type that is never shown; it has to be 1\n"},
    {"counts above what is read",
     {{"ShapeCount=2", "ShapeCount=21"}, {"ObjectCount=12", "ObjectCount=25"}},
     "[Settings] ShapeCount: only 20 regions are read\n"
     "[Settings] ObjectCount: only 24 objects are read\n"},
    {"what is there by itself in a wide window",
     {{"Width=1590\nHeight=1275", "Width=6090\nHeight=1575"},
      {"picture 100 60", "picture 400 80"},
      {"x2=99\ny2=57", "x2=399\ny2=77"},
      {"x2=49\ny2=57", "x2=49\ny2=77"},
      {"enabled=True\ntype=8", "enabled=no\ntype=8"},
      {"enabled=True\ntype=11", "enabled=0\ntype=11"},
      {"left=62\ntop=2", "left=260\ntop=20"},
      {"left=2\ntop=14", "left=270\ntop=60"}},
     "no object places the visualisation, which comes up at (288, 8) while a track plays\n"
     "[object7] left: the playlist button lies under the empty box of the volume, which no object "
     "places\n"
     "[object8] enabled: \"no\" isn't True or False; nothing of the section counts\n"
     "[object9] left: the title lies partly under the small black oval, which is always there\n"},
};

} // namespace

TEST(CheckSkin, NamesEachFaultBySectionAndKey) {
    for (const Row& row : kFaults)
        EXPECT_EQ(Bench(row.Changes).Check(), row.Found) << row.Name;
}

TEST(CheckSkin, FindsNothingInSkinsThatAreOnlyStrange) {
    for (
        const Row& row : {
            Row{"nothing strange", {}, ""},
            Row{"no visualisation", {{"enabled=True\ntype=8", "enabled=False\ntype=8"}}, ""},
            Row{"no companion", {{"Playlist=other.vs4\n", ""}}, ""},
            Row{"no shape",
                {{"ShapeCount=2\n", ""},
                 {"[rgn1]\nenabled=True\nx1=-1\ny1=-3\nx2=49\ny2=57\n", ""},
                 {"[rgn2]\nenabled=True\nx1=49\ny1=-3\nx2=99\ny2=57\ncombinemode=2\ndestrgn=1\nsrcrgn1=1\nsrcrgn2=2\n",
                  ""}},
                ""},
            Row{"no lights and no volume",
                {{"enabled=True\ntype=13", "enabled=0"}, {"enabled=True\ntype=11", "enabled=0"}},
                ""},
            Row{"a light without a colour and one of no form",
                {{"backcolor=vbRed\n", ""}, {"left=8", "left=8\nshape=5.9"}},
                ""},
            Row{"itself for a companion", {{"other.vs4", "skin.vs4"}}, ""},
            Row{"other words for yes, quoted and blank values, spaces, fractions",
                {{"True", "1"},
                 {"True", "&H1"},
                 {"left=2", " LEFT = \"2.4\" "},
                 {"[object2]", "[Object2] and more\nname="}},
                ""},
        })
        EXPECT_EQ(Bench(row.Changes).Check(), row.Found) << row.Name;
    Bench at({});
    EXPECT_EQ(at.Check("none.vs4"), "can't be read");
    EXPECT_EQ(at.Check("back.gif"),
              "nothing in this file is read; a skin has a section \"Settings\"\n");
}

TEST(SkinStates, AreWhatAHandOnTheSkinWouldSee) {
    struct StateRow {
        std::string_view Name;
        const char* Shown;
        bool BareToo = true; ///< Also a skin without volume and eject has it.
    };
    const StateRow rows[] = {
        {"rest", "Ready 0 picVolume vol1.gif"},
        {"play-pressed", "Ready 0 picPlay play2.gif picVolume vol1.gif"},
        {"stop-pressed", "Playing 43% 6 title bars picPlay stop2.gif picVolume vol1.gif"},
        {"pause-pressed", "Ready 0 picPause play2.gif picVolume vol1.gif"},
        {"backward-pressed", "Ready 0 picBackward play2.gif picVolume vol1.gif"},
        {"forward-pressed", "Ready 0 picForward play2.gif picVolume vol1.gif"},
        {"eject-pressed", "Ready 0 picEject play2.gif picVolume vol1.gif", false},
        {"playlist-pressed", "Ready 0 picPlaylist play2.gif picVolume vol1.gif"},
        {"playing", "Playing 43% 6 title bars picPlay stop.gif picVolume vol1.gif"},
        {"paused", "Paused 6 title picPlay stop.gif picVolume vol1.gif"},
        {"volume-1", "Ready 0 picVolume vol1.gif", false},
        {"volume-2", "Ready 0 picVolume vol2.gif", false},
        {"volume-3", "Ready 0 picVolume vol3.gif", false},
        {"volume-4", "Ready 0 picVolume vol4.gif", false},
        {"volume-5", "Ready 0 picVolume vol5.gif", false},
        {"volume-6", "Ready 0 picVolume vol6.gif", false},
        {"volume-7", "Ready 0 picVolume vol7.gif", false},
    };
    Bench whole({}), bare({{"enabled=True\ntype=11", ""}, {"enabled=True\ntype=5", ""}});
    const auto stateOf = [](Bench& at, std::string_view name) {
        return TrialInState(at.PartsWith(at.pictures), at.directory.PathText("skin.vs4"), name);
    };
    ASSERT_EQ(StateNames().size(), std::size(rows));
    for (const StateRow& row : rows) {
        const auto trial = stateOf(whole, row.Name);
        EXPECT_EQ(trial ? Shown(SceneOf(trial->State.frmMain)) : "none", row.Shown) << row.Name;
        EXPECT_EQ(stateOf(bare, row.Name) != nullptr, row.BareToo) << row.Name;
    }
    EXPECT_FALSE(stateOf(whole, "asleep"));
}
