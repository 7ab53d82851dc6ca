// What the tests of the toolkit's part share: a hand on what comes up, and a window with a journal
// of what it reports.
#pragma once

#include <QtWidgets>
#include <gtest/gtest.h>

#include "platform/qt/qt_loop.h"
#include "platform/qt/qt_pictures.h"
#include "platform/qt/qt_window.h"

/// A picture of one row, a pixel for each colour.
inline PicturePtr Dots(const std::vector<QColor>& row) {
    QImage image(int(row.size()), 1, QImage::Format_ARGB32_Premultiplied);
    for (int x = 0; x < image.width(); ++x)
        image.setPixelColor(x, 0, row[std::size_t(x)]);
    return std::make_shared<QtPicture>(image);
}

inline std::string RectsOf(const QRegion& region) {
    QString text;
    for (const QRect& r : region)
        text += QString::asprintf(" [%d,%d %dx%d]", r.x(), r.y(), r.width(), r.height());
    return text.toStdString();
}

class QtWindowTest : public testing::Test, public FormEvents {
protected:
    QtWindowTest() {
        m_window.Attach(m_form, *this, [this](bool window, bool scope) {
            Note(!window ? "invisible" : scope ? "scope visible" : "window visible");
        });
        m_loop.Attach(m_form, *this, [this] { m_window.ShowChanges(); });
    }

    void OnPointer(const PointerEvent& event) override {
        const char* kinds[] = {"press", "move", "release", "lost"};
        Note(QString::asprintf("%s %d,%d button %d held %d keys %d", kinds[int(event.Kind)],
                               event.XPx, event.YPx, event.Button, event.Held, event.Shift));
    }
    void OnTimer(const Timer& timer) override { m_ticked(timer); }
    void OnClose() override { Note("close"); }

    // Has `answer` run with the menu or modal dialog that the next call brings up and waits for.
    template<typename Widget>
    void WhenUp(std::function<void(Widget&)> answer) {
        QTimer::singleShot(0, &m_window, [answer = std::move(answer)] {
            QWidget* popup = QApplication::activePopupWidget();
            auto* widget = dynamic_cast<Widget*>(popup ? popup : QApplication::activeModalWidget());
            if (widget) answer(*widget);
        });
    }

    void Note(const QString& what) { m_journal += what.toStdString() + ";"; }
    std::string Taken() { return std::exchange(m_journal, {}); }

    void Mouse(QEvent::Type type, QPointF place, Qt::MouseButton button = Qt::NoButton,
               Qt::MouseButtons held = {}, Qt::KeyboardModifiers keys = {}) {
        QMouseEvent event(type, place, m_window.mapToGlobal(place), button, held, keys);
        QCoreApplication::sendEvent(&m_window, &event);
    }

    Form m_form;
    QtLoop m_loop;
    QtWindow m_window{m_loop};
    std::string m_journal;
    std::function<void(const Timer&)> m_ticked;
};
