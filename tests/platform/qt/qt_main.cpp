// The toolkit's part of the platform is tested without a display, on the toolkit's own offscreen platform.
#include <QApplication>
#include <cstdlib>
#include <gtest/gtest.h>

int main(int count, char** arguments) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication::setDesktopSettingsAware(false);
    QApplication application(count, arguments);
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
