// On a screen with more device pixels than skin pixels texts, lights and bars are drawn in device
// pixels. Pictures are scaled: smoothly, but at a whole scale each pixel becomes a sharp square.
#include "platform/qt/qt_paint.h"

#include <algorithm>

#include "platform/qt/qt_colour.h"
#include "platform/qt/qt_pictures.h"
#include "platform/qt/qt_pixels.h"
#include "platform/qt/qt_rect.h"

namespace {

constexpr int kBarPitchPx = 4;

void PaintPicture(QPainter& painter, const Figure& figure) {
    if (figure.Ground) painter.fillRect(ToQRect(figure.Place), Qt::black);
    if (!figure.Picture) return;
    const auto& picture = static_cast<const QtPicture&>(*figure.Picture);
    DrawPixels(painter, QPoint(figure.Place.Left, figure.Place.Top), picture.Image);
}

// The rectangle that a shape fills; for square shapes the square in the middle of it.
QRectF FormRect(const Figure& figure) {
    QRectF rect(ToQRect(figure.Place));
    const bool square = figure.Form == ShapeForm::Square || figure.Form == ShapeForm::Circle ||
                        figure.Form == ShapeForm::RoundedSquare;
    if (!square) return rect;
    const double side = std::min(rect.width(), rect.height());
    return QRectF(rect.center().x() - side / 2, rect.center().y() - side / 2, side, side);
}

void PaintShape(QPainter& painter, const Figure& figure) {
    constexpr double kBorder = 1;
    const QRectF outer = FormRect(figure);
    if (figure.Form == ShapeForm::Rectangle || figure.Form == ShapeForm::Square) {
        painter.fillRect(outer, ToColour(figure.BorderColour));
        const QRectF inner = outer.adjusted(kBorder, kBorder, -kBorder, -kBorder);
        if (inner.isValid()) painter.fillRect(inner, ToColour(figure.Colour));
        return;
    }
    if (outer.width() <= kBorder || outer.height() <= kBorder) {
        painter.fillRect(outer, ToColour(figure.BorderColour));
        return;
    }
    const QRectF middle = outer.adjusted(kBorder / 2, kBorder / 2, -kBorder / 2, -kBorder / 2);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(ToColour(figure.BorderColour), kBorder));
    painter.setBrush(ToColour(figure.Colour));
    const double radius = std::min(outer.width(), outer.height()) / 8;
    if (figure.Form == ShapeForm::Oval || figure.Form == ShapeForm::Circle)
        painter.drawEllipse(middle);
    else
        painter.drawRoundedRect(middle, radius, radius);
}

// The highest of the bands that fall into bar `bar` of `bars`.
float HighestOf(const std::array<float, ScopeBars::kCount>& bands, int bar, int bars) {
    const int first = bar * ScopeBars::kCount / bars;
    const int last = (bar + 1) * ScopeBars::kCount / bars;
    return *std::max_element(bands.begin() + first, bands.begin() + last);
}

void PaintBars(QPainter& painter, const Figure& figure, const ScopeBars& shown) {
    painter.fillRect(ToQRect(figure.Place), Qt::black);
    // 64 bits: a skin may give any width, and it is multiplied below.
    const std::int64_t widthPx = figure.Place.Right - figure.Place.Left;
    const auto heightPx = static_cast<float>(figure.Place.Bottom - figure.Place.Top);
    const int bars =
        static_cast<int>(std::clamp<std::int64_t>(widthPx / kBarPitchPx, 1, ScopeBars::kCount));
    for (int bar = 0; bar < bars; ++bar) {
        const std::int64_t leftPx = figure.Place.Left + bar * widthPx / bars;
        const std::int64_t rightPx = figure.Place.Left + (bar + 1) * widthPx / bars;
        const auto left = static_cast<double>(leftPx);
        const auto barWidth = static_cast<double>(std::max<std::int64_t>(rightPx - leftPx - 1, 1));
        const double level = HighestOf(shown.Level, bar, bars) * heightPx;
        const double peak = HighestOf(shown.Peak, bar, bars) * heightPx;
        painter.fillRect(QRectF(left, figure.Place.Bottom - level, barWidth, level), Qt::yellow);
        if (peak >= 1)
            painter.fillRect(QRectF(left, figure.Place.Bottom - peak, barWidth, 1), Qt::white);
    }
}

void PaintFigure(QPainter& painter, QtLabels& labels, const Scene& scene, const Figure& figure) {
    switch (figure.Kind) {
    case ControlKind::PictureBox:
        PaintPicture(painter, figure);
        break;
    case ControlKind::Label:
        labels.Paint(painter, figure);
        break;
    case ControlKind::Shape:
        PaintShape(painter, figure);
        break;
    case ControlKind::Scope:
        PaintBars(painter, figure, scene.Bars);
        break;
    }
}

} // namespace

QColor FormColour() {
    return QColor(58, 110, 165);
}

void PaintScene(QPainter& painter, QtLabels& labels, const Scene& scene, const Rect& damage) {
    // What lies behind the visualisation needn't be painted for each of its pictures.
    const auto covers = [&](const Figure& figure) {
        const Rect visible = Intersection(figure.Place, figure.Clip);
        return figure.Kind == ControlKind::Scope && Intersection(visible, damage) == damage;
    };
    const auto last = std::find_if(scene.Figures.rbegin(), scene.Figures.rend(), covers);
    if (last == scene.Figures.rend()) painter.fillRect(ToQRect(damage), FormColour());
    const auto first = last == scene.Figures.rend() ? scene.Figures.begin() : last.base() - 1;
    for (auto figure = first; figure != scene.Figures.end(); ++figure) {
        const Rect visible = Intersection(Intersection(figure->Place, figure->Clip), damage);
        if (visible.IsEmpty()) continue;
        painter.save();
        painter.setClipRect(ToQRect(visible), Qt::IntersectClip);
        PaintFigure(painter, labels, scene, *figure);
        painter.restore();
    }
}
