// The toolkit's part of the platform is tested without a display, on the toolkit's own offscreen
// platform, with a home of its own and without a session bus, whatever the machine has.
#include <QApplication>
#include <cstdlib>
#include <gtest/gtest.h>
#include <unistd.h>

#include "support/temp_directory.h"

int main(int count, char** arguments) {
    const TempDirectory home;
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + home.Path("bus")).c_str(), 1);
    setenv("HOME", home.Path().c_str(), 1);
    setenv("XDG_CONFIG_HOME", home.Path().c_str(), 1);
    unsetenv("XDG_CURRENT_DESKTOP");
    QApplication::setDesktopSettingsAware(false);
    QApplication application(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleTest(&count, arguments);
    // A dialog or a loop that nobody ends would hold up everything.
    alarm(90);
    return RUN_ALL_TESTS();
}
