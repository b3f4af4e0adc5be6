#include "Desk.h"

#include "Pager.h"
#include "Pictures.h"

namespace corvane::demo {

using namespace Qt::StringLiterals;
using namespace desktop;

namespace {

const QList<Rect> twoDisplays{{0, 0, 1680, 1050}, {1680, 26, 1280, 1024}};
constexpr int panelHeight = 32;

struct Row {
    const char *title;
    const char *windowClass; ///< part of the WM_CLASS of its window
    Rect startFrame; ///< where its window stands before anybody tidies up
    QStringList command;
};

QStringList xterm(const QString &name, const QString &ground, const QString &fore)
{
    return {u"xterm"_s, u"-name"_s, u"demo-"_s + name.toLower(), u"-T"_s, name, u"-fa"_s,
        u"DejaVu Sans Mono"_s, u"-fs"_s, u"11"_s, u"-b"_s, u"12"_s, u"-bg"_s, ground, u"-fg"_s,
        fore, u"-cr"_s, ground, u"+sb"_s, u"-e"_s, u"bash"_s,
        QStringLiteral(CORVANE_DEMO_TERMINAL)};
}

const Row &rowOf(Application application)
{
    static const std::array table{
        Row{"Terminal", "demo-terminal", {72, 96, 880, 560},
            xterm(u"Terminal"_s, u"#16181D"_s, u"#ECEAE4"_s)
                << u"follow"_s << QStringLiteral(CORVANE_PROGRAM)},
        Row{"Source", "demo-source", {744, 188, 700, 600},
            xterm(u"Source"_s, u"#FBFAF6"_s, u"#1B1D22"_s)
                << u"page"_s << QStringLiteral(CORVANE_DEMO_SOURCE)},
        Row{"Notes", "corvane-demo-notes", {330, 420, 760, 520},
            {QStringLiteral(CORVANE_DEMO_NOTES)}},
        Row{"GTK Demo", "gtk3-demo", {1010, 400, 800, 600}, {u"gtk3-demo"_s}},
        Row{"Icon Browser", "gtk3-icon-browser", {1900, 130, 780, 740}, {u"gtk3-icon-browser"_s}},
    };
    return table[static_cast<std::size_t>(application)];
}

} // namespace

QString title(Application application)
{
    return QString::fromLatin1(rowOf(application).title);
}

expected<std::unique_ptr<Desk>, QString> Desk::start(const QString &windowManager)
{
    auto started = VirtualDesktop::start({.displays = twoDisplays});
    if (!started)
        return unexpected<QString>(started.error());
    std::unique_ptr<Desk> desk(new Desk(std::move(*started)));
    desk->desktop().addToHome(QStringLiteral(CORVANE_DEMO_HOME));
    auto manager = WindowManagerProcess::start(desk->desktop(), windowManager);
    if (!manager)
        return unexpected<QString>(manager.error());
    desk->m_windowManager = std::move(*manager);
    if (const QString error = desk->furnish(windowManager); !error.isEmpty())
        return unexpected<QString>(u"%1:\n%2"_s.arg(error, desk->desktop().logs()));
    return desk;
}

QList<Rect> Desk::areas() const
{
    QList<Rect> areas = displays();
    areas.first().y += panelHeight;
    areas.first().height -= panelHeight;
    return areas;
}

QString Desk::furnish(const QString &windowManager)
{
    // Some window managers arrange the displays anew when they start.
    if (!m_desktop->displays().arrange(twoDisplays))
        return u"%1 does not leave the displays as they were"_s.arg(windowManager);
    setBackground(connection(), connection().root(), boardPicture(displays()));
    m_panelOwner = std::make_unique<TestClient>(*m_desktop);
    const Rect display = displays().first();
    const Rect bounds{0, 0, displays().last().maxX(), display.height};
    const auto panel = m_panelOwner->show(
        WindowRequest::panel(display, WindowRequest::Side::top, panelHeight, bounds));
    if (!panel)
        return u"the panel did not appear"_s;
    setBackground(
        connection(), panel, panelPicture({static_cast<int>(display.width), panelHeight}));
    if (const QString error = openApplications(); !error.isEmpty())
        return error;
    strew();
    return {};
}

QString Desk::openApplications()
{
    for (const Application application : applications) {
        const QStringList &command = rowOf(application).command;
        m_processes.push_back(m_desktop->launch(command.first(), command.mid(1)));
    }
    WindowProbe probe(connection());
    for (const Application application : applications) {
        const xcb_window_t window = probe.waitForWindow(
            [&](xcb_window_t each) { return probe.hasClass(each, rowOf(application).windowClass); },
            Milliseconds{20000});
        if (!window)
            return u"%1 showed no window"_s.arg(title(application));
        m_windows.insert(application, window);
    }
    return {};
}

void Desk::strew()
{
    WindowProbe probe(connection());
    for (const Application application : applications) {
        const xcb_window_t each = window(application);
        const auto frame = probe.settledFrame(each);
        const auto client = probe.clientGeometry(each);
        if (!frame || !client)
            continue;
        const Rect &start = rowOf(application).startFrame;
        Pager(connection())
            .moveResize(each,
                {start.x, start.y, start.width - frame->width + client->width,
                    start.height - frame->height + client->height});
        static_cast<void>(probe.settledFrame(each));
    }
}

} // namespace corvane::demo
