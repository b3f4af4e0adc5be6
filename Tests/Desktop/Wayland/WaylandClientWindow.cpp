#include "WaylandClientWindow.h"

#include "ProtocolTables.h"

#include <cmath>
#include <sys/mman.h>
#include <unistd.h>
#include <xdg-output-unstable-v1-client-protocol.h>

namespace corvane::desktop {

using namespace protocol;
using Clock = std::chrono::steady_clock;

namespace {

WaylandClientWindow &self(void *data)
{
    return *static_cast<WaylandClientWindow *>(data);
}

/// Black pixels. The buffer ends when the compositor no longer shows it.
wl_buffer *blackBuffer(wl_shm *memory, Size size)
{
    static constexpr wl_buffer_listener listener{
        [](void *, wl_buffer *buffer) { wl_buffer_destroy(buffer); }};
    const auto width = static_cast<int32_t>(size.width);
    const auto height = static_cast<int32_t>(size.height);
    const int32_t bytes = width * height * 4;
    const int file = ::memfd_create("window", MFD_CLOEXEC);
    if (::ftruncate(file, bytes) != 0)
        qFatal("corvane-test-client: no memory for a window");
    wl_shm_pool *const pool = wl_shm_create_pool(memory, file, bytes);
    wl_buffer *const buffer =
        wl_shm_pool_create_buffer(pool, 0, width, height, width * 4, WL_SHM_FORMAT_XRGB8888);
    wl_shm_pool_destroy(pool);
    ::close(file);
    wl_buffer_add_listener(buffer, &listener, nullptr);
    return buffer;
}

bool isPanel(const WindowRequest &request)
{
    return request.kind == WindowRequest::Kind::dock
        || request.kind == WindowRequest::Kind::desktop;
}

double stepped(double asked, double base, double step)
{
    return step > 1 ? base + std::floor((asked - base) / step) * step : asked;
}

double within(double asked, double least, double most)
{
    return std::max({most > 0 ? std::min(asked, most) : asked, least, 1.0});
}

} // namespace

WaylandGlobals::WaylandGlobals(WaylandConnection &connection)
    : compositor(connection.bind<wl_compositor>(wl_compositor_interface))
    , memory(connection.bind<wl_shm>(wl_shm_interface))
    , shell(connection.bind<xdg_wm_base>(xdg_wm_base_interface))
    , decorations(connection.bind<zxdg_decoration_manager_v1>(zxdg_decoration_manager_v1_interface))
    , layers(connection.bind<wl_proxy>(layerShell))
{
    static constexpr xdg_wm_base_listener answerPings{
        [](void *, xdg_wm_base *base, uint32_t serial) { xdg_wm_base_pong(base, serial); }};
    // The outputs themselves are all at 0,0 for sway.
    static constexpr zxdg_output_v1_listener takeOrigin{
        [](void *output, zxdg_output_v1 *, int32_t x, int32_t y) {
            static_cast<Output *>(output)->origin = {double(x), double(y)};
        },
        [](void *, zxdg_output_v1 *, int32_t, int32_t) {}, [](void *, zxdg_output_v1 *) {}, nullptr,
        nullptr};
    if (shell)
        xdg_wm_base_add_listener(shell, &answerPings, nullptr);
    for (wl_output *const each : connection.bindAll<wl_output>(wl_output_interface))
        outputs << Output{each};
    auto *const places = connection.bind<zxdg_output_manager_v1>(zxdg_output_manager_v1_interface);
    for (Output &each : outputs)
        zxdg_output_v1_add_listener(
            connection.own(zxdg_output_manager_v1_get_xdg_output(places, each.output)), &takeOrigin,
            &each);
}

wl_output *WaylandGlobals::outputAt(Point point) const
{
    wl_output *last = nullptr;
    for (const Output &each : outputs) {
        if (each.origin.x <= point.x && each.origin.y <= point.y)
            last = each.output;
    }
    return last;
}

WaylandClientWindow::WaylandClientWindow(WaylandGlobals &globals, const WindowRequest &request,
    quint32 number, const WaylandClientWindow *parent)
    : m_globals(globals)
    , m_request(request)
    , m_number(number)
    , m_surface(wl_compositor_create_surface(globals.compositor))
{
    const auto [left, right, top, bottom] = request.shadow;
    m_size = {request.geometry.width - left - right, request.geometry.height - top - bottom};
    if (isPanel(request) && globals.layers)
        becomePanel();
    else
        becomeToplevel(parent);
    wl_surface_commit(m_surface.get());
}

WaylandClientWindow::~WaylandClientWindow()
{
    if (m_layerSurface) {
        wl_proxy_marshal(m_layerSurface, LayerSurface::destroy);
        wl_proxy_destroy(m_layerSurface);
    }
    m_decoration.reset();
    m_toplevel.reset();
    m_xdgSurface.reset();
}

void WaylandClientWindow::drawIfDue()
{
    if (!m_due || Clock::now() < *m_due)
        return;
    m_due.reset();
    if (m_layerSurface)
        wl_proxy_marshal(m_layerSurface, LayerSurface::acknowledge, m_serial);
    else
        xdg_surface_ack_configure(m_xdgSurface.get(), m_serial);
    draw(sizeFor(m_asked));
}

void WaylandClientWindow::rename(const QByteArray &application)
{
    xdg_toplevel_set_app_id(m_toplevel.get(), application.constData());
    wl_surface_commit(m_surface.get());
}

void WaylandClientWindow::becomeToplevel(const WaylandClientWindow *parent)
{
    static constexpr xdg_surface_listener surfaceListener{
        [](void *data, xdg_surface *, uint32_t serial) { self(data).configured(serial); }};
    static constexpr xdg_toplevel_listener toplevelListener{
        [](void *data, xdg_toplevel *, int32_t width, int32_t height, wl_array *states) {
            self(data).m_asked = {double(width), double(height)};
            self(data).m_fills = states->size > 0 && [&] {
                const auto *first = static_cast<uint32_t *>(states->data);
                return std::any_of(first, first + states->size / sizeof *first, [](uint32_t state) {
                    return state == XDG_TOPLEVEL_STATE_MAXIMIZED
                        || state == XDG_TOPLEVEL_STATE_FULLSCREEN;
                });
            }();
        },
        [](void *data, xdg_toplevel *) { self(data).m_isClosed = true; }, nullptr, nullptr};
    m_xdgSurface.reset(xdg_wm_base_get_xdg_surface(m_globals.shell, m_surface.get()));
    xdg_surface_add_listener(m_xdgSurface.get(), &surfaceListener, this);
    m_toplevel.reset(xdg_surface_get_toplevel(m_xdgSurface.get()));
    xdg_toplevel_add_listener(m_toplevel.get(), &toplevelListener, this);
    if (parent)
        xdg_toplevel_set_parent(m_toplevel.get(), parent->m_toplevel.get());
    describe();
}

void WaylandClientWindow::describe()
{
    const QByteArray title = QByteArray(m_request.title).repeated(m_request.titleRepeats);
    // libwayland has room for four kilobytes in a message.
    xdg_toplevel_set_title(m_toplevel.get(), title.left(3900).constData());
    xdg_toplevel_set_app_id(m_toplevel.get(), QByteArray(m_request.className).constData());
    const auto number = [](double value) { return static_cast<int32_t>(value); };
    const auto &[least, most, increment, base, leastAspect, mostAspect, gravity] = m_request.hints;
    xdg_toplevel_set_min_size(m_toplevel.get(), number(least.width), number(least.height));
    xdg_toplevel_set_max_size(m_toplevel.get(), number(most.width), number(most.height));
    if (!m_globals.decorations)
        return;
    m_decoration.reset(zxdg_decoration_manager_v1_get_toplevel_decoration(
        m_globals.decorations, m_toplevel.get()));
    zxdg_toplevel_decoration_v1_set_mode(m_decoration.get(),
        m_request.decorated ? ZXDG_TOPLEVEL_DECORATION_V1_MODE_SERVER_SIDE
                            : ZXDG_TOPLEVEL_DECORATION_V1_MODE_CLIENT_SIDE);
}

void WaylandClientWindow::becomePanel()
{
    struct Listener {
        void (*configure)(void *, wl_proxy *, uint32_t, uint32_t, uint32_t);
        void (*closed)(void *, wl_proxy *);
    };
    static constexpr Listener listener{
        [](void *data, wl_proxy *, uint32_t serial, uint32_t width, uint32_t height) {
            self(data).m_asked = {double(width), double(height)};
            self(data).configured(serial);
        },
        [](void *data, wl_proxy *) { self(data).m_isClosed = true; }};
    const Rect &place = m_request.geometry;
    m_layerSurface = wl_proxy_marshal_constructor(m_globals.layers, LayerSurface::createIn,
        &layerSurface, nullptr, m_surface.get(), m_globals.outputAt(place.origin()),
        m_request.kind == WindowRequest::Kind::desktop ? LayerSurface::background
                                                       : LayerSurface::top,
        "panel");
    wl_proxy_add_listener(
        m_layerSurface, reinterpret_cast<void (**)()>(const_cast<Listener *>(&listener)), this);
    wl_proxy_marshal(
        m_layerSurface, LayerSurface::setKeyboardInteractivity, uint32_t(m_request.takesKeys));
    setPanelPlace();
}

void WaylandClientWindow::setPanelPlace()
{
    enum Anchor : uint32_t { atTop = 1, atBottom = 2, atLeft = 4, atRight = 8, everywhere = 15 };
    constexpr std::array opposites{atRight, atLeft, atBottom, atTop};
    const Rect &place = m_request.geometry;
    const auto set = [this](LayerSurface::Request request, auto... values) {
        wl_proxy_marshal(m_layerSurface, request, int32_t(values)...);
    };
    for (size_t edge = 0; edge < opposites.size(); ++edge) {
        if (m_request.strut[edge] == 0)
            continue;
        // It reaches from one end of its edge to the other.
        const bool isUpright = edge < 2;
        set(LayerSurface::setSize, isUpright ? place.width : 0, isUpright ? 0 : place.height);
        set(LayerSurface::setAnchor, everywhere & ~opposites[edge]);
        set(LayerSurface::setExclusiveZone, isUpright ? place.width : place.height);
        return;
    }
    constexpr int overPanels = -1;
    set(LayerSurface::setSize, place.width, place.height);
    set(LayerSurface::setAnchor, atTop | atLeft);
    set(LayerSurface::setExclusiveZone, overPanels);
    set(LayerSurface::setMargin, place.y, 0, 0, place.x);
}

void WaylandClientWindow::configured(uint32_t serial)
{
    m_serial = serial;
    m_due = Clock::now() + std::chrono::milliseconds(m_request.answersAfter);
}

Size WaylandClientWindow::sizeFor(Size asked) const
{
    const auto &[least, most, increment, base, leastAspect, mostAspect, gravity] = m_request.hints;
    if (asked.width <= 0 || asked.height <= 0)
        return m_size;
    if (!m_fills && !m_layerSurface)
        asked = {stepped(asked.width, base.width, increment.width),
            stepped(asked.height, base.height, increment.height)};
    return {within(asked.width, least.width, most.width),
        within(asked.height, least.height, most.height)};
}

void WaylandClientWindow::draw(Size size)
{
    m_size = size;
    const auto [left, right, top, bottom] = m_fills ? WindowRequest::Edges{} : m_request.shadow;
    const Size whole{size.width + left + right, size.height + top + bottom};
    if (m_xdgSurface)
        xdg_surface_set_window_geometry(m_xdgSurface.get(), int32_t(left), int32_t(top),
            int32_t(size.width), int32_t(size.height));
    wl_surface_attach(m_surface.get(), blackBuffer(m_globals.memory, whole), 0, 0);
    wl_surface_damage(m_surface.get(), 0, 0, int32_t(whole.width), int32_t(whole.height));
    wl_surface_commit(m_surface.get());
}

} // namespace corvane::desktop
