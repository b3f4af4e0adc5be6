#include "X11Desk.h"

#include "Pager.h"
#include "Pictures.h"
#include "WindowHints.h"

namespace corvane::demo {

using namespace Qt::StringLiterals;
using namespace desktop;

namespace {

const QList<Rect> twoDisplays{{0, 0, 1680, 1050}, {1680, 26, 1280, 1024}};

/// Paints the window's background; it stays when other windows come and go.
void setBackground(XConnection &connection, xcb_window_t window, const QImage &picture)
{
    xcb_connection_t *raw = connection.raw();
    const auto width = static_cast<quint16>(picture.width());
    const auto height = static_cast<quint16>(picture.height());
    const quint8 depth = connection.screen().root_depth;
    const xcb_pixmap_t pixmap = xcb_generate_id(raw);
    xcb_create_pixmap(raw, depth, pixmap, window, width, height);
    const xcb_gcontext_t context = xcb_generate_id(raw);
    xcb_create_gc(raw, context, pixmap, 0, nullptr);
    xcb_put_image(raw, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context, width, height, 0, 0, 0, depth,
        static_cast<quint32>(picture.sizeInBytes()), picture.constBits());
    xcb_free_gc(raw, context);
    xcb_change_window_attributes(raw, window, XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_clear_area(raw, 0, window, 0, 0, 0, 0);
    xcb_free_pixmap(raw, pixmap);
    connection.sync();
}

} // namespace

expected<std::unique_ptr<Desk>, QString> X11Desk::begin(const QString &windowManager)
{
    auto started = VirtualDesktop::start({.displays = twoDisplays});
    if (!started)
        return unexpected<QString>(started.error());
    (*started)->addToHome(QStringLiteral(CORVANE_DEMO_HOME));
    auto manager = WindowManagerProcess::start(**started, windowManager);
    if (!manager)
        return unexpected<QString>(manager.error());
    std::unique_ptr<X11Desk> desk(new X11Desk(std::move(*started)));
    desk->m_windowManager = std::move(*manager);
    return desk;
}

bool X11Desk::bringForward(Window window)
{
    Pager(m_desktop->connection()).activate(window);
    return waitUntil([&] { return m_probe.activeWindow() == window; });
}

bool X11Desk::fillDisplay(Window window)
{
    Pager(m_desktop->connection()).setMaximized(window, Pager::Change::add);
    const bool isMaximized =
        waitUntil([&] { return m_probe.hasState(window, "_NET_WM_STATE_MAXIMIZED_VERT"); });
    static_cast<void>(settledFrame(window));
    return isMaximized;
}

QString X11Desk::furnish()
{
    // Some window managers arrange the displays anew when they start.
    if (!m_desktop->displays().arrange(twoDisplays))
        return u"%1 does not leave the displays as they were"_s.arg(name());
    XConnection &connection = m_desktop->connection();
    setBackground(connection, connection.root(), boardPicture(displays()));
    m_panelOwner = std::make_unique<TestClient>(*m_desktop);
    const Rect display = displays().first();
    const Rect bounds{0, 0, displays().last().maxX(), display.height};
    const auto panel = m_panelOwner->show(
        WindowRequest::panel(display, WindowRequest::Side::top, panelHeight, bounds));
    if (!panel)
        return u"the panel did not appear"_s;
    setBackground(connection, panel, panelPicture({static_cast<int>(display.width), panelHeight}));
    return {};
}

Desk::Window X11Desk::waitForWindow(pid_t pid)
{
    return m_probe.waitForWindow(
        [&](xcb_window_t each) { return m_probe.hasProcess(each, pid); }, Milliseconds{20000});
}

SizeLimits X11Desk::measureLimits(Window window)
{
    const auto hints =
        x11::WindowHints::fromProperty(m_desktop->connection().numbers(window, "WM_NORMAL_HINTS"));
    const Size frame = m_probe.visibleFrame(window).value_or(Rect()).size();
    const Size client = m_probe.clientGeometry(window).value_or(Rect()).size();
    return {hints.increment,
        {hints.minimum.width + frame.width - client.width,
            hints.minimum.height + frame.height - client.height}};
}

void X11Desk::put(Window window, const Rect &frame)
{
    const auto present = m_probe.settledFrame(window);
    const auto client = m_probe.clientGeometry(window);
    if (!present || !client)
        return;
    Pager(m_desktop->connection())
        .moveResize(window,
            {frame.x, frame.y, frame.width - present->width + client->width,
                frame.height - present->height + client->height});
    static_cast<void>(settledFrame(window));
}

QImage X11Desk::picture()
{
    XConnection &connection = m_desktop->connection();
    const Rect whole = m_probe.clientGeometry(connection.root()).value_or(Rect());
    const QByteArray pixels = pixelsOn(connection, whole);
    return QImage(reinterpret_cast<const uchar *>(pixels.constData()),
        static_cast<int>(whole.width), static_cast<int>(whole.height), QImage::Format_RGB32)
        .copy();
}

} // namespace corvane::demo
