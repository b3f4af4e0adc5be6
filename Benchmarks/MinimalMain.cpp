// Answers each of its keys with one request that moves one window: the least work that a program with
// this task can do. It knows its window from the start and asks the server for nothing.
//
//   corvane-minimal WINDOW MODIFIERS {KEYCODE X Y WIDTH HEIGHT}...

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>
#include <xcb/xcb.h>

namespace {

struct Move {
    xcb_keycode_t keycode;
    xcb_client_message_event_t request;
};

uint32_t number(const char *text)
{
    return static_cast<uint32_t>(std::strtoul(text, nullptr, 0));
}

xcb_atom_t moveResizeAtom(xcb_connection_t *connection)
{
    const char *const name = "_NET_MOVERESIZE_WINDOW";
    xcb_intern_atom_reply_t *reply = xcb_intern_atom_reply(connection,
        xcb_intern_atom(connection, 0, static_cast<uint16_t>(std::strlen(name)), name), nullptr);
    const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    std::free(reply);
    return atom;
}

xcb_client_message_event_t request(xcb_window_t window, xcb_atom_t type, char **rect)
{
    constexpr uint32_t everyFieldFromPager = 1 | 0xF << 8 | 2 << 12;
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = type;
    event.data.data32[0] = everyFieldFromPager;
    for (int i = 0; i < 4; ++i)
        event.data.data32[i + 1] = number(rect[i]);
    return event;
}

void answerKeys(xcb_connection_t *connection, xcb_window_t root, const std::vector<Move> &moves)
{
    while (xcb_generic_event_t *event = xcb_wait_for_event(connection)) {
        if ((event->response_type & 0x7f) == XCB_KEY_PRESS) {
            const auto *press = reinterpret_cast<const xcb_key_press_event_t *>(event);
            for (const Move &move : moves) {
                if (move.keycode == press->detail)
                    xcb_send_event(connection, 0, root,
                        XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                        reinterpret_cast<const char *>(&move.request));
            }
            xcb_flush(connection);
        }
        std::free(event);
    }
}

} // namespace

int main(int argc, char **argv)
{
    constexpr int firstMove = 3;
    constexpr int argumentsPerMove = 5;
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    if (argc < firstMove || xcb_connection_has_error(connection))
        return 1;

    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const xcb_window_t window = number(argv[1]);
    const auto modifiers = static_cast<uint16_t>(number(argv[2]));
    const xcb_atom_t type = moveResizeAtom(connection);
    std::vector<Move> moves;
    for (int at = firstMove; at + argumentsPerMove <= argc; at += argumentsPerMove) {
        const auto keycode = static_cast<xcb_keycode_t>(number(argv[at]));
        xcb_grab_key(
            connection, 0, root, modifiers, keycode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        moves.push_back({keycode, request(window, type, argv + at + 1)});
    }
    xcb_flush(connection);
    answerKeys(connection, root, moves);
    xcb_disconnect(connection);
    return 0;
}
