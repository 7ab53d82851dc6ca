// What repainting alone costs: a plain window of the standard skin's size that paints the areas of
// the visualisation and of the running title at their rates, and does nothing else.
#include <QApplication>
#include <QBackingStore>
#include <QPainter>
#include <QTimer>
#include <QWindow>

namespace {

class Painted : public QWindow {
public:
    Painted() {
        setFlag(Qt::FramelessWindowHint);
        resize(312, 153);
        m_store.resize(size());
        setTitle(QStringLiteral("repaint"));
    }

    void Paint(const QRect& area) {
        if (!isExposed()) return;
        m_store.beginPaint(area);
        m_bright = !m_bright;
        QPainter(m_store.paintDevice()).fillRect(area, m_bright ? Qt::yellow : Qt::black);
        m_store.endPaint();
        m_store.flush(area);
    }

    void Repeat(int periodMs, const QRect& area) {
        auto* timer = new QTimer(this);
        timer->setTimerType(Qt::PreciseTimer);
        QObject::connect(timer, &QTimer::timeout, this, [this, area] { Paint(area); });
        timer->start(periodMs);
    }

protected:
    void paintEvent(QPaintEvent*) override { Paint(QRect(QPoint(0, 0), size())); }

private:
    QBackingStore m_store{this};
    bool m_bright = false;
};

} // namespace

int main(int count, char** arguments) {
    qputenv("QT_NO_GLIB", "1");
    qputenv("QT_XCB_NO_MITSHM", "1");
    QApplication::setDesktopSettingsAware(false);
    QApplication application(count, arguments);
    Painted window;
    window.Repeat(33, QRect(102, 114, 105, 17));
    window.Repeat(100, QRect(20, 131, 255, 12));
    window.show();
    return QApplication::exec();
}
