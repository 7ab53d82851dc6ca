// The window's own painting, on images.
#include "platform/qt/qt_sheet.h"

#include <QFile>
#include <QImage>
#include <algorithm>

#include "platform/qt/qt_labels.h"
#include "platform/qt/qt_paint.h"
#include "platform/qt/qt_rect.h"
#include "platform/regions.h"

namespace {

constexpr std::int64_t kMostPixels = 64'000'000;
constexpr int kGapPx = 12, kNamePx = 18, kFontPx = 11, kWidestSheetPx = 1000;

// A label that stands on no form.
Figure NameFigure(const Label& source, const Text& words, const Rect& place, Long colour) {
    Figure figure{};
    figure.Kind = ControlKind::Label;
    figure.Source = &source;
    figure.Place = figure.Clip = place;
    figure.Caption = words;
    figure.FontPx = source.FontPx;
    figure.Colour = colour;
    return figure;
}

QImage EmptyImage(int widthPx, int heightPx) {
    QImage image(widthPx, heightPx, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

QImage Painted(const Scene& scene) {
    QImage image = EmptyImage(scene.Client.Right, scene.Client.Bottom);
    QPainter painter(&image);
    if (scene.Region) {
        QRegion shape;
        for (const Rect& part :
             scene.Region->Rectangles({kFrameLeftPx, kFrameTopPx, kFrameLeftPx + scene.Client.Right,
                                       kFrameTopPx + scene.Client.Bottom}))
            shape += ToQRect(part);
        painter.setClipRegion(shape);
    }
    painter.fillRect(image.rect(), FormColour());
    QtLabels labels;
    PaintScene(painter, labels, scene, scene.Client);
    return image;
}

// All scenes in rows of equal cells, each with its name above it.
QImage Sheet(const std::vector<NamedScene>& scenes) {
    std::int64_t widthPx = 0, heightPx = 0;
    for (const NamedScene& scene : scenes) {
        widthPx = std::max<std::int64_t>(widthPx, scene.Shown.Client.Right + kGapPx);
        heightPx = std::max<std::int64_t>(heightPx, scene.Shown.Client.Bottom + kGapPx + kNamePx);
    }
    const auto count = static_cast<std::int64_t>(scenes.size());
    const std::int64_t columns = std::clamp<std::int64_t>(kWidestSheetPx / widthPx, 1, count);
    const std::int64_t rows = (count + columns - 1) / columns;
    if ((columns * widthPx + kGapPx) * (rows * heightPx + kGapPx) > kMostPixels) return {};
    QImage sheet = EmptyImage(static_cast<int>(columns * widthPx + kGapPx),
                              static_cast<int>(rows * heightPx + kGapPx));
    sheet.fill(QColor(214, 212, 206));
    QPainter painter(&sheet);
    QtLabels labels;
    Label name;
    name.FontPx = kFontPx;
    for (std::int64_t at = 0; at < count; ++at) {
        const NamedScene& scene = scenes[static_cast<std::size_t>(at)];
        const auto left = static_cast<int>(at % columns * widthPx + kGapPx);
        const auto top = static_cast<int>(at / columns * heightPx + kGapPx);
        const Rect above{left, top, left + static_cast<int>(widthPx) - kGapPx, top + kNamePx};
        labels.Paint(painter, NameFigure(name, scene.Name, above, 0));
        painter.drawImage(left, top + kNamePx, Painted(scene.Shown));
    }
    return sheet;
}

} // namespace

bool SavePicture(const std::vector<NamedScene>& scenes, const std::string& path) {
    if (scenes.empty()) return false;
    const Rect& first = scenes.front().Shown.Client;
    if (std::int64_t{first.Right} * first.Bottom > kMostPixels) return false;
    const QImage image = scenes.size() == 1 ? Painted(scenes.front().Shown) : Sheet(scenes);
    return !image.isNull() && image.save(QFile::decodeName(path.c_str()), "PNG");
}

Rect InkOf(const Text& words, int fontPx) {
    constexpr int kMostPx = 2000;
    QImage image = EmptyImage(kMostPx, 3 * fontPx);
    QPainter painter(&image);
    QtLabels labels;
    Label label;
    label.FontPx = fontPx;
    labels.Paint(painter, NameFigure(label, words, {0, 0, image.width(), image.height()}, 0));
    painter.end();
    Rect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) > 0) ink = Enclosing(ink, {0, 0, x + 1, y + 1});
    return ink;
}
