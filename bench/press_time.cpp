// Measures from a press of the mouse, as the display server gets it, to the changed pixels on the screen.
// Usage: press_time X Y AWAY_X AWAY_Y TIMES; presses at (X, Y) of the screen and releases at the other place,
// where a release must do nothing. Prints the median and the worst in milliseconds.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <time.h>
#include <unistd.h>
#include <vector>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

namespace {

constexpr int kSide = 9;

double NowMs() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

struct Screen {
    xcb_connection_t* Display = xcb_connect(nullptr, nullptr);
    xcb_window_t Root = xcb_setup_roots_iterator(xcb_get_setup(Display)).data->root;

    std::string PixelsAround(int x, int y) const {
        const auto cookie =
            xcb_get_image(Display, XCB_IMAGE_FORMAT_Z_PIXMAP, Root, static_cast<std::int16_t>(x - kSide / 2),
                          static_cast<std::int16_t>(y - kSide / 2), kSide, kSide, ~0u);
        xcb_get_image_reply_t* reply = xcb_get_image_reply(Display, cookie, nullptr);
        if (!reply) return {};
        const auto* data = reinterpret_cast<const char*>(xcb_get_image_data(reply));
        std::string pixels(data, static_cast<std::size_t>(xcb_get_image_data_length(reply)));
        std::free(reply);
        return pixels;
    }
    void Point(int x, int y) const { Fake(XCB_MOTION_NOTIFY, 0, x, y); }
    void Press() const { Fake(XCB_BUTTON_PRESS, 1, 0, 0); }
    void Release() const { Fake(XCB_BUTTON_RELEASE, 1, 0, 0); }

private:
    void Fake(std::uint8_t type, std::uint8_t detail, int x, int y) const {
        xcb_test_fake_input(Display, type, detail, XCB_CURRENT_TIME, Root, static_cast<std::int16_t>(x),
                            static_cast<std::int16_t>(y), 0);
        xcb_flush(Display);
    }
};

} // namespace

int main(int count, char** arguments) {
    if (count != 6) return 2;
    const int x = std::atoi(arguments[1]), y = std::atoi(arguments[2]);
    const int awayX = std::atoi(arguments[3]), awayY = std::atoi(arguments[4]);
    const Screen screen;
    std::vector<double> times;
    for (int round = 0; round < std::atoi(arguments[5]); ++round) {
        screen.Point(x, y);
        usleep(60'000);
        const std::string rest = screen.PixelsAround(x, y);
        const double pressedMs = NowMs();
        screen.Press();
        while (screen.PixelsAround(x, y) == rest && NowMs() - pressedMs < 1000) {
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
