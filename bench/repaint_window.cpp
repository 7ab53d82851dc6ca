// What repainting alone costs: a window of the standard skin's size that paints the areas of the
// visualisation and of the running title at their rates, and does nothing else.
#include <QApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QTimer>
#include <QWidget>

namespace {

class Painted : public QWidget {
public:
    Painted() {
        setAttribute(Qt::WA_TranslucentBackground);
        setAttribute(Qt::WA_NoSystemBackground);
        setWindowFlag(Qt::FramelessWindowHint);
        setFixedSize(312, 153);
        setWindowTitle(QStringLiteral("repaint"));
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        m_bright = !m_bright;
        painter.fillRect(event->rect(), m_bright ? Qt::yellow : Qt::black);
    }

private:
    bool m_bright = false;
};

void Repeat(QWidget& window, int periodMs, const QRect& area) {
    auto* timer = new QTimer(&window);
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer, &QTimer::timeout, &window, [&window, area] { window.update(area); });
    timer->start(periodMs);
}

} // namespace

int main(int count, char** arguments) {
    qputenv("QT_NO_GLIB", "1");
    QApplication::setDesktopSettingsAware(false);
    QApplication application(count, arguments);
    Painted window;
    Repeat(window, 33, QRect(102, 114, 105, 17));
    Repeat(window, 100, QRect(20, 131, 255, 12));
    window.show();
    return QApplication::exec();
}
