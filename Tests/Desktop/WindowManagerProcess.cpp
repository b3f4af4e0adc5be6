#include "WindowManagerProcess.h"

#include "WindowManagerFiles.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

#include <algorithm>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

const WindowManagerFiles *filesOf(const QString &name)
{
    const auto &list = WindowManagerFiles::all();
    const auto found = std::ranges::find(list, name, &WindowManagerFiles::name);
    return found == list.end() ? nullptr : &*found;
}

void writeFiles(const WindowManagerFiles &manager, const QString &folder)
{
    for (const auto &[path, text] : manager.files) {
        QFile file(folder + u'/' + path);
        QDir().mkpath(QFileInfo(file.fileName()).path());
        if (file.open(QIODevice::WriteOnly))
            file.write(QByteArray(text).replace("%1", folder.toLocal8Bit()));
    }
}

QStringList argumentsOf(const WindowManagerFiles &manager, const QString &folder)
{
    QStringList arguments = manager.arguments;
    return arguments.replaceInStrings(u"%1"_s, folder);
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
    const WindowManagerFiles *manager = filesOf(name);
    if (!manager)
        return unexpected<QString>(u"no window manager is called \"%1\""_s.arg(name));
    writeFiles(*manager, desktop.configFolder());
    QStringList arguments = argumentsOf(*manager, desktop.configFolder());
    if (takeover == Takeover::replace)
        arguments << manager->replaceFlag;
    std::unique_ptr<WindowManagerProcess> process(new WindowManagerProcess(desktop, name));
    WindowProbe probe(desktop.connection());
    const auto announced = [&] {
        return desktop.connection().numbers(
            desktop.connection().root(), "_NET_SUPPORTING_WM_CHECK");
    };
    const QList<quint32> before = takeover == Takeover::replace ? announced() : QList<quint32>();
    process->m_process = desktop.launch(manager->program, arguments);
    const bool up = waitUntil(
        [&] {
            return announced() != before
                && probe.windowManagerName().startsWith(manager->announcedName);
        },
        Milliseconds{30000});
    if (up && adoptsWindows(desktop.connection()))
        return process;
    return unexpected<QString>(
        u"%1 did not take over the windows:\n%2"_s.arg(name, desktop.logs()));
}

QStringList WindowManagerProcess::names()
{
    QStringList names;
    for (const WindowManagerFiles &manager : WindowManagerFiles::all())
        names << manager.name;
    return names;
}

bool WindowManagerProcess::canReplace(const QString &name)
{
    const WindowManagerFiles *manager = filesOf(name);
    return manager && !manager->replaceFlag.isEmpty();
}

WindowManagerProcess::WindowManagerProcess(VirtualDesktop &desktop, QString name)
    : m_desktop(desktop), m_name(std::move(name))
{
}

WindowManagerProcess::~WindowManagerProcess() = default;

void WindowManagerProcess::stop()
{
    m_process->stop();
    static_cast<void>(waitUntil(
        [this] { return WindowProbe(m_desktop.connection()).windowManagerName().isEmpty(); }));
}

void WindowManagerProcess::crash()
{
    m_process->kill();
    static_cast<void>(waitUntil(
        [this] { return WindowProbe(m_desktop.connection()).windowManagerName().isEmpty(); }));
}

} // namespace corvane::desktop
