// The strikes need no shaping and no font configuration, which are the dearest part of any other
// text; both are paid for only by a title that has other characters.
#include "platform/qt/qt_labels.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "platform/qt/qt_colour.h"
#include "platform/qt/qt_pixels.h"
#include "platform/qt/qt_text.h"

namespace {

// The size of the letters. The base line is as far below the label's top, as in the cell of the
// original platform.
int LetterPx(int fontPx) {
    return fontPx <= 9 ? 9 : 11;
}

// As much of the label as can be seen. A skin can give it any size, and the lowest letters end in
// the second cell.
QSize VisibleSize(const Figure& figure) {
    const Rect visible = Intersection(figure.Place, figure.Clip);
    if (visible.IsEmpty()) return QSize(0, 0);
    return QSize(
        static_cast<int>(visible.Right - figure.Place.Left),
        std::min(static_cast<int>(visible.Bottom - figure.Place.Top), 2 * LetterPx(figure.FontPx)));
}

// The text to draw. Control characters are blanks, and the length is limited by the label's pixels,
// since nobody draws a text of megabytes for a window of some hundred pixels.
Text ShownText(const Figure& figure, int widthPx) {
    Text text = figure.Caption.substr(0, static_cast<std::size_t>(widthPx));
    for (char16_t& letter : text) {
        if (letter < 0x20 || (letter >= 0x7F && letter < 0xA0) || letter == 0x2028 ||
            letter == 0x2029)
            letter = u' ';
        if (letter == 0xF05C) letter = u'\\';
    }
    return text;
}

// Lays a glyph over the picture, at the pen's place on the base line. Twice is as good as once.
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
    const QPoint corner(figure.Place.Left, figure.Place.Top);
    DrawPixels(painter, corner, words.Letters);
    if (words.Runs.empty()) return;
    painter.setFont(m_fonts.FontOf(words.FontPx));
    painter.setPen(ToColour(words.Colour));
    painter.setLayoutDirection(Qt::LeftToRight);
    for (const Run& run : words.Runs)
        painter.drawText(corner + QPoint(run.LeftPx, LetterPx(words.FontPx)), run.Words);
}

const QtLabels::Words& QtLabels::WordsOf(const Figure& figure) {
    const QSize size = VisibleSize(figure);
    Words& words = m_words[figure.Source];
    Text text = ShownText(figure, size.width());
    const bool looksAlike =
        figure.FontPx == words.FontPx && figure.Colour == words.Colour && size == words.Size;
    if (looksAlike && (text == words.Caption || Turn(text, words))) return words;
    words = {std::move(text), figure.FontPx, figure.Colour, size, {}, {0}, {}};
    words.Letters = QImage(size, QImage::Format_ARGB32_Premultiplied);
    words.Letters.fill(Qt::transparent);
    Compose(words, 0);
    return words;
}

bool QtLabels::Turn(const Text& text, Words& words) {
    if (words.Caption.empty() || !words.Runs.empty() || words.Pens.size() < 2) return false;
    const std::size_t gone = FirstCharacterLength(words.Caption);
    if (text.compare(0, words.Caption.size() - gone, words.Caption, gone) != 0) return false;
    const int sizePx = LetterPx(words.FontPx);
    const Glyph* first = m_letters.Find(sizePx, ToQString(words.Caption).toUcs4().value(0));
    const int byPx = words.Pens[1];
    // A letter that reaches over its own width would leave a piece behind.
    if (!first || first->LeftPx + first->WidthPx > byPx || byPx >= words.Size.width()) return false;

    const int keptPx = words.Size.width() - byPx;
    for (int y = 0; y < words.Size.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(words.Letters.scanLine(y));
        std::copy(row + byPx, row + words.Size.width(), row);
        std::fill(row + keptPx, row + words.Size.width(), 0U);
    }
    words.Caption = text;
    words.Pens.erase(words.Pens.begin());
    for (int& penPx : words.Pens)
        penPx -= byPx;
    // No letter is as wide as two sizes: those before reach no new column.
    const auto from =
        std::lower_bound(words.Pens.begin(), words.Pens.end() - 1, keptPx - 2 * sizePx);
    const qsizetype at = from - words.Pens.begin();
    words.Pens.erase(from + 1, words.Pens.end());
    Compose(words, at);
    return true;
}

void QtLabels::Compose(Words& words, qsizetype first) {
    const int sizePx = LetterPx(words.FontPx);
    const QColor colour = ToColour(words.Colour);
    QPoint pen(words.Pens.back(), sizePx);
    QString run;
    const auto endRun = [&] {
        if (run.isEmpty()) return;
        words.Runs.push_back({pen.x(), run});
        pen.rx() += static_cast<int>(
            std::ceil(QFontMetricsF(m_fonts.FontOf(words.FontPx)).horizontalAdvance(run)));
        run.clear();
    };
    const QList<uint> letters = ToQString(words.Caption).toUcs4();
    for (qsizetype at = first; at < letters.size() && pen.x() < words.Size.width(); ++at) {
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
        words.Pens.push_back(pen.x());
    }
    endRun();
}
