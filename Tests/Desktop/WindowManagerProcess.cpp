#include "WindowManagerProcess.h"

#include <algorithm>
#include <array>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

struct Row {
    QLatin1StringView name; ///< what `WindowManagerProcess` is asked for
    const char *command; ///< "~" stands for the private home
};

constexpr std::array table{
    Row{"openbox"_L1, "openbox --sm-disable"},
    Row{"xfwm4"_L1, "xfwm4 --compositor=off"},
    Row{"marco"_L1, "marco --no-composite --sm-disable"},
    Row{"metacity"_L1, "metacity --sm-disable"},
    Row{"mutter"_L1, "mutter --x11 --sm-disable"},
    Row{"kwin_x11"_L1, "kwin_x11"},
    Row{"icewm"_L1, "icewm"},
    Row{"fluxbox"_L1, "fluxbox"},
    Row{"fluxbox-tray"_L1, "fluxbox -rc ~/.fluxbox/init-tray"},
    Row{"i3"_L1, "i3"},
};

// A window manager announces itself a moment before it looks after new windows.
bool adoptsWindows(XConnection &connection)
{
    WindowProbe probe(connection);
    const auto adoptsTrial = [&] {
        const xcb_window_t trial = xcb_generate_id(connection.raw());
        xcb_create_window(connection.raw(), XCB_COPY_FROM_PARENT, trial, connection.root(), 0, 0,
            100, 100, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        const QList<quint32> takesNoInput{1, 0, 0, 0, 0, 0, 0, 0, 0};
        connection.setNumbers(trial, "WM_HINTS", "WM_HINTS", takesNoInput);
        xcb_map_window(connection.raw(), trial);
        const bool adopted = waitUntil([&] { return probe.isManaged(trial); }, Milliseconds{500});
        xcb_destroy_window(connection.raw(), trial);
        return waitUntil([&] { return !probe.clients().contains(trial); }) && adopted;
    };
    return waitUntil(adoptsTrial, Milliseconds{15000});
}

} // namespace

expected<std::unique_ptr<WindowManagerProcess>, QString> WindowManagerProcess::start(
    VirtualDesktop &desktop, const QString &name)
{
    const auto *row = std::ranges::find(table, name, &Row::name);
    if (row == table.end())
        return unexpected<QString>(u"no window manager is called \"%1\""_s.arg(name));
    const QStringList command =
        QString::fromLatin1(row->command).replace(u'~', desktop.home()).split(u' ');
    std::unique_ptr<WindowManagerProcess> process(
        new WindowManagerProcess(desktop, name, desktop.command(command.first(), command.mid(1))));
    WindowProbe probe(desktop.connection());
    const auto isUp = [&] { return !probe.windowManagerName().isEmpty(); };
    if (waitUntil(isUp, Milliseconds{30000}) && adoptsWindows(desktop.connection()))
        return process;
    return unexpected<QString>(
        u"%1 did not take over the windows:\n%2"_s.arg(name, desktop.logs()));
}

} // namespace corvane::desktop
