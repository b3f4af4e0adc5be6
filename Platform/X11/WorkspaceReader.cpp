#include "WorkspaceReader.h"

#include "Properties.h"
#include "SnapshotReader.h"

namespace corvane::x11 {

namespace {

constexpr quint32 everyDesktop = 0xFFFFFFFF;

struct Asked {
    WindowElement element;
    pid_t pid;
    SnapshotRequest request;
};

} // namespace

expected<QList<SeenWindow>, AXError> readWorkspace(Connection &connection, WindowRegistry &registry,
    const WindowManagerLink &windowManager, const QList<pid_t> &pids)
{
    const Answers answers(connection);
    const auto desktopCookie =
        requestProperty(connection, connection.root(), Atom::netCurrentDesktop);
    std::vector<Asked> asked;
    const auto stack = registry.frontToBack();
    for (const xcb_window_t window : stack) {
        const auto known = registry.known().constFind(window);
        if (known != registry.known().cend() && (pids.isEmpty() || pids.contains(known->pid)))
            asked.push_back(
                {{window, known->generation}, known->pid, requestSnapshot(connection, window)});
    }
    const auto desktopReply = propertyReply(connection, desktopCookie);
    const auto desktops = values32(desktopReply);
    const quint32 current = desktops.empty() ? 0 : desktops[0];

    const bool tiles = windowManager.tilesWindows();
    QList<SeenWindow> seen;
    for (const Asked &each : asked) {
        const auto snapshot = readSnapshot(connection, each.request, tiles);
        // A tiling window manager shows a workspace on each display.
        const bool isHere = snapshot
            && (snapshot->desktop == current || snapshot->desktop == everyDesktop
                || (tiles && snapshot->viewable));
        if (isHere)
            seen << SeenWindow{each.element, each.pid, *snapshot};
    }
    if (!answers.complete())
        return unexpected<AXError>(AXError::cannotComplete);
    return seen;
}

} // namespace corvane::x11
