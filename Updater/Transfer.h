#pragma once

#include "ReportAnswer.h"

#include <QtCore/QTimer>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkReply>

#include <chrono>
#include <functional>
#include <memory>

namespace corvane {

/// One request to a server and its answer, within limits of time and size. Only by https, unless the
/// server is this very computer. Nothing is kept of it, and the server learns no more of this computer
/// than the program's version.
class Transfer final : public QObject
{
public:
    struct Limits {
        std::chrono::milliseconds silence = std::chrono::seconds(15);
        std::chrono::milliseconds whole{}; ///< zero is as long as it takes
        qint64 answer = 0; ///< in bytes, as is the next
        qint64 pace = 0; ///< what must come in every period but the first
        std::chrono::milliseconds period = std::chrono::minutes(1);
    };
    using End = expected<void, SendFailure>;
    struct Listener {
        /// Of a good answer, so far. May call `cancel`.
        std::function<void(const QByteArray &piece)> onPiece;
        /// Called once, never from within. May start the next, or end this object.
        std::function<void(const End &)> onEnd;
    };
    using Ask = std::function<QNetworkReply *(QNetworkAccessManager &, const QNetworkRequest &)>;
    using MayFollow = std::function<bool(const QUrl &from, const QUrl &to)>;

    Transfer(const Limits &limits, Listener listener);

    /// Asks the address, and where that leads if it may. What is under way must have ended.
    void start(const QUrl &address, Ask ask, MayFollow mayFollow = {});
    /// Gives up; the listener hears no more.
    void cancel();

private:
    void ask(const QUrl &address);
    void read();
    void finish();
    void checkPace();
    void stop(SendProblem problem);
    [[nodiscard]] std::optional<QUrl> redirection() const;
    [[nodiscard]] End end() const;

    Limits m_limits;
    Listener m_listener;
    Ask m_ask;
    MayFollow m_mayFollow;
    QNetworkAccessManager m_manager;
    std::unique_ptr<QNetworkReply> m_reply;
    bool m_isUnderWay = false;
    std::optional<SendProblem> m_stopped; ///< why this side gave up
    int m_redirections = 0;
    qint64 m_received = 0;
    qint64 m_receivedBefore = 0; ///< when the period began; negative in the first
    QTimer m_deadline;
    QTimer m_pace;
};

} // namespace corvane
