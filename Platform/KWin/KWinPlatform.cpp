#include "KWinPlatform.h"

#include "KWinCompositor.h"
#include "KWinHotKeys.h"
#include "WaylandListener.h"
#include "WaylandPlatform.h"

#include <QtCore/QFile>
#include <QtDBus/QDBusReply>

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

pid_t processOfKWin()
{
    QDBusMessage call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
        QStringLiteral("/org/freedesktop/DBus"), QStringLiteral("org.freedesktop.DBus"),
        QStringLiteral("GetConnectionUnixProcessID"));
    call << QStringLiteral("org.kde.KWin");
    constexpr int timeout = 1'000;
    const QDBusReply<uint> answer = QDBusConnection::sessionBus().call(call, QDBus::Block, timeout);
    return answer.isValid() ? static_cast<pid_t>(answer.value()) : 0;
}

} // namespace

/// On X11, KWin has the same name on the bus. Plasma's sessions have a guard listen, which starts KWin
/// again should it crash.
bool kwinAnswers()
{
    const auto listener = freedesktop::waylandListener();
    const pid_t kwin = listener ? processOfKWin() : 0;
    return kwin != 0 && (listener->pid == kwin || listener->pid == parentOf(kwin));
}

expected<std::unique_ptr<Platform>, QString> openKWinPlatform(std::function<void()> onBroken)
{
    auto compositor = std::make_unique<KWinCompositor>();
    auto makeHotKeys = [&compositor = *compositor](wayland::Keyboard &keyboard) {
        return std::make_unique<KWinHotKeys>(keyboard, compositor);
    };
    return wayland::openWaylandPlatform(
        {.compositor = std::move(compositor), .makeHotKeys = std::move(makeHotKeys)},
        std::move(onBroken));
}

} // namespace corvane
