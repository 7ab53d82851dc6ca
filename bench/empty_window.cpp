// What an empty window of the toolkit costs: the measure for Velora's own start.
#include <QApplication>
#include <QWidget>

int main(int count, char** arguments) {
    QApplication::setDesktopSettingsAware(false);
    QApplication application(count, arguments);
    QWidget window;
    window.setFixedSize(383, 254);
    window.show();
    return QApplication::exec();
}
