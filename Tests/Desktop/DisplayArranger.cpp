#include "DisplayArranger.h"

#include "WindowProbe.h"

#include <algorithm>

namespace corvane::desktop {

namespace {

bool isPlugged(const Rect &display)
{
    return display.width > 0 && display.height > 0;
}

std::pair<int, int> keyOf(Size size)
{
    return {static_cast<int>(size.width), static_cast<int>(size.height)};
}

} // namespace

bool DisplayArranger::arrange(const QList<Rect> &displays)
{
    m_outputs = std::max(m_outputs, displays.size());
    m_displays = displays;
    // Some window managers answer a plugged or unplugged output with an arrangement of their own, so
    // ours is made again until it stays.
    const bool stays = waitUntil([&] {
        arrangeOutputs();
        return settled([this] { return serverHasFollowed(); });
    });
    // Not every window manager publishes the new size; a silent one only costs this wait.
    constexpr Milliseconds grace{1000};
    static_cast<void>(waitUntil([this] { return windowManagerHasFollowed(); }, grace));
    return stays;
}

void DisplayArranger::arrangeOutputs()
{
    xcb_connection_t *raw = m_connection.raw();
    const Resources before = readResources();
    const auto *outputs = xcb_randr_get_screen_resources_current_outputs(before.get());
    Size whole{64, 64}; // what the server needs
    for (qsizetype index = 0; index < m_displays.size(); ++index) {
        const Rect &display = m_displays[index];
        if (isPlugged(display))
            addMode(outputs[index], display.size());
        whole = {std::max(whole.width, display.maxX()), std::max(whole.height, display.maxY())};
    }
    // Nobody sees what lies between.
    xcb_grab_server(raw);
    const Resources resources = readResources();
    QList<qsizetype> changed;
    for (qsizetype index = 0; index < m_outputs; ++index) {
        if (!isAsWanted(resources, index)) {
            changed << index;
            setOutput(resources, index, {});
        }
    }
    const auto millimetres = [](double pixels) { return static_cast<quint32>(pixels * 25.4 / 96); };
    xcb_randr_set_screen_size(raw, m_connection.root(), static_cast<quint16>(whole.width),
        static_cast<quint16>(whole.height), millimetres(whole.width), millimetres(whole.height));
    for (const qsizetype index : changed)
        setOutput(resources, index, m_displays.value(index));
    xcb_randr_set_output_primary(raw, m_connection.root(), outputs[0]);
    xcb_ungrab_server(raw);
    // Only a look at the hardware makes the driver report what is connected now; toolkits take its
    // word for it.
    xcb_discard_reply(raw, xcb_randr_get_screen_resources(raw, m_connection.root()).sequence);
    m_connection.sync();
}

DisplayArranger::Resources DisplayArranger::readResources()
{
    xcb_connection_t *raw = m_connection.raw();
    const auto cookie = xcb_randr_get_screen_resources_current(raw, m_connection.root());
    return Resources(xcb_randr_get_screen_resources_current_reply(raw, cookie, nullptr));
}

void DisplayArranger::addMode(xcb_randr_output_t output, Size size)
{
    const auto [width, height] = keyOf(size);
    xcb_randr_mode_t &mode = m_modes[{width, height}];
    if (!mode) {
        const QByteArray name =
            "desk-" + QByteArray::number(width) + 'x' + QByteArray::number(height);
        xcb_randr_mode_info_t timing{};
        timing.width = static_cast<quint16>(width);
        timing.height = static_cast<quint16>(height);
        timing.hsync_start = static_cast<quint16>(width + 48);
        timing.hsync_end = static_cast<quint16>(width + 80);
        timing.htotal = static_cast<quint16>(width + 160);
        timing.vsync_start = static_cast<quint16>(height + 3);
        timing.vsync_end = static_cast<quint16>(height + 8);
        timing.vtotal = static_cast<quint16>(height + 40);
        timing.dot_clock = timing.htotal * timing.vtotal * 30u;
        timing.name_len = static_cast<quint16>(name.size());
        const auto cookie = xcb_randr_create_mode(m_connection.raw(), m_connection.root(), timing,
            static_cast<quint32>(name.size()), name.constData());
        const Reply<xcb_randr_create_mode_reply_t> created(
            xcb_randr_create_mode_reply(m_connection.raw(), cookie, nullptr));
        mode = created ? created->mode : 0;
    }
    xcb_randr_add_output_mode(m_connection.raw(), output, mode);
}

// The dummy driver gives every output a controller of its own.
void DisplayArranger::setOutput(const Resources &resources, qsizetype index, const Rect &display)
{
    const auto crtc = xcb_randr_get_screen_resources_current_crtcs(resources.get())[index];
    const auto *output = xcb_randr_get_screen_resources_current_outputs(resources.get()) + index;
    const bool on = isPlugged(display);
    const auto cookie = xcb_randr_set_crtc_config(m_connection.raw(), crtc, XCB_CURRENT_TIME,
        resources->config_timestamp, static_cast<qint16>(display.x), static_cast<qint16>(display.y),
        on ? m_modes.value(keyOf(display.size())) : 0, XCB_RANDR_ROTATION_ROTATE_0, on, output);
    xcb_discard_reply(m_connection.raw(), cookie.sequence);
}

bool DisplayArranger::isAsWanted(const Resources &resources, qsizetype index)
{
    const auto crtc = xcb_randr_get_screen_resources_current_crtcs(resources.get())[index];
    const auto cookie =
        xcb_randr_get_crtc_info(m_connection.raw(), crtc, resources->config_timestamp);
    const Reply<xcb_randr_get_crtc_info_reply_t> now(
        xcb_randr_get_crtc_info_reply(m_connection.raw(), cookie, nullptr));
    const Rect display = m_displays.value(index);
    if (!now || !now->mode || !isPlugged(display))
        return now && !now->mode && !isPlugged(display);
    return Rect{double(now->x), double(now->y), double(now->width), double(now->height)} == display;
}

bool DisplayArranger::serverHasFollowed()
{
    const Resources resources = readResources();
    for (qsizetype index = 0; index < m_outputs; ++index) {
        if (!isAsWanted(resources, index))
            return false;
    }
    return true;
}

bool DisplayArranger::windowManagerHasFollowed()
{
    WindowProbe probe(m_connection);
    const QList<quint32> desk = m_connection.numbers(m_connection.root(), "_NET_DESKTOP_GEOMETRY");
    if (probe.windowManagerName().isEmpty() || desk.size() != 2)
        return true;
    const Rect root = probe.clientGeometry(m_connection.root()).value_or(Rect());
    return desk[0] == root.width && desk[1] == root.height;
}

} // namespace corvane::desktop
