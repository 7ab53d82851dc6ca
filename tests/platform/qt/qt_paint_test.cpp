// What the figures of a scene look like, pixel by pixel where a rule says so.
#include <gtest/gtest.h>
#include <limits>

#include "platform/qt/qt_paint.h"
#include "platform/qt/qt_pictures.h"

namespace {

// A form with a black surface of 60 by 40 pixels.
class Paint : public testing::Test {
protected:
    Paint() {
        m_form.picBackground.Left = m_form.picBackground.Top = 0;
        m_form.picBackground.Width = 60;
        m_form.picBackground.Height = 40;
        m_form.picBackground.Visible = true;
        m_form.picVolume.Visible = m_form.lblStatusLabel.Visible = false;
        m_form.VFmp3scope1.Visible = m_form.shpPercent[0].Visible = false;
    }

    QImage Draw(double scale = 1) {
        QImage image(QSize(80, 50) * scale, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(scale);
        image.fill(FormColour());
        QPainter painter(&image);
        const Scene scene = SceneOf(m_form);
        PaintScene(painter, m_fonts, scene, Rect{0, 0, 80, 50});
        return image;
    }

    Shape& Light(ShapeForm form, int width, int height) {
        Shape& light = m_form.shpPercent[1];
        light.Exists = light.Visible = true;
        light.Form = form;
        light.Left = light.Top = 10;
        light.Width = width;
        light.Height = height;
        light.FillColour = 0x00FFFF;
        light.BorderColour = 0x0000FF;
        return light;
    }

    static PicturePtr Plain(QColor colour, int widthPx, int heightPx) {
        QImage image(widthPx, heightPx, QImage::Format_ARGB32_Premultiplied);
        image.fill(colour);
        return std::make_shared<QtPicture>(image);
    }

    Form m_form;
    QtFonts m_fonts;
};

const QColor kYellow(255, 255, 0), kRed(255, 0, 0), kBlack(0, 0, 0);

} // namespace

TEST_F(Paint, TheSurfaceIsBlackBeneathItsPictureAndTheFormHasItsOwnColour) {
    SetPicture(m_form.picBackground, Plain(Qt::transparent, 30, 20));
    const QImage image = Draw();
    EXPECT_EQ(image.pixelColor(29, 19), kBlack);
    EXPECT_EQ(image.pixelColor(30, 19), QColor(58, 110, 165));
}

TEST_F(Paint, ChildrenEndAtTheirContainersEdge) {
    SetPicture(m_form.picPlay, Plain(Qt::green, 30, 10));
    m_form.picPlay.Visible = true;
    m_form.picPlay.Left = 50;
    m_form.picPlay.Top = 5;
    const QImage image = Draw();
    EXPECT_EQ(image.pixelColor(59, 5), QColor(Qt::green));
    EXPECT_EQ(image.pixelColor(60, 5), QColor(58, 110, 165));
}

TEST_F(Paint, AtAWholeScaleAPixelIsASquareOfPixels) {
    QImage dot(2, 1, QImage::Format_ARGB32_Premultiplied);
    dot.setPixelColor(0, 0, Qt::green);
    dot.setPixelColor(1, 0, Qt::blue);
    m_form.picPlay.Visible = true;
    m_form.picPlay.Left = m_form.picPlay.Top = 3;
    SetPicture(m_form.picPlay, std::make_shared<QtPicture>(dot));
    const QImage image = Draw(3);
    for (int x = 9; x < 12; ++x)
        EXPECT_EQ(image.pixelColor(x, 11), QColor(Qt::green)) << x;
    EXPECT_EQ(image.pixelColor(12, 9), QColor(Qt::blue));
}

TEST_F(Paint, LightsHaveTheirBorderInsideTheRectangle) {
    Light(ShapeForm::Rectangle, 12, 8);
    const QImage image = Draw();
    EXPECT_EQ(image.pixelColor(9, 10), kBlack);
    EXPECT_EQ(image.pixelColor(10, 10), kRed);
    EXPECT_EQ(image.pixelColor(21, 17), kRed);
    EXPECT_EQ(image.pixelColor(22, 17), kBlack);
    EXPECT_EQ(image.pixelColor(11, 11), kYellow);
}

TEST_F(Paint, SquareFormsKeepTheirSidesEqualAndCentred) {
    Light(ShapeForm::Square, 20, 10);
    QImage image = Draw();
    EXPECT_EQ(image.pixelColor(14, 15), kBlack);
    EXPECT_EQ(image.pixelColor(15, 15), kRed);
    EXPECT_EQ(image.pixelColor(24, 15), kRed);
    EXPECT_EQ(image.pixelColor(25, 15), kBlack);
    Light(ShapeForm::Circle, 20, 10);
    image = Draw();
    EXPECT_EQ(image.pixelColor(20, 15), kYellow);
    EXPECT_EQ(image.pixelColor(15, 10), kBlack) << "a circle leaves its corners";
    EXPECT_EQ(image.pixelColor(12, 15), kBlack);
}

TEST_F(Paint, RoundedFormsLoseTheirCornersOnly) {
    for (const ShapeForm form : {ShapeForm::RoundedRectangle, ShapeForm::Oval}) {
        Light(form, 20, 20);
        const QImage image = Draw();
        EXPECT_NE(image.pixelColor(10, 10), kRed);
        EXPECT_EQ(image.pixelColor(20, 20), kYellow);
    }
}

TEST_F(Paint, ALightWithoutWidthDrawsNothing) {
    const QImage without = Draw();
    Light(ShapeForm::Oval, 0, 10);
    EXPECT_EQ(Draw(), without);
}

TEST_F(Paint, TextStandsOnItsBaselineAndEndsAtTheLabel) {
    m_form.lblStatusLabel.Visible = true;
    m_form.lblStatusLabel.Left = m_form.lblStatusLabel.Top = 10;
    m_form.lblStatusLabel.Width = 20;
    m_form.lblStatusLabel.Height = 14;
    m_form.lblStatusLabel.Caption = u"HHHHHHHHHH";
    const QImage image = Draw();
    QRect ink;
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 60; ++x)
            if (image.pixelColor(x, y) != kBlack) ink |= QRect(x, y, 1, 1);
    EXPECT_EQ(ink.bottom(), 18) << "9 pixels above the baseline belong to the letters";
    EXPECT_GE(ink.top(), 10);
    EXPECT_GE(ink.left(), 10);
    EXPECT_LE(ink.right(), 29);
}

TEST_F(Paint, EveryTitleIsOneLineAndNoWork) {
    Label& title = m_form.lblFilescroll;
    title.Visible = true;
    title.Left = title.Top = 0;
    title.Width = 60;
    title.Height = 12;
    for (Text text :
         {Text(u"a\nb\rc\td\0e", 9), Text(u"\u202Eabc\u2028\u2029"), Text(u"שלום עולם"), Text(1, 0xD800),
          Text(u"\U0001F600\U0001F600"), Text(u"नमस्ते 你好 مرحبا"), Text(100'000, u'\u0301')}) {
        while (text.size() < 10'000)
            text += text;
        title.Caption = text;
        const QImage image = Draw();
        for (int x = 0; x < 60; ++x)
            EXPECT_EQ(image.pixelColor(x, 20), kBlack);
    }
}

TEST_F(Paint, BarsAreYellowWithWhitePeaksOnBlackAtAnySize) {
    m_form.VFmp3scope1.Visible = true;
    m_form.VFmp3scope1.Left = m_form.VFmp3scope1.Top = 0;
    m_form.VFmp3scope1.Width = 48;
    m_form.VFmp3scope1.Height = 30;
    m_form.VFmp3scope1.Bars.Level.fill(0.5F);
    m_form.VFmp3scope1.Bars.Peak.fill(0.8F);
    const QImage image = Draw();
    EXPECT_EQ(image.pixelColor(0, 29), kYellow);
    EXPECT_EQ(image.pixelColor(0, 15), kYellow);
    EXPECT_EQ(image.pixelColor(0, 14), kBlack);
    EXPECT_EQ(image.pixelColor(0, 6), QColor(Qt::white));
    for (const int size : {0, 1, 2, 3, 7, 2000}) {
        m_form.VFmp3scope1.Width = m_form.VFmp3scope1.Height = size;
        (void)Draw();
    }
}

TEST_F(Paint, BarsOfTheLargestWidthReachAcrossAllThatIsSeen) {
    m_form.VFmp3scope1.Visible = true;
    m_form.VFmp3scope1.Left = m_form.VFmp3scope1.Top = 0;
    m_form.VFmp3scope1.Width = std::numeric_limits<Long>::max();
    m_form.VFmp3scope1.Height = 30;
    m_form.VFmp3scope1.Bars.Level.fill(0.5F);
    EXPECT_EQ(Draw().pixelColor(59, 29), kYellow);
}
