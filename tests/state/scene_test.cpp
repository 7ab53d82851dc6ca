// The controls over one another: what is drawn, what takes the mouse, and what a change damages.
#include <gtest/gtest.h>

#include <limits>

#include "state/scene.h"
#include "support/form_text.h"

namespace {

constexpr Long kMost = std::numeric_limits<Long>::max();

void Place(Control& control, Long left, Long top, Long width, Long height) {
    control.Visible = true;
    control.Left = left;
    control.Top = top;
    control.Width = width;
    control.Height = height;
}

PicturePtr NewPicture(const char* name, int widthPx = 30, int heightPx = 20) {
    return std::make_shared<NamedPicture>(widthPx, heightPx, name);
}

// A surface of 300 by 150 at (5, 7) whose right edge cuts the bars, with a light that isn't made behind two
// that are, and buttons that lie over each other.
struct DressedForm : Form {
    DressedForm() {
        SetPicture(picBackground, NewPicture("ground", 300, 150));
        Place(picBackground, 5, 7, 300, 150);
        SetPicture(picPlay, NewPicture("play"));
        Place(picPlay, 10, 10, 30, 20);
        SetPicture(picPause, NewPicture("pause"));
        Place(picPause, 25, 15, 30, 20);
        Place(picEject, 210, 10, 40, 20);
        Place(picVolume, 260, 10, 9, 20);
        Place(lblFilescroll, 20, 100, 90, 12);
        lblFilescroll.Caption = u"title";
        Place(lblStatusLabel, 100, 95, 80, 15);
        Place(VFmp3scope1, 170, 90, 150, 30);
        Place(shpPercent[0], 20, 60, 8, 9);
        Place(shpPercent[1], 30, 60, 8, 9);
        shpPercent[1].Exists = true;
        shpPercent[1].Form = ShapeForm::Circle;
        shpPercent[1].FillColour = 0x11;
        shpPercent[1].BorderColour = 0x22;
        Place(shpPercent[3], 40, 60, 8, 9);
    }
};

std::string TextOf(const Rect& rect) {
    return Joined(rect.Left, ",", rect.Top, "-", rect.Right, ",", rect.Bottom);
}

std::string FiguresOf(const Form& form) {
    std::string text;
    for (const Figure& figure : SceneOf(form).Figures)
        text += Joined(figure.Source->Name, " ", TextOf(figure.Place), " in ", TextOf(figure.Clip), " ",
                       NameOf(figure.Picture), figure.Ground ? " ground" : "", " ", figure.Caption, " ",
                       figure.FontPx, " ", std::hex, figure.Colour, " ", figure.BorderColour, " ",
                       int(figure.Kind), int(figure.Form), "; ");
    return text;
}

} // namespace

TEST(Scene, HasWhatShowsFromBackToFront) {
    DressedForm form;
    EXPECT_EQ(FiguresOf(form), "picBackground 5,7-305,157 in 5,7-305,157 ground ground  0 0 0 02; "
                               "lblFilescroll 25,107-115,119 in 5,7-305,157 - title 9 80ffff 0 12; "
                               "lblStatusLabel 105,102-185,117 in 5,7-305,157 - Ready 11 80ffff 0 12; "
                               "shpPercent 35,67-43,76 in 5,7-305,157 -  0 11 22 23; "
                               "shpPercent 25,67-33,76 in 5,7-305,157 -  0 0 0 22; "
                               "VFmp3scope1 175,97-325,127 in 5,7-305,157 -  0 0 0 32; "
                               "picPause 30,22-60,42 in 5,7-305,157 pause  0 0 0 02; "
                               "picPlay 15,17-45,37 in 5,7-305,157 play  0 0 0 02; ");
    form.picBackground.Visible = false;
    EXPECT_EQ(FiguresOf(form), "");
}

TEST(ControlAt, FindsTheFrontmostInsideItsSurface) {
    DressedForm form;
    const auto hits = [&](std::initializer_list<std::pair<int, int>> places) {
        std::string names;
        for (const auto& [x, y] : places) {
            const Control* control = ControlAt(form, x, y);
            names += Joined(control ? control->Name : "form", " ");
        }
        return names;
    };
    EXPECT_EQ(hits({{4, 8}, {5, 6}, {305, 150}, {300, 157}, {305, 97}}), "form form form form form ");
    EXPECT_EQ(hits({{5, 7}, {304, 156}, {36, 68}}), "picBackground picBackground picBackground ");
    EXPECT_EQ(hits({{15, 17}, {44, 36}, {45, 36}, {44, 37}, {215, 17}, {265, 17}}),
              "picPlay picPlay picPause picPause picEject picVolume ");
    EXPECT_EQ(hits({{175, 97}, {304, 97}, {174, 102}, {105, 107}, {104, 107}}),
              "VFmp3scope1 VFmp3scope1 lblStatusLabel lblStatusLabel lblFilescroll ");
    form.picBackground.Visible = false;
    EXPECT_EQ(hits({{15, 17}}), "form ");
}

TEST(ControlStack, TakesAbsurdNumbersWithoutHarm) {
    DressedForm form;
    form.Width = 7 * kTwipsPerPixel;
    form.Height = -kMost;
    EXPECT_EQ(TextOf(ClientArea(form)), "0,0-1,1");
    form.Width = form.Height = kMost;
    EXPECT_EQ(TextOf(ClientArea(form)), "0,0-143165570,143165551");
    Place(form.picBackground, 3, kMost, 1, kMost);
    Place(form.lblStatusLabel, kMost, 1, kMost, 1);
    Place(form.lblFilescroll, -kMost, 0, -5, -5);
    const std::vector<StackedControl> stack = ControlStack(form);
    EXPECT_EQ(TextOf(stack[1].Place), "-2147483644,2147483647--2147483644,2147483647");
    EXPECT_EQ(TextOf(stack[2].Place), "2147483647,2147483647-2147483647,2147483647");
    EXPECT_TRUE(SceneOf(form).Figures.empty());
}

TEST(Damage, IsTheOldAndTheNewPlaceOfWhatChanged) {
    struct Row {
        const char* Name;
        void (*Change)(Form& form);
        std::string Damage; ///< Against the row before.
    };
    const Row rows[] = {
        {"a tick of the title", [](Form& f) { f.lblFilescroll.Caption = u"itlet"; }, "25,107-115,119 "},
        {"an empty title", [](Form& f) { f.lblFilescroll.Caption.clear(); }, "25,107-115,119 "},
        {"it is back", [](Form& f) { f.lblFilescroll.Caption = u"t"; }, "25,107-115,119 "},
        {"a hidden button", [](Form& f) { f.picPlay.Visible = false; }, "15,17-45,37 "},
        {"it is back", [](Form& f) { f.picPlay.Visible = true; }, "15,17-45,37 "},
        {"a moved one", [](Form& f) { f.picPlay.Left = 50; }, "15,17-45,37 55,17-85,37 "},
        {"another picture, as large", [](Form& f) { SetPicture(f.picPlay, NewPicture("play")); },
         "55,17-85,37 "},
        {"bars, cut at the surface", [](Form& f) { f.VFmp3scope1.Bars.Peak[3] = 0.5F; }, "175,97-305,127 "},
        {"bars and a button", [](Form& f) { f.VFmp3scope1.Bars.Level[3] = float(f.picPause.Top = 16); },
         "175,97-305,127 30,22-60,42 30,23-60,43 "},
        {"no light, no bars", [](Form& f) { f.shpPercent[1].Exists = f.VFmp3scope1.Visible = false; },
         "35,67-43,76 175,97-305,127 "},
        {"bars that nobody sees", [](Form& f) { f.VFmp3scope1.Bars.Level[3] = 0.7F; }, ""},
        {"a smaller surface", [](Form& f) { f.picBackground.Width = 90; },
         "5,7-305,157 5,7-95,157 25,107-115,119 25,107-95,119 105,102-185,117 25,67-33,76 25,67-33,76 "
         "30,23-60,43 30,23-60,43 55,17-85,37 55,17-85,37 "},
        {"no surface", [](Form& f) { f.picBackground.Visible = false; },
         "5,7-95,157 25,107-95,119 25,67-33,76 30,23-60,43 55,17-85,37 "},
    };
    DressedForm form;
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
