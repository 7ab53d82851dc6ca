// Each request names its own answer, so those that the toolkit waits for aren't touched.
#include "platform/x11/x11_window.h"

#include <xcb/xcb.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "platform/window.h"

namespace {

constexpr std::uint32_t kIconicState = 3;
constexpr std::uint32_t kCancelMove = 11;

/// What libxcb has allocated with malloc.
template<typename Reply>
struct FreeReply {
    void operator()(Reply* reply) const { std::free(reply); }
};
template<typename Reply>
using ReplyPtr = std::unique_ptr<Reply, FreeReply<Reply>>;

xcb_atom_t Atom(xcb_connection_t* connection, std::string_view name) {
    const ReplyPtr<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection,
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

xcb_window_t RootOf(const X11Window& window) {
    const ReplyPtr<xcb_query_tree_reply_t> reply(xcb_query_tree_reply(
        window.Connection, xcb_query_tree(window.Connection, window.Id), nullptr));
    return reply ? reply->root : xcb_window_t{XCB_WINDOW_NONE};
}

// Messages to the manager are sent to the root window, where it listens.
void TellManager(const X11Window& window, std::string_view type,
                 const std::array<std::uint32_t, 5>& data) {
    const xcb_window_t root = RootOf(window);
    const xcb_atom_t atom = Atom(window.Connection, type);
    if (root == XCB_WINDOW_NONE || atom == XCB_ATOM_NONE) return;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window.Id;
    message.type = atom;
    for (std::size_t i = 0; i < data.size(); ++i)
        message.data.data32[i] = data[i];
    constexpr std::uint32_t kManagerListens =
        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT;
    xcb_send_event(window.Connection, 0, root, kManagerListens,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(window.Connection);
}

} // namespace

std::optional<Integer> ButtonsDown(const X11Window& window) {
    const ReplyPtr<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(
        window.Connection, xcb_query_pointer(window.Connection, window.Id), nullptr));
    if (!reply) return std::nullopt;
    Integer down = kNoButton;
    if (reply->mask & XCB_BUTTON_MASK_1) down = static_cast<Integer>(down | kLeftButton);
    if (reply->mask & XCB_BUTTON_MASK_2) down = static_cast<Integer>(down | kMiddleButton);
    if (reply->mask & XCB_BUTTON_MASK_3) down = static_cast<Integer>(down | kRightButton);
    return down;
}

std::optional<RootPlace> CornerOf(const X11Window& window) {
    const xcb_window_t root = RootOf(window);
    const ReplyPtr<xcb_translate_coordinates_reply_t> reply(xcb_translate_coordinates_reply(
        window.Connection, xcb_translate_coordinates(window.Connection, window.Id, root, 0, 0),
        nullptr));
    if (!reply) return std::nullopt;
    return RootPlace{reply->dst_x, reply->dst_y};
}

void AskToMinimise(const X11Window& window) {
    TellManager(window, "WM_CHANGE_STATE", {kIconicState, 0, 0, 0, 0});
}

void CancelMove(const X11Window& window) {
    TellManager(window, "_NET_WM_MOVERESIZE", {0, 0, kCancelMove, 1, 1});
}
