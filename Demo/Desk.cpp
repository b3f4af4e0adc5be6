#include "Desk.h"

#include "Board.h"
#include "KeyPresser.h"
#include "Look.h"
#include "Pager.h"

#include <QtCore/QFileInfo>

#include <algorithm>

namespace corvane::demo {

using namespace Qt::StringLiterals;
using desktop::Key;
using desktop::KeyPresser;
using desktop::Pager;
using desktop::TestClient;
using desktop::VirtualDesktop;
using desktop::waitUntil;
using desktop::WindowManagerProcess;
using desktop::WindowProbe;
using desktop::WindowRequest;

namespace {

constexpr Rect firstDisplay{0, 0, 1680, 1050};
constexpr Rect secondDisplay{1680, 26, 1280, 1024};
constexpr int panelHeight = 32;

Rect belowPanel(Rect display)
{
    display.y += panelHeight;
    display.height -= panelHeight;
    return display;
}

} // namespace

expected<std::unique_ptr<Desk>, QString> Desk::start(const QString &windowManager)
{
    VirtualDesktop::Options options;
    options.displays = {firstDisplay, secondDisplay};
    auto started = VirtualDesktop::start(options);
    if (!started)
        return unexpected<QString>(started.error());
    std::unique_ptr<Desk> desk(new Desk(std::move(*started)));
    auto manager = WindowManagerProcess::start(desk->desktop(), windowManager);
    if (!manager)
        return unexpected<QString>(manager.error());
    desk->m_windowManager = std::move(*manager);
    // Some window managers arrange the displays anew when they start.
    if (!desk->desktop().displays().arrange(options.displays))
        return unexpected<QString>(
            u"%1 does not leave the displays as they were"_s.arg(windowManager));
    setBackground(desk->connection(), desk->connection().root(), boardPicture(options.displays));
    setToolkitLook(desk->desktop());
    if (windowManager == "openbox"_L1 && !setOpenboxLook(desk->desktop()))
        return unexpected<QString>(u"openbox did not take its look"_s);
    if (const QString error = desk->showPanel(); !error.isEmpty())
        return unexpected<QString>(error);
    if (const QString error = desk->openApplications(); !error.isEmpty())
        return unexpected<QString>(error);
    desk->strew();
    desk->leafToDevices();
    return desk;
}

Desk::Desk(std::unique_ptr<VirtualDesktop> desktop) : m_desktop(std::move(desktop)) { }

xcb_window_t Desk::window(Application application) const
{
    return m_windows.value(application);
}

QList<Rect> Desk::areas() const
{
    QList<Rect> areas = displays();
    areas.first() = belowPanel(areas.first());
    return areas;
}

QString Desk::showPanel()
{
    m_panelOwner = std::make_unique<TestClient>(*m_desktop);
    Rect bounds = firstDisplay;
    bounds.width = secondDisplay.maxX();
    const auto window = m_panelOwner->show(
        WindowRequest::panel(firstDisplay, WindowRequest::Side::top, panelHeight, bounds));
    if (!window)
        return u"the panel did not appear:\n%1"_s.arg(m_desktop->logs());
    setBackground(
        connection(), window, panelPicture({static_cast<int>(firstDisplay.width), panelHeight}));
    return {};
}

QString Desk::openApplications()
{
    const QString log = u"%1/%2.log"_s.arg(
        m_desktop->folder(), QFileInfo(QString::fromUtf8(CORVANE_PROGRAM)).fileName());
    for (const Application application : applications) {
        const QStringList command = commandLine(application, log);
        m_processes.push_back(m_desktop->launch(command.first(), command.mid(1)));
    }
    WindowProbe probe(connection());
    for (const Application application : applications) {
        const xcb_window_t window = probe.waitForWindow(
            [&](xcb_window_t each) { return probe.hasClass(each, windowClass(application)); },
            desktop::Milliseconds{20000});
        if (!window)
            return u"%1 showed no window:\n%2"_s.arg(title(application), m_desktop->logs());
        m_windows.insert(application, window);
    }
    return {};
}

void Desk::strew()
{
    WindowProbe probe(connection());
    Pager pager(connection());
    for (const Application application : applications) {
        const xcb_window_t each = window(application);
        const auto frame = probe.settledFrame(each);
        const auto client = probe.clientGeometry(each);
        if (!frame || !client)
            continue;
        const Rect start = startFrame(application);
        pager.moveResize(each,
            {start.x, start.y, start.width - frame->width + client->width,
                start.height - frame->height + client->height});
        static_cast<void>(probe.settledFrame(each));
    }
}

// The page of the icon browser that fills a window best.
void Desk::leafToDevices()
{
    constexpr int pagesBefore = 9;
    WindowProbe probe(connection());
    const xcb_window_t browser = window(Application::icons);
    Pager(connection()).activate(browser);
    if (!waitUntil([&] { return probe.activeWindow() == browser; }))
        return;
    KeyPresser keys(connection());
    for (int page = 0; page < pagesBefore; ++page)
        keys.press({0, Key::down});
}

} // namespace corvane::demo
