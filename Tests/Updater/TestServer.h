#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QUrl>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslKey>
#include <QtNetwork/QSslServer>

#include <memory>

namespace corvane {

using namespace Qt::StringLiterals;

/// A server on this computer that answers every request with the same bytes, however wrong.
class TestServer final : public QObject
{
public:
    enum class Then { close, stay };

    explicit TestServer(const QByteArray &answer, Then then = Then::close,
        std::unique_ptr<QTcpServer> server = std::make_unique<QTcpServer>())
        : m_answer(answer), m_then(then), m_server(std::move(server))
    {
        connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, this, [this] {
            while (QTcpSocket *const socket = m_server->nextPendingConnection())
                serve(*socket);
        });
        m_server->listen(QHostAddress::LocalHost);
    }

    [[nodiscard]] QUrl address(const QString &scheme = u"http"_s) const
    {
        return u"%1://127.0.0.1:%2/new"_s.arg(scheme).arg(m_server->serverPort());
    }
    [[nodiscard]] bool waitForRequest() const
    {
        const QDeadlineTimer deadline(std::chrono::seconds(20));
        while (requests.isEmpty() && !deadline.hasExpired())
            QCoreApplication::processEvents();
        return !requests.isEmpty();
    }

    QByteArrayList requests; ///< whole ones

private:
    void serve(QTcpSocket &socket)
    {
        const auto read = [this, &socket, request = QByteArray()]() mutable {
            request += socket.readAll();
            const qsizetype head = request.indexOf("\r\n\r\n");
            const qsizetype length = request.indexOf("Content-Length: ");
            if (head < 0 || request.size() < head + 4 + request.mid(length + 16, 9).toInt())
                return;
            requests << std::exchange(request, {});
            socket.write(m_answer);
            socket.flush(); // for its end to come right behind
            if (m_then == Then::close)
                socket.disconnectFromHost();
        };
        connect(&socket, &QTcpSocket::readyRead, this, read);
        connect(&socket, &QTcpSocket::disconnected, &socket, &QObject::deleteLater);
    }

    QByteArray m_answer;
    Then m_then;
    std::unique_ptr<QTcpServer> m_server;
};

[[nodiscard]] inline QByteArray httpAnswer(
    const QByteArray &status, const QByteArray &body, const QByteArray &headers = {})
{
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n"
        + headers + "\r\n" + body;
}

inline const QByteArray goodAnswer = httpAnswer("201 Created", R"({"id":"R-17"})");

} // namespace corvane
