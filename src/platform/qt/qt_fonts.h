// The font of the labels, in its two sizes.
#pragma once

#include <QFont>

/// Tahoma from its file, or Liberation Sans where that file is missing. The file is read when the
/// first text is drawn.
class QtFonts {
public:
    /// The font at 9 pixels for a size up to 9, else at 11.
    [[nodiscard]] const QFont& FontOf(int sizePx);

private:
    [[nodiscard]] QFont MakeFont(int sizePx);

    QString m_family;
    QFont m_large, m_small;
    bool m_ready = false;
};
