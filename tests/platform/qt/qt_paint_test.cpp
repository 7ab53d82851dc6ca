// What the figures of a scene look like, pixel by pixel where a rule says so.
#include "platform/qt/qt_paint.h"

#include <limits>

#include "qt_fixture.h"

namespace {

// A form with a black surface of 100 by 40 pixels.
class Paint : public testing::Test {
protected:
    Paint() {
        m_form.picBackground.Left = m_form.picBackground.Top = 0;
        m_form.picBackground.Width = 100;
        m_form.picBackground.Height = 40;
        m_form.picBackground.Visible = true;
        m_form.picVolume.Visible = m_form.lblStatusLabel.Visible = false;
        m_form.VFmp3scope1.Visible = m_form.shpPercent[0].Visible = false;
    }

    QImage Draw(double scale = 1, Rect damage = {0, 0, 120, 50}) {
        QImage image(QSize(120, 50) * scale, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(scale);
        image.fill(FormColour());
        QPainter painter(&image);
        PaintScene(painter, m_fonts, SceneOf(m_form), damage);
        return image;
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
            m_form.VFmp3scope1.Bars.Level[band] = static_cast<float>(band) / ScopeBars::kCount;
            m_form.VFmp3scope1.Bars.Peak[band] =
                static_cast<float>(ScopeBars::kCount - band) / ScopeBars::kCount;
        }
    }

    static void Place(Control& control, Long left, Long top, Long width, Long height) {
        control.Visible = true;
        control.Left = left;
        control.Top = top;
        control.Width = width;
        control.Height = height;
    }

    static void Show(PictureBox& box, Long left, Long top, const PicturePtr& picture) {
        Place(box, left, top, 0, 0);
        SetPicture(box, picture);
    }

    Form m_form;
    QtFonts m_fonts;
};

// Each pixel as a letter: the form's ground, black, the colours of the tests by their initials, 1 to 4 for
// red on black by its strength, and for any other mixture a question mark.
char Letter(QColor colour) {
    const std::pair<QColor, char> letters[] = {
        {FormColour(), '_'},        {Qt::black, '.'}, {Qt::red, 'R'},   {QColor(0x56, 0x34, 0x12), 'f'},
        {QColor(255, 255, 0), 'Y'}, {Qt::white, 'W'}, {Qt::green, 'G'}, {Qt::blue, 'B'}};
    for (const auto& [known, letter] : letters)
        if (colour == QColor(known)) return letter;
    return colour.green() == 0 && colour.blue() == 0 ? static_cast<char>('1' + colour.red() / 64) : '?';
}

std::string Letters(const QImage& image, QRect part) {
    std::string letters;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x)
            letters += Letter(image.pixelColor(x, y));
        letters += "\n";
    }
    return letters;
}

// The rectangle of all that isn't black.
QRect Ink(const QImage& image) {
    QRect ink;
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 100; ++x)
            if (image.pixelColor(x, y) != QColor(Qt::black)) ink |= QRect(x, y, 1, 1);
    return ink;
}

} // namespace

TEST_F(Paint, PicturesLieOnTheBlackSurfaceInsideItsEdgesAtEachScale) {
    Show(m_form.picBackground, 0, 0,
         Dots({Qt::transparent, Qt::green, Qt::red, Qt::transparent, Qt::transparent}));
    Show(m_form.picPlay, 3, 0, Dots({Qt::blue, Qt::red, Qt::green}));
    EXPECT_EQ(Letters(Draw(), {0, 0, 7, 2}), ".GRBR__\n_______\n");
    EXPECT_EQ(Letters(Draw(3), {0, 2, 21, 2}), "...GGGRRRBBBRRR______\n_____________________\n");
    EXPECT_NE(Letters(Draw(1.5), {0, 0, 8, 1}).find('?'), std::string::npos) << "smooth between whole scales";
}

TEST_F(Paint, OnlyTheDamageIsPaintedAndAllOfItFromBackToFront) {
    Place(m_form.lblStatusLabel, 50, 0, 9, 9);
    m_form.lblStatusLabel.Caption = u"x";
    Show(m_form.picPlay, 3, 0, Dots({Qt::blue, Qt::red, Qt::green}));
    Show(m_form.picEject, 4, 0, Dots({Qt::green, Qt::green, Qt::green}));
    EXPECT_EQ(Letters(Draw(1, {2, 0, 6, 1}), {0, 0, 8, 2}), "__.BRG__\n________\n");
}

TEST_F(Paint, LightsHaveTheirBorderInsideTheirForm) {
    for (int index = 0; index < 6; ++index) {
        Shape& light = m_form.shpPercent[static_cast<std::size_t>(index + 1)];
        light.Exists = true;
        light.Form = static_cast<ShapeForm>(index);
        light.FillColour = 0x123456;
        light.BorderColour = 0x0000FF;
        Place(light, 1 + 15 * index, 1, 14, 12);
    }
    EXPECT_EQ(
        Letters(Draw(), {0, 0, 91, 14}),
        "...........................................................................................\n"
        ".RRRRRRRRRRRRRR..RRRRRRRRRRRR.....1??????1........??????.....1?RRRRRRRRRR?1..1?RRRRRRRR?1..\n"
        ".RffffffffffffR..RffffffffffR....????????4?......????????....??ffffffffff??..??ffffffff??..\n"
        ".RffffffffffffR..RffffffffffR...??ffffffff??....??ffffff??...RffffffffffffR..RffffffffffR..\n"
        ".RffffffffffffR..RffffffffffR..1?ffffffffff?1..??ffffffff??..RffffffffffffR..RffffffffffR..\n"
        ".RffffffffffffR..RffffffffffR..??ffffffffff??..??ffffffff??..RffffffffffffR..RffffffffffR..\n"
        ".RffffffffffffR..RffffffffffR..??ffffffffff??..??ffffffff??..RffffffffffffR..RffffffffffR..\n"
        ".RffffffffffffR..RffffffffffR..??ffffffffff??..??ffffffff??..RffffffffffffR..RffffffffffR..\n"
        ".RffffffffffffR..RffffffffffR..??ffffffffff??..??ffffffff??..RffffffffffffR..RffffffffffR..\n"
        ".RffffffffffffR..RffffffffffR..1?ffffffffff?1..??ffffffff??..RffffffffffffR..RffffffffffR..\n"
        ".RffffffffffffR..RffffffffffR...??ffffffff??....??ffffff??...RffffffffffffR..RffffffffffR..\n"
        ".RffffffffffffR..RffffffffffR....?4??????R?......????????....??ffffffffff??..??ffffffff??..\n"
        ".RRRRRRRRRRRRRR..RRRRRRRRRRRR.....1??????.........??????.....1?RRRRRRRRRR?1..1?RRRRRRRR?1..\n"
        "...........................................................................................\n");
    for (Shape& light : m_form.shpPercent)
        light.Width = 0;
    EXPECT_TRUE(Ink(Draw()).isNull()) << "without a width nothing is drawn";
}

TEST_F(Paint, BarsAreTheHighestOfTheirBandsWithPeaksAboveThem) {
    Scope(21, 8);
    EXPECT_EQ(Letters(Draw(), {1, 0, 23, 10}), ".......................\n"
                                               ".WWW.............YYYY..\n"
                                               ".................YYYY..\n"
                                               ".....WWW.....YYY.YYYY..\n"
                                               ".........WWW.YYY.YYYY..\n"
                                               ".........YYY.YYY.YYYY..\n"
                                               ".....YYY.YYY.WWW.YYYY..\n"
                                               ".....YYY.YYY.YYY.WWWW..\n"
                                               ".YYY.YYY.YYY.YYY.YYYY..\n"
                                               ".......................\n");
    const std::pair<Long, const char*> narrow[] = {
        {1, "W..\n"}, {3, "WW.\n"}, {7, "WWWWWW.\n"}, {8, "WWW.YYY.\n"}};
    for (const auto& [widthPx, row] : narrow) {
        Scope(widthPx, 8);
        EXPECT_EQ(Letters(Draw(), {2, 1, std::max<int>(widthPx, 3), 1}), row) << widthPx;
    }
    Scope(std::numeric_limits<Long>::max(), 30);
    EXPECT_EQ(Letters(Draw(), {99, 1, 2, 1}), "W_\n") << "as far as it is seen";
}

TEST_F(Paint, TextStandsOnItsBaselineAndEndsAtTheLabel) {
    const struct { int FontPx, BottomPx; } rows[] = {{9, 16}, {10, 18}, {11, 18}};
    for (const auto& row : rows) {
        const QImage image = Write(u"HHHHHHHHHHHH", row.FontPx);
        const QRect ink = Ink(image);
        EXPECT_EQ(ink.bottom(), row.BottomPx);
        EXPECT_TRUE(QRect(10, 10, 40, 14).contains(ink));
        EXPECT_GE(ink.right(), 48);
        EXPECT_EQ(Letters(image, ink).find_first_of("?_"), std::string::npos) << "red and nothing else";
    }
    EXPECT_EQ(Write(u"Hx", 10), Write(u"Hx", 11));
}

TEST_F(Paint, ATextIsOneLineFromTheLeftWithoutControlCharacters) {
    const std::pair<Text, Text> rows[] = {
        {u"a\nb\rc", u"a b c"}, {u"a\x1F.", u"a ."},   {u"a\x7F.", u"a ."},    {u"a\x9F.", u"a ."},
        {u"a\u2028.", u"a ."},  {u"a\u2029.", u"a ."}, {u"a\uF05C.", u"a\\."}, {u"\u05D0!", u"\u200E\u05D0!"},
    };
    for (const auto& [text, same] : rows)
        EXPECT_EQ(Write(text), Write(same)) << QString::fromStdU16String(text).toStdString();
    for (const char16_t seen : {u'!', u'~', u'\u00A1'})
        EXPECT_NE(Write(Text(u"a") + seen), Write(u"a")) << static_cast<int>(seen);
}

TEST_F(Paint, NoTitleIsWork) {
    for (Text text : {Text(u"\u202Eabc\u2028\u2029"), Text(u"שלום עולם"), Text(1, 0xD800),
                      Text(u"\U0001F600\U0001F600"), Text(u"नमस्ते 你好 مرحبا"), Text(100'000, u'\u0301')}) {
        while (text.size() < 10'000)
            text += text;
        EXPECT_LE(Ink(Write(text)).bottom(), 23);
    }
}

TEST_F(Paint, TheFaceIsOneInTwoSizes) {
    const QFont small = m_fonts.FontOf(9), large = m_fonts.FontOf(10);
    EXPECT_EQ(small.pixelSize(), 9);
    EXPECT_EQ(large.pixelSize(), 11);
    EXPECT_EQ(m_fonts.FontOf(11), large);
    for (const QFont& font : {small, large}) {
        EXPECT_TRUE(font.family() == "Tahoma" || font.family() == "Liberation Sans")
            << font.family().toStdString();
        EXPECT_EQ(font.hintingPreference(), QFont::PreferVerticalHinting);
        EXPECT_TRUE(font.styleStrategy() & QFont::NoSubpixelAntialias);
    }
}
