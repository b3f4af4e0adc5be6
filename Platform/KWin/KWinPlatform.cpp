#include "KWinPlatform.h"

#include "AgentCompositor.h"
#include "BusCall.h"
#include "KWinHotKeys.h"
#include "ScriptHost.h"
#include "WaylandListener.h"
#include "WaylandPlatform.h"

#include <QtCore/QFile>

namespace corvane {

using namespace kwin;

namespace {

pid_t parentOf(pid_t pid)
{
    QFile file(QStringLiteral("/proc/%1/status").arg(pid));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    constexpr QByteArrayView label = "PPid:";
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(label))
            return line.mid(label.size()).trimmed().toInt();
    }
    return 0;
}

} // namespace

/// On X11, KWin has the same name on the bus. Plasma's sessions have a guard listen, which starts KWin
/// again should it crash.
bool kwinAnswers()
{
    const auto listener = freedesktop::waylandListener();
    const pid_t kwin = listener ? freedesktop::processOf(QStringLiteral("org.kde.KWin")) : 0;
    return kwin != 0 && (listener->pid == kwin || listener->pid == parentOf(kwin));
}

expected<std::unique_ptr<Platform>, QString> openKWinPlatform(std::function<void()> onBroken)
{
    // To be loaded and answer for the first time.
    constexpr std::chrono::milliseconds startTime(2000);
    const auto makeHost = [](wayland::AgentMailbox &mailbox) {
        return std::make_unique<ScriptHost>(mailbox);
    };
    const auto makeHotKeys = [](wayland::Keyboard &keyboard) {
        return std::make_unique<KWinHotKeys>(keyboard);
    };
    return wayland::openWaylandPlatform(
        {.compositor = std::make_unique<wayland::AgentCompositor>(makeHost, startTime),
            .makeHotKeys = makeHotKeys},
        std::move(onBroken));
}

} // namespace corvane
