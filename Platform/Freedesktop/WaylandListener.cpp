#include "WaylandListener.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace corvane::freedesktop {

using namespace Qt::StringLiterals;

namespace {

QByteArray displayPath()
{
    const QString name = qEnvironmentVariable("WAYLAND_DISPLAY");
    if (name.isEmpty())
        return {};
    return QFile::encodeName(QDir(qEnvironmentVariable("XDG_RUNTIME_DIR")).filePath(name));
}

QString programOf(pid_t pid)
{
    QFile file(u"/proc/%1/comm"_s.arg(pid));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed() : QString();
}

} // namespace

std::optional<WaylandListener> waylandListener()
{
    const QByteArray path = displayPath();
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.isEmpty() || size_t(path.size()) >= sizeof(address.sun_path))
        return std::nullopt;
    std::memcpy(address.sun_path, path.constData(), size_t(path.size()));
    const int file = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (file < 0)
        return std::nullopt;
    ucred peer{};
    socklen_t size = sizeof(peer);
    const bool isKnown =
        connect(file, reinterpret_cast<const sockaddr *>(&address), sizeof(address)) == 0
        && getsockopt(file, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0;
    close(file);
    return isKnown ? std::optional(WaylandListener{peer.pid, programOf(peer.pid)}) : std::nullopt;
}

} // namespace corvane::freedesktop
