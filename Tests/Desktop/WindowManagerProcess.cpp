#include "WindowManagerProcess.h"

#include <algorithm>
#include <array>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

struct Row {
    QLatin1StringView name; ///< what `WindowManagerProcess` is asked for
    const char *command; ///< "~" stands for the private home
    QLatin1StringView announcedName; ///< begins the name on its supporting window
    bool canReplace = true;
};

constexpr std::array table{
    Row{"openbox"_L1, "openbox --sm-disable", "Openbox"_L1},
    Row{"xfwm4"_L1, "xfwm4 --compositor=off", "Xfwm4"_L1},
    Row{"marco"_L1, "marco --no-composite --sm-disable", "Metacity (Marco)"_L1},
    Row{"metacity"_L1, "metacity --sm-disable", "Metacity"_L1},
    Row{"mutter"_L1, "mutter --x11 --sm-disable", "Mutter"_L1},
    Row{"kwin_x11"_L1, "kwin_x11", "KWin"_L1},
    Row{"icewm"_L1, "icewm", "IceWM"_L1},
    Row{"fluxbox"_L1, "fluxbox", "Fluxbox"_L1, false},
    Row{"fluxbox-tray"_L1, "fluxbox -rc ~/.fluxbox/init-tray", "Fluxbox"_L1, false},
    Row{"i3"_L1, "i3", "i3"_L1},
};

const Row *rowOf(const QString &name)
{
    const auto *row = std::ranges::find(table, name, &Row::name);
    return row == table.end() ? nullptr : row;
}

// A window manager announces itself a moment before it looks after new windows.
bool adoptsWindows(XConnection &connection)
{
    WindowProbe probe(connection);
    return waitUntil(
        [&] {
            const xcb_window_t trial = xcb_generate_id(connection.raw());
            xcb_create_window(connection.raw(), XCB_COPY_FROM_PARENT, trial, connection.root(), 0,
                0, 100, 100, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
            const QList<quint32> takesNoInput{1, 0, 0, 0, 0, 0, 0, 0, 0};
            connection.setNumbers(trial, "WM_HINTS", "WM_HINTS", takesNoInput);
            xcb_map_window(connection.raw(), trial);
            const bool adopted =
                waitUntil([&] { return probe.isManaged(trial); }, Milliseconds{500});
            xcb_destroy_window(connection.raw(), trial);
            return waitUntil([&] { return !probe.clients().contains(trial); }) && adopted;
        },
        Milliseconds{15000});
}

} // namespace

expected<std::unique_ptr<WindowManagerProcess>, QString> WindowManagerProcess::start(
    VirtualDesktop &desktop, const QString &name, Takeover takeover)
{
    const Row *row = rowOf(name);
    if (!row)
        return unexpected<QString>(u"no window manager is called \"%1\""_s.arg(name));
    QStringList command =
        QString::fromLatin1(row->command).replace(u'~', desktop.folder() + u"/home"_s).split(u' ');
    const bool replaces = takeover == Takeover::replace;
    if (replaces)
        command << u"--replace"_s;
    XConnection &connection = desktop.connection();
    const auto announced = [&] {
        return connection.numbers(connection.root(), "_NET_SUPPORTING_WM_CHECK");
    };
    const QList<quint32> before = replaces ? announced() : QList<quint32>();
    std::unique_ptr<WindowManagerProcess> process(
        new WindowManagerProcess(desktop, name, desktop.command(command.first(), command.mid(1))));
    const auto isUp = [&] {
        return announced() != before
            && WindowProbe(connection).windowManagerName().startsWith(row->announcedName);
    };
    if (waitUntil(isUp, Milliseconds{30000}) && adoptsWindows(connection))
        return process;
    return unexpected<QString>(
        u"%1 did not take over the windows:\n%2"_s.arg(name, desktop.logs()));
}

QStringList WindowManagerProcess::names()
{
    QStringList names;
    for (const Row &row : table)
        names << row.name;
    return names;
}

bool WindowManagerProcess::canReplace(const QString &name)
{
    const Row *row = rowOf(name);
    return row && row->canReplace;
}

void WindowManagerProcess::awaitItsEnd()
{
    WindowProbe probe(m_desktop.connection());
    static_cast<void>(waitUntil([&] { return probe.windowManagerName().isEmpty(); }));
}

} // namespace corvane::desktop
