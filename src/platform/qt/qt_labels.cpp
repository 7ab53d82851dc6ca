// The strikes need no shaping and no font configuration, which are the dearest part of any other
// text; both are paid for only by a title that has other characters.
#include "platform/qt/qt_labels.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "platform/qt/qt_colour.h"
#include "platform/qt/qt_text.h"

namespace {

// The cell of the original platform: as many pixels above the base line as the size has.
int BaseLinePx(int fontPx) {
    return fontPx <= 9 ? 9 : 11;
}

// The text to draw. Control characters are blanks, and the length is limited by the label's pixels,
// since nobody draws a text of megabytes for a window of some hundred pixels.
Text ShownText(const Figure& figure) {
    Text text =
        figure.Caption.substr(0, static_cast<std::size_t>(figure.Place.Right - figure.Place.Left));
    for (char16_t& letter : text) {
        if (letter < 0x20 || (letter >= 0x7F && letter < 0xA0) || letter == 0x2028 ||
            letter == 0x2029)
            letter = u' ';
        if (letter == 0xF05C) letter = u'\\';
    }
    return text;
}

// Lays a glyph over the picture, at the pen's place on the base line.
void Stamp(QImage& picture, const Glyph& glyph, QPoint pen, QColor colour) {
    for (int y = 0; y < glyph.HeightPx; ++y)
        for (int x = 0; x < glyph.WidthPx; ++x) {
            const QPoint place(pen.x() + glyph.LeftPx + x, pen.y() - glyph.TopPx + y);
            const std::uint8_t coverage =
                glyph.Coverage[static_cast<std::size_t>(y * glyph.WidthPx + x)];
            if (coverage == 0 || !picture.valid(place)) continue;
            colour.setAlpha(coverage);
            auto& pixel = reinterpret_cast<QRgb*>(picture.scanLine(place.y()))[place.x()];
            // Neighbours may share a pixel where the edges are grey.
            if (qAlpha(pixel) < coverage) pixel = qPremultiply(colour.rgba());
        }
}

} // namespace

void QtLabels::Paint(QPainter& painter, const Figure& figure) {
    const Words& words = WordsOf(figure);
    const double scale = painter.device()->devicePixelRatioF();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, scale != std::floor(scale));
    const QPoint corner(figure.Place.Left, figure.Place.Top);
    painter.drawImage(corner, words.Letters);
    if (words.Runs.empty()) return;
    painter.setFont(m_fonts.FontOf(words.FontPx));
    painter.setPen(ToColour(words.Colour));
    painter.setLayoutDirection(Qt::LeftToRight);
    for (const Run& run : words.Runs)
        painter.drawText(corner + QPoint(run.LeftPx, BaseLinePx(words.FontPx)), run.Words);
}

const QtLabels::Words& QtLabels::WordsOf(const Figure& figure) {
    const QSize size(static_cast<int>(figure.Place.Right - figure.Place.Left),
                     static_cast<int>(figure.Place.Bottom - figure.Place.Top));
    Words& words = m_words[figure.Source];
    Text text = ShownText(figure);
    if (text == words.Caption && figure.FontPx == words.FontPx && figure.Colour == words.Colour &&
        size == words.Size)
        return words;
    words = {std::move(text), figure.FontPx, figure.Colour, size, {}, {}};
    words.Letters = QImage(size, QImage::Format_ARGB32_Premultiplied);
    words.Letters.fill(Qt::transparent);
    Compose(words.Caption, words);
    return words;
}

void QtLabels::Compose(const Text& text, Words& words) {
    const int sizePx = words.FontPx <= 9 ? 9 : 11;
    const QColor colour = ToColour(words.Colour);
    QPoint pen(0, BaseLinePx(words.FontPx));
    QString run;
    const auto endRun = [&] {
        if (run.isEmpty()) return;
        words.Runs.push_back({pen.x(), run});
        pen.rx() += static_cast<int>(
            std::ceil(QFontMetricsF(m_fonts.FontOf(words.FontPx)).horizontalAdvance(run)));
        run.clear();
    };
    const QList<uint> letters = ToQString(text).toUcs4();
    for (qsizetype at = 0; at < letters.size() && pen.x() < words.Size.width(); ++at) {
        const Glyph* glyph = m_letters.Find(sizePx, letters[at]);
        // What stands above or below a letter is shaped together with it.
        const bool isMarked =
            QChar::isMark(letters.value(at)) || QChar::isMark(letters.value(at + 1));
        if (!glyph || isMarked) {
            const char32_t letter = letters[at];
            run += QString::fromUcs4(&letter, 1);
            continue;
        }
        endRun();
        Stamp(words.Letters, *glyph, pen, colour);
        pen.rx() += glyph->AdvancePx;
    }
    endRun();
}
