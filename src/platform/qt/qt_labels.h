// The words of the labels: letters from the font's own pixels, and by the toolkit what those lack.
#pragma once

#include <QImage>
#include <QPainter>
#include <unordered_map>
#include <vector>

#include "platform/letters/letters.h"
#include "platform/qt/qt_fonts.h"
#include "state/scene.h"

/// Each label's words as they are painted, kept until its text, colour or size is another.
class QtLabels {
public:
    /// Draws a label's figure at its place, in skin pixels, on a transparent ground. The caller
    /// clips. At a whole scale a letter's pixel becomes a sharp square, at others it is scaled
    /// smoothly.
    void Paint(QPainter& painter, const Figure& figure);

private:
    /// Characters that are laid out by the toolkit, and where they begin.
    struct Run {
        int LeftPx = 0;
        QString Words;
    };
    struct Words {
        Text Caption;
        int FontPx = 0;
        Long Colour = 0;
        QSize Size;
        QImage Letters;        ///< As large as what can be seen of the label.
        std::vector<int> Pens; ///< Where each letter begins, and what follows the last one.
        std::vector<Run> Runs;
    };

    [[nodiscard]] const Words& WordsOf(const Figure& figure);
    /// Moves the words to the left by their first character, if `text` is those words without it
    /// and with others behind.
    [[nodiscard]] bool Turn(const Text& text, Words& words);
    /// Draws the letters of `words` from letter `first` on.
    void Compose(Words& words, qsizetype first);

    Letters m_letters;
    QtFonts m_fonts;
    std::unordered_map<const Control*, Words> m_words;
};
