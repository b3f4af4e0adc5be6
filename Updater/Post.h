#pragma once

#include "ReportAnswer.h"

#include <QtCore/QTimer>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkReply>

#include <chrono>
#include <functional>
#include <memory>

namespace corvane {

/// Sends one document to a server, and hands over what it answers. Only by https, unless the server is
/// this very computer, and only to the address that was asked for: no redirect is followed. Nothing is
/// kept of it, and the server learns no more of this computer than the program's version.
class Post final : public QObject
{
    Q_OBJECT

public:
    struct Limits {
        std::chrono::milliseconds silence = std::chrono::seconds(15);
        std::chrono::milliseconds whole = std::chrono::seconds(60);
        qsizetype document = 8LL * 1024 * 1024; ///< in bytes, as is the next
        qsizetype answer = 64LL * 1024;
    };
    using Answer = expected<QByteArray, SendFailure>;

    explicit Post(const Limits &limits);

    /// Calls `onEnd` once, never from within. To be called once.
    void send(
        const QUrl &address, const QByteArray &document, std::function<void(const Answer &)> onEnd);

private:
    void read();
    void finish();
    [[nodiscard]] Answer answer() const;
    void stop(SendProblem problem);

    Limits m_limits;
    QNetworkAccessManager m_manager;
    std::unique_ptr<QNetworkReply> m_reply;
    QByteArray m_body;
    std::optional<SendProblem> m_stopped; ///< why this side gave up
    QTimer m_deadline;
    std::function<void(const Answer &)> m_onEnd;
};

} // namespace corvane
