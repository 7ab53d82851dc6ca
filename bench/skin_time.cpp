// Measures reading and applying a skin with its real pictures, without a window: the median of 20
// loads into fresh states, the first left out. Usage: skin_time SKIN; prints milliseconds for
// reading and for applying.
#include <QGuiApplication>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>
#include <vector>

#include "../tests/support/null_platform.h"
#include "platform/paths.h"
#include "platform/qt/qt_pictures.h"
#include "skin/apply_skin.h"
#include "skin/load_skin.h"

namespace {

using Clock = std::chrono::steady_clock;

double MsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

double Median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

} // namespace

int main(int count, char** arguments) {
    if (count != 2) return 2;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(count, arguments);
    std::vector<double> reading, applying;
    for (int round = 0; round < 21; ++round) {
        NullPlatform platform;
        QtPictures pictures;
        const auto velora = std::make_unique<Velora>(platform.PartsWith(pictures));
        const auto start = Clock::now();
        const Integer slot = LoadSkinFile(*velora, PathText(arguments[1]));
        const double read = MsSince(start);
        const auto loaded = Clock::now();
        ApplySkin(*velora, slot);
        if (round > 0) {
            reading.push_back(read);
            applying.push_back(MsSince(loaded));
        }
    }
    std::printf("%.1f %.1f\n", Median(reading), Median(applying));
}
