// Measures from a press of the mouse, as the display server gets it, to the changed pixels on the
// screen. Usage: press_time X Y AWAY_X AWAY_Y TIMES; presses at (X, Y) of the screen and releases
// at the other place, where a release must do nothing. Prints the median and the worst in
// milliseconds.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>
#include <vector>

#include "screen.h"
#include "sink_listener.h"

int main(int count, char** arguments) {
    if (count != 6) return 2;
    const int x = std::atoi(arguments[1]), y = std::atoi(arguments[2]);
    const int awayX = std::atoi(arguments[3]), awayY = std::atoi(arguments[4]);
    const Screen screen;
    const auto around = [&] { return screen.Pixels(x - 4, y - 4, 9, 9); };
    std::vector<double> times;
    for (int round = 0; round < std::atoi(arguments[5]); ++round) {
        screen.Point(x, y);
        usleep(60'000);
        const std::string rest = around();
        const double pressedMs = NowMs();
        screen.Press();
        while (around() == rest && NowMs() - pressedMs < 1000) {
        }
        times.push_back(NowMs() - pressedMs);
        screen.Point(awayX, awayY);
        usleep(30'000);
        screen.Release();
        usleep(30'000);
    }
    std::sort(times.begin(), times.end());
    std::printf("%.1f %.1f\n", times[times.size() / 2], times.back());
}
