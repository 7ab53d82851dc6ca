// The controls over one another: what is drawn, what takes the mouse, what a change damages, and
// what a screen reader is told.
#include "state/scene.h"

#include <limits>

#include "state/accessible.h"
#include "support/form_text.h"
#include "support/velora_fixture.h"

namespace {

constexpr Long kMost = std::numeric_limits<Long>::max();

// The surface's right edge cuts the bars, buttons and texts lie over each other, one button has no
// picture, and one light isn't made.
struct Layers : VeloraTest {
    Layers() {
        form.picBackground.Width = 320;
        form.picPause.Left = 25;
        form.picPause.Top = 15;
        form.picEject.Picture = nullptr;
        form.lblFilescroll.Left = 160;
        form.lblFilescroll.Caption = u"title";
        form.lCurVol = 3;
        for (Integer light = 1; light <= 5; ++light) {
            form.shpPercent[light].Visible = true;
            form.shpPercent[light].FillColour = light < 5 ? 0x00FFFF : 0x0000FF;
        }
        form.shpPercent[2].Left = 100;
        form.shpPercent[3].Exists = false;
        form.shpPercent[4].Top = 80;
        form.shpPercent[4].Form = ShapeForm::Circle;
        form.shpPercent[4].BorderColour = 0x22;
        form.shpPercent[5].Top = 30;
    }
    std::string Figures() {
        std::string text;
        for (const Figure& figure : SceneOf(form).Figures)
            text += Joined(figure.Source->Name, " ", TextOf(figure.Place),
                           figure.Picture ? " picture" : "", figure.Ground ? " ground" : "", " ",
                           figure.Caption, " ", figure.FontPx, " ", std::hex, figure.Colour, " ",
                           figure.BorderColour, " ", int(figure.Kind), int(figure.Form), "; ");
        return text;
    }
    Text AccessibleName(std::string_view control) {
        for (const AccessibleControl& each : AccessibleControls(velora))
            if (each.ControlName == control) return each.Name;
        return {};
    }
};

} // namespace

TEST_F(Layers, AreDrawnFromBackToFront) {
    EXPECT_EQ(
        Figures(),
        "picBackground 5,7-325,207 ground  0 0 0 02; lblFilescroll 165,107-245,122 title 9 80ffff "
        "0 12; lblStatusLabel 105,107-185,122 Ready 11 80ffff 0 12; shpPercent 293,37-298,42  0 ff "
        "0 22; shpPercent 293,87-298,92  0 ffff 22 23; shpPercent 105,71-110,76  0 ffff 0 22; "
        "shpPercent 293,71-298,76  0 ffff 0 22; shpPercent 293,71-298,76  0 0 0 22; VFmp3scope1 "
        "305,107-355,157  0 0 0 32; picPlaylist 175,17-205,37 picture  0 0 0 02; picForward "
        "135,17-165,37 picture  0 0 0 02; picBackward 95,17-125,37 picture  0 0 0 02; picPause "
        "30,22-60,42 picture  0 0 0 02; picPlay 15,17-45,37 picture  0 0 0 02; ");
    form.picBackground.Visible = false;
    EXPECT_EQ(Figures(), "");
}

TEST_F(Layers, TheFrontmostInsideTheSurfaceTakesTheMouse) {
    std::string names;
    // Outside the surface, at its corners, on a light, between the texts, on buttons, bars and
    // texts.
    using Point = std::pair<int, int>;
    for (const auto& [x, y] :
         {Point{4, 8}, Point{5, 6}, Point{325, 120}, Point{300, 207}, Point{5, 7}, Point{324, 206},
          Point{293, 71}, Point{304, 107}, Point{15, 17}, Point{44, 36}, Point{45, 36},
          Point{44, 37}, Point{215, 17}, Point{15, 57}, Point{305, 107}, Point{324, 156},
          Point{184, 107}, Point{185, 107}}) {
        const Control* control = ControlAt(form, x, y);
        names += Joined(control ? control->Name : "form", " ");
    }
    EXPECT_EQ(names,
              "form form form form picBackground picBackground picBackground picBackground picPlay "
              "picPlay picPause picPause picEject picVolume VFmp3scope1 VFmp3scope1 lblStatusLabel "
              "lblFilescroll ");
    form.picBackground.Visible = false;
    EXPECT_EQ(ControlAt(form, 15, 17), nullptr);
}

TEST_F(Layers, TakeAbsurdNumbersWithoutHarm) {
    form.Width = 7 * kTwipsPerPixel;
    form.Height = -kMost;
    EXPECT_EQ(TextOf(ClientArea(form)), "0,0-1,1");
    form.Width = form.Height = kMost;
    EXPECT_EQ(TextOf(ClientArea(form)), "0,0-143165570,143165551");
    form.picBackground.Top = form.picBackground.Height = kMost;
    form.lblStatusLabel.Left = form.lblStatusLabel.Width = kMost;
    form.lblFilescroll.Left = -kMost;
    form.lblFilescroll.Width = form.lblFilescroll.Height = -5;
    const std::vector<StackedControl> stack = ControlStack(form);
    EXPECT_EQ(TextOf(stack[1].Place), "-2147483642,2147483647--2147483642,2147483647");
    EXPECT_EQ(TextOf(stack[2].Place), "2147483647,2147483647-2147483647,2147483647");
    EXPECT_EQ(Figures(), "");
}

TEST_F(Layers, AChangeDamagesItsOldAndItsNewPlace) {
    struct Row {
        const char* Name;
        void (*Change)(Form& form);
        std::string Damage; ///< Against the row before.
    };
    const Row rows[] = {
        {"another title", [](Form& f) { f.lblFilescroll.Caption = u"itlet"; }, "165,107-245,122 "},
        {"an empty title", [](Form& f) { f.lblFilescroll.Caption.clear(); }, "165,107-245,122 "},
        {"it is back", [](Form& f) { f.lblFilescroll.Caption = u"t"; }, "165,107-245,122 "},
        {"a moved button", [](Form& f) { f.picPlay.Left = 50; }, "15,17-45,37 55,17-85,37 "},
        {"a picture", [](Form& f) { SetPicture(f.picPlay, Stage::NewPicture()); }, "55,17-85,37 "},
        {"bars and a button",
         [](Form& f) { f.VFmp3scope1.Bars.Level[3] = float(f.picPause.Top = 16); },
         "305,107-325,157 30,22-60,42 30,23-60,43 "},
        {"less", [](Form& f) { f.shpPercent[1].Exists = f.VFmp3scope1.Visible = false; },
         "293,71-298,76 305,107-325,157 "},
        {"bars that nobody sees", [](Form& f) { f.VFmp3scope1.Bars.Level[3] = 0.7F; }, ""},
        {"a smaller surface", [](Form& f) { f.picBackground.Width = 90; },
         "5,7-325,207 5,7-95,207 165,107-245,122 105,107-185,122 293,37-298,42 293,87-298,92 "
         "105,71-110,76 293,71-298,76 175,17-205,37 135,17-165,37 95,17-125,37 30,23-60,43 "
         "30,23-60,43 55,17-85,37 55,17-85,37 "},
        {"no surface", [](Form& f) { f.picBackground.Visible = false; },
         "5,7-95,207 30,23-60,43 55,17-85,37 "},
    };
    Scene shown = SceneOf(form);
    for (const Row& row : rows) {
        row.Change(form);
        Scene now = SceneOf(form);
        std::string damage;
        for (const Rect& part : DamageBetween(shown, now))
            damage += TextOf(part) + " ";
        EXPECT_EQ(damage, row.Damage) << row.Name;
        EXPECT_TRUE(DamageBetween(now, SceneOf(form)).empty());
        EXPECT_TRUE(form.VFmp3scope1.Visible || now.Bars == ScopeBars())
            << "hidden bars are nobody's business";
        shown = std::move(now);
    }
}

TEST_F(Layers, EachIsToldToAScreenReaderAndTheLightsWithAWidthAreOneBar) {
    form.shpPercent[1].Width = form.shpPercent[5].Width = 0;
    std::string text;
    for (const AccessibleControl& each : AccessibleControls(velora))
        text += Joined(each.ControlName, " ", int(each.Role), " ", each.Name, " ",
                       each.Help.substr(0, 16), " ", each.Value, " of ", each.Most, " at ",
                       TextOf(each.Place), "; ");
    EXPECT_EQ(
        text,
        "picVolume 1 Volume ..:: wave volume 3 of 7 at 15,57-35,157; picPlay 0 Play  0 of 0 at "
        "15,17-45,37; picPause 0 Pause  0 of 0 at 30,22-60,42; picBackward 0 Previous ..:: backwar"
        "d in 0 of 0 at 95,17-125,37; picForward 0 Next ..:: forward tra 0 of 0 at 135,17-165,37; "
        "picPlaylist 0 Playlist  0 of 0 at 175,17-205,37; picEject 0 Open ..:: select file 0 of 0 "
        "at 215,17-245,37; shpPercent 2 Progress  3 of 13 at 105,71-298,92; lblStatusLabel 3 "
        "Ready  0 "
        "of 0 at 105,107-185,122; lblFilescroll 3 Title  0 of 0 at 165,107-245,122; ");
    form.picBackground.Visible = false;
    EXPECT_TRUE(AccessibleControls(velora).empty());
}

TEST_F(Layers, APlayButtonIsCalledByItsPicture) {
    for (const PicturePtr& picture :
         {form.picStop1.Picture, form.picStop2.Picture, form.picPlay2.Picture}) {
        form.picPlay.Picture = picture;
        EXPECT_EQ(AccessibleName("picPlay"), picture == form.picPlay2.Picture ? u"Play" : u"Stop");
    }
    form.picPlay.Picture = form.picStop1.Picture = nullptr;
    EXPECT_EQ(AccessibleName("picPlay"), u"Play") << "no picture isn't the stop picture";
}

TEST_F(Layers, TheTitleStaysWhileItsTextRunsAndIsNeverLong) {
    const Text start(999, u'a');
    velora.MediaList[1].File = start + u"\U0001F319b";
    form.lblFilescroll.Caption = u"running";
    EXPECT_EQ(AccessibleName("lblFilescroll"), u"Title") << "nothing was started";
    velora.CurrentTrack = 1;
    EXPECT_EQ(AccessibleName("lblFilescroll"), start)
        << "at most 1000 places, and no half of a pair";
    velora.TrackTitle = start + u"cd";
    EXPECT_EQ(AccessibleName("lblFilescroll"), start) << "a title alone is none";
    velora.TrackArtist = start + u"ef";
    EXPECT_EQ(AccessibleName("lblFilescroll"), start + u"c by " + start + u"e");
    form.lblFilescroll.Caption.clear();
    EXPECT_EQ(AccessibleName("lblFilescroll"), u"Title");
}
