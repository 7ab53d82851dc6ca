// What the figures of a scene look like, pixel by pixel where a rule says so.
#include "platform/qt/qt_paint.h"

#include "qt_fixture.h"

namespace {

// A form with a black surface of 100 by 40 pixels.
class Paint : public testing::Test {
protected:
    Paint() {
        Place(m_form.picBackground, 0, 0, 100, 40);
        m_form.picVolume.Visible = m_form.lblStatusLabel.Visible = false;
        m_form.VFmp3scope1.Visible = m_form.shpPercent[0].Visible = false;
    }

    QImage Draw(QtLabels& labels, double scale = 1, Rect damage = {0, 0, 120, 50}) {
        QImage image(QSize(120, 50) * scale, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(scale);
        image.fill(FormColour());
        QPainter painter(&image);
        PaintScene(painter, labels, SceneOf(m_form), damage);
        return image;
    }
    QImage Draw(double scale = 1, Rect damage = {0, 0, 120, 50}) {
        return Draw(m_labels, scale, damage);
    }

    // A label at 10,10 with these words.
    QImage Write(Text words, int fontPx = 11) {
        Label& label = m_form.lblStatusLabel;
        Place(label, 10, 10, 40, 14);
        label.Caption = std::move(words);
        label.FontPx = fontPx;
        label.ForeColour = 0x0000FF;
        return Draw();
    }

    void Scope(Long widthPx, Long heightPx) {
        Place(m_form.VFmp3scope1, 2, 1, widthPx, heightPx);
        for (std::size_t band = 0; band < ScopeBars::kCount; ++band) {
            const float share = float(band) / ScopeBars::kCount;
            m_form.VFmp3scope1.Bars.Level[band] = share;
            m_form.VFmp3scope1.Bars.Peak[band] = 1 - share;
        }
    }

    static void Place(Control& control, Long left, Long top, Long width, Long height) {
        control.Visible = true;
        std::tie(control.Left, control.Top, control.Width, control.Height) =
            std::tuple(left, top, width, height);
    }

    static void Show(PictureBox& box, Long left, Long top, const PicturePtr& picture) {
        Place(box, left, top, 0, 0);
        SetPicture(box, picture);
    }

    Form m_form;
    QtLabels m_labels;
};

// Each pixel as a letter: the form's ground, black, the colours of the tests by their initials, 1
// to 4 for red on black by its strength, and for any other mixture a question mark.
char Letter(QColor colour) {
    const std::pair<QColor, char> letters[] = {{FormColour(), '_'},
                                               {Qt::black, '.'},
                                               {Qt::red, 'R'},
                                               {QColor(0x56, 0x34, 0x12), 'f'},
                                               {QColor(255, 255, 0), 'Y'},
                                               {Qt::white, 'W'},
                                               {Qt::green, 'G'},
                                               {Qt::blue, 'B'}};
    for (const auto& [known, letter] : letters)
        if (colour == QColor(known)) return letter;
    return colour.green() == 0 && colour.blue() == 0 ? char('1' + colour.red() / 64) : '?';
}

std::string Shown(const QImage& image, QRect part) {
    std::string letters;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x)
            letters += Letter(image.pixelColor(x, y));
        letters += "\n";
    }
    return letters;
}

} // namespace

TEST_F(Paint, PicturesLieOnTheBlackSurfaceAtEachScaleAndOnlyTheDamageIsPainted) {
    Show(m_form.picBackground, 0, 0,
         Dots({Qt::transparent, Qt::green, Qt::red, Qt::transparent, Qt::transparent}));
    Show(m_form.picPlay, 3, 0, Dots({Qt::blue, Qt::red, Qt::green}));
    EXPECT_EQ(Shown(Draw(), {0, 0, 7, 2}), ".GRBR__\n_______\n");
    EXPECT_EQ(Shown(Draw(3), {0, 2, 21, 2}), "...GGGRRRBBBRRR______\n_____________________\n");
    EXPECT_NE(Shown(Draw(1.5), {0, 0, 8, 1}).find('?'), std::string::npos)
        << "smooth between whole scales";
    Place(m_form.lblStatusLabel, 50, 0, 9, 9);
    Show(m_form.picEject, 4, 0, Dots({Qt::green, Qt::green, Qt::green}));
    EXPECT_EQ(Shown(Draw(1, {2, 0, 6, 1}), {0, 0, 8, 2}), "__RBR___\n________\n")
        << "from back to front";
}

TEST_F(Paint, LightsHaveTheirBorderInsideTheirForm) {
    for (int index = 0; index < 6; ++index) {
        Shape& light = m_form.shpPercent[std::size_t(index + 1)];
        light.Exists = true;
        light.Form = static_cast<ShapeForm>(index);
        light.FillColour = 0x123456;
        light.BorderColour = 0x0000FF;
        Place(light, 1 + 13 * index, 1, 12, 8);
    }
    EXPECT_EQ(Shown(Draw(), {0, 0, 79, 10}),
              "...............................................................................\n"
              ".RRRRRRRRRRRR...RRRRRRRR.....1??????1.......????.....??RRRRRRRR??...??RRRR??...\n"
              ".RffffffffffR...RffffffR....??????????.....??????....?ffffffffff?...?ffffff?...\n"
              ".RffffffffffR...RffffffR...??ffffffff??...??ffff??...RffffffffffR...RffffffR...\n"
              ".RffffffffffR...RffffffR...??ffffffff??...??ffff??...RffffffffffR...RffffffR...\n"
              ".RffffffffffR...RffffffR...??ffffffff??...??ffff??...RffffffffffR...RffffffR...\n"
              ".RffffffffffR...RffffffR...??ffffffff??...??ffff??...RffffffffffR...RffffffR...\n"
              ".RffffffffffR...RffffffR....??????????.....??????....?ffffffffff?...?ffffff?...\n"
              ".RRRRRRRRRRRR...RRRRRRRR.....1??????1.......????.....??RRRRRRRR??...??RRRR??...\n"
              "...............................................................................\n");
}

TEST_F(Paint, LightsOfOneAndTwoPixelsAreTheirBorder) {
    const struct {
        ShapeForm Form;
        int WidthPx, HeightPx;
    } rows[] = {{ShapeForm::Rectangle, 1, 1},
                {ShapeForm::Oval, 1, 1},
                {ShapeForm::Square, 2, 2},
                {ShapeForm::Rectangle, 1, 3},
                {ShapeForm::Oval, 1, 3}};
    Integer number = 0;
    for (const auto& row : rows) {
        Shape& light = m_form.shpPercent[++number];
        light.Exists = true;
        light.Form = row.Form;
        light.FillColour = 0x123456;
        light.BorderColour = 0x0000FF;
        Place(light, 3 * number - 2, 1, row.WidthPx, row.HeightPx);
    }
    EXPECT_EQ(Shown(Draw(), {0, 0, 16, 5}), "................\n"
                                            ".R..R..RR.R..R..\n"
                                            ".......RR.R..R..\n"
                                            "..........R..R..\n"
                                            "................\n");
}

TEST_F(Paint, BarsAreTheHighestOfTheirBandsWithPeaksAboveThem) {
    Scope(21, 8);
    EXPECT_EQ(Shown(Draw(), {1, 1, 23, 8}), ".WWW.............YYYY..\n"
                                            ".................YYYY..\n"
                                            ".....WWW.....YYY.YYYY..\n"
                                            ".........WWW.YYY.YYYY..\n"
                                            ".........YYY.YYY.YYYY..\n"
                                            ".....YYY.YYY.WWW.YYYY..\n"
                                            ".....YYY.YYY.YYY.WWWW..\n"
                                            ".YYY.YYY.YYY.YYY.YYYY..\n");
    for (const auto& [widthPx, row] : {std::pair<Long, const char*>(1, "W..\n"),
                                       {3, "WW.\n"},
                                       {7, "WWWWWW.\n"},
                                       {8, "WWW.YYY.\n"}}) {
        Scope(widthPx, 8);
        EXPECT_EQ(Shown(Draw(), {2, 1, std::max<int>(widthPx, 3), 1}), row) << widthPx;
    }
    Scope(std::numeric_limits<Long>::max(), 30);
    EXPECT_EQ(Shown(Draw(), {99, 1, 2, 1}), "W_\n") << "as far as it is visible";
}

TEST_F(Paint, TextStandsOnItsBaselineInOneFaceOfTwoSizesAndEndsAtTheLabel) {
    const struct {
        int AskedPx, SizePx, BottomPx;
    } rows[] = {{9, 9, 18}, {10, 11, 20}, {11, 11, 20}};
    for (const auto& row : rows) {
        const QImage image = Write(u"HHHHHHHHHHHH", row.AskedPx);
        const std::string letters = Shown(image, {0, 0, 100, 40});
        EXPECT_EQ(letters.find_last_not_of(".\n") / 101, row.BottomPx);
        EXPECT_EQ(letters.find_first_of("?_"), std::string::npos) << "red and nothing else";
        EXPECT_EQ(Shown(image, {50, 0, 50, 40}).find_first_not_of(".\n"), std::string::npos);
        QtFonts fonts;
        const QFont& font = fonts.FontOf(row.AskedPx);
        EXPECT_EQ(font.pixelSize(), row.SizePx);
        EXPECT_TRUE(font.family() == "Tahoma" || font.family() == "Liberation Sans");
        EXPECT_EQ(font.hintingPreference(), QFont::PreferVerticalHinting);
        EXPECT_TRUE(font.styleStrategy() & QFont::NoSubpixelAntialias);
    }
}

TEST_F(Paint, ALetterIsTheFontsOwnPixelsAndWhatThoseLackComesFromTheToolkit) {
    Write(u"\u00C4g");
    EXPECT_EQ(Shown(Draw(), {10, 10, 13, 13}), ".............\n"
                                               ".R..R........\n"
                                               ".............\n"
                                               "..RR.........\n"
                                               "..RR.........\n"
                                               ".R..R...RRRR.\n"
                                               ".R..R..R...R.\n"
                                               ".R..R..R...R.\n"
                                               "RRRRRR.R...R.\n"
                                               "R....R.R...R.\n"
                                               "R....R..RRRR.\n"
                                               "...........R.\n"
                                               "........RRR..\n");
    EXPECT_EQ(Draw(2), Draw().scaled(240, 100)) << "a pixel becomes a square";
    const QImage asIs = Draw().copy(0, 0, 40, 24);
    Place(m_form.lblStatusLabel, 10, 10, 1'000'000, 1'000'000);
    EXPECT_EQ(Draw().copy(0, 0, 40, 24), asIs) << "a skin's label of any size takes little memory";
    EXPECT_NE(Draw(1.5), Draw().scaled(180, 75)) << "smooth between whole scales";
    for (const char16_t* lacking : {u"\u4E2D", u"\u0301", u"\U0001F319"})
        EXPECT_NE(Write(Text(u"e") + lacking + u"x"), Write(u"ex")) << "runs that the font lacks";
    EXPECT_EQ(Letters({"/", __FILE__}).Find(11, 'A'), nullptr) << "no font is in these files";
}

TEST_F(Paint, ATextIsOneLineFromTheLeftWithoutControlCharacters) {
    const std::pair<Text, Text> rows[] = {
        {u"a\nb\rc", u"a b c"}, {u"a\x1F.", u"a ."},
        {u"a\x7F.", u"a ."},    {u"a\x9F.", u"a ."},
        {u"a\u2028.", u"a ."},  {u"a\u2029.", u"a ."},
        {u"a\uF05C.", u"a\\."}, {u"\u05D0!", u"\u200E\u05D0!"},
    };
    for (const auto& [text, same] : rows)
        EXPECT_EQ(Write(text), Write(same)) << QString::fromStdU16String(text).toStdString();
    for (const char16_t seen : {u'!', u'~', u'\u00A1'})
        EXPECT_NE(Write(Text(u"a") + seen), Write(u"a")) << int(seen);
}

TEST_F(Paint, ARunningTextIsMovedToWhatDrawingItAnewWouldShow) {
    // Letters of all widths, some that reach over their own, a piece that the font lacks, and a
    // text that ends inside the label.
    for (Text words : {Text(u"iiWjfAVgT.|\u0416m l'~@\u00C4 a\u5B57b 0123456789"), Text(u"jW f")})
        for (std::size_t turn = 0; turn < 2 * words.size(); ++turn) {
            const QImage moved = Write(words);
            QtLabels fresh;
            EXPECT_EQ(moved, Draw(fresh)) << turn;
            std::rotate(words.begin(), words.begin() + 1, words.end());
        }
}
