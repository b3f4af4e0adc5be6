// Answers each of its keys by finding the windows of a list, moving all of them and bringing them
// forward in the order of the list, without ever waiting for the window manager: the least work that
// a program that applies layouts can do.
//
//   corvane-pipelined MODIFIERS {KEYCODE FILE}...
//
// A line of a file: the visible frame's x, y, width and height, then the window's whole title.

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>
#include <xcb/xcb.h>

namespace {

struct FreeReply {
    void operator()(void *reply) const { std::free(reply); }
};
template <typename T>
using Reply = std::unique_ptr<T, FreeReply>;
using PropertyReply = Reply<xcb_get_property_reply_t>;

struct Move {
    std::string title;
    uint32_t x = 0;
    uint32_t y = 0;
    uint32_t width = 0;
    uint32_t height = 0;
};

struct Found {
    xcb_window_t window = XCB_WINDOW_NONE;
    uint32_t horizontal = 0; ///< what the decoration adds to the client's width
    uint32_t vertical = 0;
};

class Desk
{
public:
    Desk() : m_connection(xcb_connect(nullptr, nullptr))
    {
        if (isConnected())
            m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    }
    ~Desk() { xcb_disconnect(m_connection); }
    Desk(const Desk &) = delete;
    Desk &operator=(const Desk &) = delete;

    bool isConnected() const { return !xcb_connection_has_error(m_connection); }
    void internAtoms()
    {
        m_clientList = atom("_NET_CLIENT_LIST");
        m_name = atom("_NET_WM_NAME");
        m_extents = atom("_NET_FRAME_EXTENTS");
        m_moveResize = atom("_NET_MOVERESIZE_WINDOW");
        m_restack = atom("_NET_RESTACK_WINDOW");
        m_activeWindow = atom("_NET_ACTIVE_WINDOW");
    }
    void grab(uint16_t modifiers, xcb_keycode_t keycode)
    {
        xcb_grab_key(
            m_connection, 0, m_root, modifiers, keycode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        xcb_flush(m_connection);
    }
    Reply<xcb_generic_event_t> nextEvent()
    {
        return Reply<xcb_generic_event_t>(xcb_wait_for_event(m_connection));
    }
    void apply(const std::vector<Move> &moves)
    {
        const auto windows = find();
        std::vector<xcb_window_t> moved;
        for (const Move &move : moves) {
            const auto at = windows.find(move.title);
            if (at == windows.end())
                continue;
            const Found &found = at->second;
            constexpr uint32_t everyFieldFromPager = 1 | 0xF << 8 | 2 << 12;
            send(found.window, m_moveResize,
                {everyFieldFromPager, move.x, move.y, move.width - found.horizontal,
                    move.height - found.vertical});
            moved.push_back(found.window);
        }
        for (const xcb_window_t window : moved)
            send(window, m_restack, {2, XCB_WINDOW_NONE, XCB_STACK_MODE_ABOVE, 0, 0});
        if (!moved.empty())
            send(moved.back(), m_activeWindow, {2, XCB_CURRENT_TIME, 0, 0, 0});
        xcb_flush(m_connection);
    }

private:
    xcb_atom_t atom(const char *name)
    {
        const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection,
            xcb_intern_atom(m_connection, 0, static_cast<uint16_t>(std::strlen(name)), name),
            nullptr));
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }
    xcb_get_property_cookie_t request(xcb_window_t window, xcb_atom_t property)
    {
        constexpr uint32_t everything = 0x10000;
        return xcb_get_property(
            m_connection, 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, everything);
    }
    PropertyReply reply(xcb_get_property_cookie_t cookie)
    {
        return PropertyReply(xcb_get_property_reply(m_connection, cookie, nullptr));
    }
    std::unordered_map<std::string, Found> find()
    {
        const PropertyReply list = reply(request(m_root, m_clientList));
        if (!list)
            return {};
        const auto *windows = static_cast<xcb_window_t *>(xcb_get_property_value(list.get()));
        const auto count = static_cast<size_t>(xcb_get_property_value_length(list.get())) / 4;
        std::vector<std::pair<xcb_get_property_cookie_t, xcb_get_property_cookie_t>> asked;
        for (size_t i = 0; i < count; ++i)
            asked.emplace_back(request(windows[i], m_name), request(windows[i], m_extents));
        std::unordered_map<std::string, Found> found;
        for (size_t i = 0; i < count; ++i) {
            const PropertyReply name = reply(asked[i].first);
            const PropertyReply extents = reply(asked[i].second);
            if (!name || !extents || xcb_get_property_value_length(extents.get()) != 16)
                continue;
            const auto *edges = static_cast<uint32_t *>(xcb_get_property_value(extents.get()));
            const auto length = static_cast<size_t>(xcb_get_property_value_length(name.get()));
            found[{static_cast<char *>(xcb_get_property_value(name.get())), length}] = {
                windows[i], edges[0] + edges[1], edges[2] + edges[3]};
        }
        return found;
    }
    void send(xcb_window_t window, xcb_atom_t type, const std::vector<uint32_t> &data)
    {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = window;
        event.type = type;
        std::memcpy(event.data.data32, data.data(), sizeof event.data.data32);
        xcb_send_event(m_connection, 0, m_root,
            XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
            reinterpret_cast<const char *>(&event));
    }

    xcb_connection_t *m_connection;
    xcb_window_t m_root = XCB_WINDOW_NONE;
    xcb_atom_t m_clientList = XCB_ATOM_NONE;
    xcb_atom_t m_name = XCB_ATOM_NONE;
    xcb_atom_t m_extents = XCB_ATOM_NONE;
    xcb_atom_t m_moveResize = XCB_ATOM_NONE;
    xcb_atom_t m_restack = XCB_ATOM_NONE;
    xcb_atom_t m_activeWindow = XCB_ATOM_NONE;
};

std::vector<Move> readMoves(const char *path)
{
    std::ifstream file(path);
    std::vector<Move> moves;
    Move move;
    while (file >> move.x >> move.y >> move.width >> move.height
        && std::getline(file >> std::ws, move.title))
        moves.push_back(move);
    return moves;
}

} // namespace

int main(int argc, char **argv)
{
    Desk desk;
    if (argc < 4 || !desk.isConnected())
        return 1;
    desk.internAtoms();
    const auto modifiers = static_cast<uint16_t>(std::strtoul(argv[1], nullptr, 0));
    std::unordered_map<xcb_keycode_t, std::vector<Move>> layouts;
    for (int at = 2; at + 2 <= argc; at += 2) {
        const auto keycode = static_cast<xcb_keycode_t>(std::strtoul(argv[at], nullptr, 0));
        layouts[keycode] = readMoves(argv[at + 1]);
        desk.grab(modifiers, keycode);
    }
    while (const auto event = desk.nextEvent()) {
        if ((event->response_type & 0x7f) != XCB_KEY_PRESS)
            continue;
        const auto *press = reinterpret_cast<const xcb_key_press_event_t *>(event.get());
        desk.apply(layouts[press->detail]);
    }
    return 0;
}
