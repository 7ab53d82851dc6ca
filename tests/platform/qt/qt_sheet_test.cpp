// Scenes as PNG files, without a window.
#include "platform/qt/qt_sheet.h"

#include <QImage>
#include <gtest/gtest.h>

#include "platform/regions.h"
#include "support/temp_directory.h"

namespace {

// A form of 40 x 20 pixels with nothing on it, of which a shape shows a part.
Scene BareScene(std::shared_ptr<const Region> shape) {
    Form form;
    form.Width = (40 + kFrameLeftPx + kFrameRightPx) * kTwipsPerPixel;
    form.Height = (20 + kFrameTopPx + kFrameBottomPx) * kTwipsPerPixel;
    form.Region = std::move(shape);
    return SceneOf(form);
}

} // namespace

TEST(QtSheet, OneSceneIsTransparentOutsideOfItsShapeAndSeveralHaveNames) {
    const TempDirectory directory;
    Region part;
    const RowSpan span{kFrameLeftPx + 10, kFrameLeftPx + 20};
    part.Append(kFrameTopPx + 5, kFrameTopPx + 8, {&span, 1});
    const auto shape = std::make_shared<const Region>(part);
    const auto saved = [&](const std::vector<NamedScene>& scenes, const char* name) {
        EXPECT_TRUE(SavePicture(scenes, directory.Path(name)));
        return QImage(QString::fromStdString(directory.Path(name)));
    };
    const QImage one = saved({{u"one", BareScene(shape)}}, "one.png");
    ASSERT_EQ(one.size(), QSize(40, 20));
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 40; ++x)
            EXPECT_EQ(qAlpha(one.pixel(x, y)), x >= 10 && x < 20 && y >= 5 && y < 8 ? 255 : 0);
    const QImage named = saved({{u"one", BareScene(nullptr)}, {u"", BareScene(nullptr)}}, "2.png");
    int dark = 0, darkRight = 0;
    for (int y = 0; y < 28; ++y)
        for (int x = 0; x < named.width(); ++x)
            if (qGray(named.pixel(x, y)) < 40) ++(x < named.width() / 2 ? dark : darkRight);
    EXPECT_GT(dark, 10) << "the name above the first";
    EXPECT_EQ(darkRight, 0);
    EXPECT_FALSE(SavePicture({}, directory.Path("none.png")));
    EXPECT_FALSE(SavePicture({{u"", BareScene(shape)}}, directory.Path("no/one.png")));
}

TEST(QtSheet, InkIsAsHighAndWideAsTheLettersReach) {
    EXPECT_TRUE(InkOf(u" ", 11).IsEmpty());
    EXPECT_EQ(InkOf(u"Ready", 11).Bottom, InkOf(u"gy", 11).Bottom);
    EXPECT_LT(InkOf(u"Rad", 11).Bottom, InkOf(u"gy", 11).Bottom);
    EXPECT_LT(InkOf(u"gy", 9).Bottom, InkOf(u"gy", 11).Bottom);
    EXPECT_LT(InkOf(u"gy", 11).Right, InkOf(u"gyg", 11).Right);
}
