// The display as the measurements see it: pixels of the screen, and a hand on the mouse.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <string>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

struct Screen {
    xcb_connection_t* Display = xcb_connect(nullptr, nullptr);
    xcb_window_t Root = xcb_setup_roots_iterator(xcb_get_setup(Display)).data->root;

    /// The bytes of a rectangle of the screen, four to a pixel: blue, green, red, nothing.
    std::string Pixels(int left, int top, int width, int height) const {
        const auto cookie =
            xcb_get_image(Display, XCB_IMAGE_FORMAT_Z_PIXMAP, Root, static_cast<std::int16_t>(left),
                          static_cast<std::int16_t>(top), static_cast<std::uint16_t>(width),
                          static_cast<std::uint16_t>(height), ~0u);
        xcb_get_image_reply_t* reply = xcb_get_image_reply(Display, cookie, nullptr);
        if (!reply) return {};
        const auto* data = reinterpret_cast<const char*>(xcb_get_image_data(reply));
        std::string pixels(data, static_cast<std::size_t>(xcb_get_image_data_length(reply)));
        std::free(reply);
        return pixels;
    }
    void Key(int code) const {
        Fake(XCB_KEY_PRESS, static_cast<std::uint8_t>(code), 0, 0);
        Fake(XCB_KEY_RELEASE, static_cast<std::uint8_t>(code), 0, 0);
    }
    void Point(int x, int y) const { Fake(XCB_MOTION_NOTIFY, 0, x, y); }
    void Press() const { Fake(XCB_BUTTON_PRESS, 1, 0, 0); }
    void Release() const { Fake(XCB_BUTTON_RELEASE, 1, 0, 0); }

private:
    void Fake(std::uint8_t type, std::uint8_t detail, int x, int y) const {
        xcb_test_fake_input(Display, type, detail, XCB_CURRENT_TIME, Root,
                            static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 0);
        xcb_flush(Display);
    }
};
