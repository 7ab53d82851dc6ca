// The two sizes of the one face that the labels are written in.
#pragma once

#include <QFont>

/// The labels' font at 11 or 9 pixels: Tahoma from its file, or Liberation Sans. The file is read
/// when the first text is drawn.
class QtFonts {
public:
    [[nodiscard]] const QFont& FontOf(int sizePx);

private:
    [[nodiscard]] QFont MakeFont(int sizePx);

    QString m_family;
    QFont m_large, m_small;
    bool m_ready = false;
};
