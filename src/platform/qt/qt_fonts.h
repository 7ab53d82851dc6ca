// The font, in the two sizes of the labels, for characters that only the toolkit can lay out.
#pragma once

#include <QFont>

/// Tahoma from its file, or Liberation Sans where that file is missing. The file is read when the
/// first such character is drawn.
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
