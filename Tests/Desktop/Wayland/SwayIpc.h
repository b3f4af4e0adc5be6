#pragma once

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace corvane::desktop {

/// Asks a sway by its socket, a connection for each question.
class SwayIpc
{
public:
    enum class Message : quint32 {
        command = 0,
        workspaces = 1,
        outputs = 3,
        tree = 4,
        version = 7
    };

    explicit SwayIpc(const QString &path) : m_path(path.toLocal8Bit()) { }

    /// Null when it does not answer within ten seconds.
    [[nodiscard]] QJsonDocument ask(Message type, const QByteArray &text = {}) const
    {
        const int socket = connected();
        Header header{{'i', '3', '-', 'i', 'p', 'c'}, static_cast<quint32>(text.size()), type};
        const QByteArray bytes(reinterpret_cast<const char *>(&header), sizeof header);
        QByteArray answer;
        if (socket >= 0
            && ::send(socket, (bytes + text).constData(), size_t(bytes.size() + text.size()),
                   MSG_NOSIGNAL)
                > 0
            && receive(socket, &header, sizeof header)) {
            answer.resize(header.size);
            if (!receive(socket, answer.data(), header.size))
                answer.clear();
        }
        ::close(socket);
        // A title may be of any bytes, and sway hands them on as they are.
        return QJsonDocument::fromJson(QString::fromUtf8(answer).toUtf8());
    }
    /// Whether every part of the command succeeded.
    bool command(const QString &text) const
    {
        const QJsonArray results = ask(Message::command, text.toUtf8()).array();
        for (const QJsonValue &each : results) {
            if (!each[u"success"].toBool())
                return false;
        }
        return !results.isEmpty();
    }

private:
    struct [[gnu::packed]] Header {
        char magic[6];
        quint32 size;
        Message type;
    };

    [[nodiscard]] int connected() const
    {
        sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
        qstrncpy(address.sun_path, m_path.constData(), sizeof address.sun_path);
        const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const timeval limit{.tv_sec = 10, .tv_usec = 0};
        ::setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
        if (::connect(socket, reinterpret_cast<sockaddr *>(&address), sizeof address) == 0)
            return socket;
        ::close(socket);
        return -1;
    }
    [[nodiscard]] static bool receive(int socket, void *bytes, size_t count)
    {
        return ::recv(socket, bytes, count, MSG_WAITALL) == static_cast<ssize_t>(count);
    }

    QByteArray m_path;
};

} // namespace corvane::desktop
