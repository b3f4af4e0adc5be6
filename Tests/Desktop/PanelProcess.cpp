#include "PanelProcess.h"

#include <algorithm>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

constexpr int height = 30; // as in xfce4-panel.xml

// An empty desktop keeps the picture of what stood there before.
void clear(XConnection &connection)
{
    const quint32 black = connection.screen().black_pixel;
    xcb_change_window_attributes(connection.raw(), connection.root(), XCB_CW_BACK_PIXEL, &black);
    xcb_clear_area(connection.raw(), 0, connection.root(), 0, 0, 0, 0);
    connection.sync();
}

} // namespace

expected<std::unique_ptr<PanelProcess>, QString> PanelProcess::start(VirtualDesktop &desktop)
{
    clear(desktop.connection());
    std::unique_ptr<PanelProcess> panel(new PanelProcess(desktop));
    const auto isDrawn = [&] {
        const QByteArray pixels = pixelsOn(desktop.connection(), panel->iconPlace());
        return std::ranges::any_of(pixels, [](char each) { return each != 0; });
    };
    if (!waitUntil(isDrawn, Milliseconds{30000}))
        return unexpected<QString>(u"the panel did not appear:\n%1"_s.arg(desktop.logs()));
    return panel;
}

Rect PanelProcess::iconPlace() const
{
    const Rect display = m_desktop.displays().displays().first();
    return {display.maxX() - height, display.y, height, height - 1};
}

bool PanelProcess::showsIcon() const
{
    const QByteArray pixels = pixelsOn(m_desktop.connection(), iconPlace());
    const QByteArray background = pixels.left(bytesPerPixel);
    qsizetype drawn = 0;
    for (qsizetype at = 0; at < pixels.size(); at += bytesPerPixel)
        drawn += pixels.mid(at, bytesPerPixel) != background;
    return drawn > height;
}

} // namespace corvane::desktop
