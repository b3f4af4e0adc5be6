#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QTimer>
#include <QtCore/QUrl>
#include <QtNetwork/QSslCertificate>
#include <QtNetwork/QSslKey>
#include <QtNetwork/QSslServer>

#include <map>
#include <memory>

namespace corvane {

using namespace Qt::StringLiterals;

/// A server on this computer that answers every request with given bytes, however wrong.
class TestServer final : public QObject
{
public:
    enum class Then { close, stay, drip };

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

    std::map<QByteArray, QByteArray> answers; ///< by path; the given bytes for every other
    QByteArrayList requests; ///< whole ones
    QByteArrayList firstAnswers; ///< to the first requests, one to each

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
            socket.write(answerTo(requests.last().split(' ').value(1)));
            socket.flush(); // for its end to come right behind
            if (m_then == Then::close)
                socket.disconnectFromHost();
            if (m_then == Then::drip)
                drip(socket);
        };
        connect(&socket, &QTcpSocket::readyRead, this, read);
        connect(&socket, &QTcpSocket::disconnected, &socket, &QObject::deleteLater);
    }

    [[nodiscard]] QByteArray answerTo(const QByteArray &path)
    {
        if (!firstAnswers.isEmpty())
            return firstAnswers.takeFirst();
        const auto known = answers.find(path);
        return known == answers.end() ? m_answer : known->second;
    }

    /// A byte now and then, without an end.
    static void drip(QTcpSocket &socket)
    {
        auto *const timer = new QTimer(&socket);
        timer->callOnTimeout(&socket, [&socket] { socket.write("x"); });
        timer->start(std::chrono::milliseconds(1));
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
