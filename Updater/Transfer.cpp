#include "Transfer.h"

#include "ServerAddress.h"

#include <QtNetwork/QNetworkProxy>
#include <QtNetwork/QNetworkRequest>
#include <QtNetwork/QSslConfiguration>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr int mostRedirections = 5;
constexpr qint64 bufferSize = 64LL * 1024;

QNetworkRequest requestTo(const QUrl &address, std::chrono::milliseconds silence)
{
    QNetworkRequest request(address);
    // Qt would say by itself which languages the user reads, and that it can unpack.
    request.setRawHeader("Accept-Language", "en");
    request.setRawHeader("Accept-Encoding", "identity");
    request.setRawHeader("User-Agent", "Corvane/" CORVANE_VERSION);
    request.setAttribute(
        QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    for (const auto attribute :
        {QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::CookieSaveControlAttribute,
            QNetworkRequest::AuthenticationReuseAttribute})
        request.setAttribute(attribute, QNetworkRequest::Manual);
    request.setAttribute(
        QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    request.setTransferTimeout(static_cast<int>(silence.count()));
    QSslConfiguration secure = request.sslConfiguration();
    secure.setProtocol(QSsl::TlsV1_2OrLater);
    request.setSslConfiguration(secure);
    return request;
}

SendProblem problemOf(QNetworkReply::NetworkError error)
{
    switch (error) {
    case QNetworkReply::SslHandshakeFailedError:
        return SendProblem::untrusted;
    case QNetworkReply::OperationCanceledError:
    case QNetworkReply::TimeoutError:
    case QNetworkReply::ProxyTimeoutError:
        return SendProblem::timedOut;
    case QNetworkReply::ProtocolInvalidOperationError:
    case QNetworkReply::ProtocolFailure:
    case QNetworkReply::UnknownContentError:
        return SendProblem::answerNotUnderstood;
    default:
        return SendProblem::unreachable;
    }
}

/// Nothing where the server has done what it was asked for.
std::optional<SendProblem> problemOfStatus(int status)
{
    if (status >= 200 && status < 300)
        return std::nullopt;
    if (status >= 300 && status < 400)
        return SendProblem::redirected;
    if (status == 413)
        return SendProblem::documentTooLarge;
    if (status == 429)
        return SendProblem::tooMany;
    return status >= 500 ? SendProblem::serverFailed : SendProblem::refused;
}

/// Nothing while no status is known.
std::optional<int> statusOf(const QNetworkReply &reply)
{
    const QVariant status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute);
    return status.isValid() ? std::optional(status.toInt()) : std::nullopt;
}

} // namespace

Transfer::Transfer(const Limits &limits, Listener listener)
    : m_limits(limits), m_listener(std::move(listener))
{
    m_deadline.setSingleShot(true);
    m_deadline.callOnTimeout(this, [this] { stop(SendProblem::timedOut); });
    m_pace.callOnTimeout(this, &Transfer::checkPace);
}

void Transfer::start(const QUrl &address, Ask ask, MayFollow mayFollow)
{
    m_ask = std::move(ask);
    m_mayFollow = std::move(mayFollow);
    m_stopped.reset();
    m_redirections = 0;
    m_isUnderWay = true;
    if (m_limits.whole.count() > 0)
        m_deadline.start(m_limits.whole);
    this->ask(address);
}

void Transfer::ask(const QUrl &address)
{
    if (!isPrivateAddress(address)) {
        m_stopped = SendProblem::noAddress;
        QMetaObject::invokeMethod(this, &Transfer::finish, Qt::QueuedConnection);
        return;
    }
    // What is for this very computer goes through nobody else.
    m_manager.setProxy(
        address.scheme() == "http"_L1 ? QNetworkProxy::NoProxy : QNetworkProxy::DefaultProxy);
    m_received = 0;
    m_receivedBefore = -1;
    m_reply.reset(m_ask(m_manager, requestTo(address, m_limits.silence)));
    m_reply->setReadBufferSize(bufferSize);
    connect(m_reply.get(), &QNetworkReply::readyRead, this, &Transfer::read);
    connect(m_reply.get(), &QNetworkReply::finished, this, &Transfer::finish, Qt::QueuedConnection);
    if (m_limits.pace > 0)
        m_pace.start(m_limits.period);
}

void Transfer::read()
{
    const QByteArray piece = m_reply->readAll();
    const auto status = statusOf(*m_reply);
    if (!status || problemOfStatus(*status)) {
        // Whatever else such an answer says. Qt has not yet noted that it is one.
        QMetaObject::invokeMethod(m_reply.get(), &QNetworkReply::abort, Qt::QueuedConnection);
        return;
    }
    m_received += piece.size();
    if (m_received > m_limits.answer)
        stop(SendProblem::answerTooLong);
    else if (!piece.isEmpty())
        m_listener.onPiece(piece);
}

void Transfer::checkPace()
{
    if (m_receivedBefore >= 0 && m_received - m_receivedBefore < m_limits.pace)
        stop(SendProblem::timedOut);
    m_receivedBefore = m_received;
}

void Transfer::stop(SendProblem problem)
{
    if (m_stopped)
        return;
    m_stopped = problem;
    m_reply->abort();
}

void Transfer::cancel()
{
    m_isUnderWay = false;
    m_deadline.stop();
    m_pace.stop();
    if (m_reply)
        m_reply->abort();
}

void Transfer::finish()
{
    if (!m_isUnderWay)
        return;
    m_pace.stop();
    if (m_reply && m_reply->isOpen())
        read();
    if (const auto next = redirection()) {
        ++m_redirections;
        return ask(*next);
    }
    m_isUnderWay = false;
    m_deadline.stop();
    const auto onEnd = m_listener.onEnd; // which may end this object, and itself
    onEnd(end());
}

std::optional<QUrl> Transfer::redirection() const
{
    if (m_stopped || !m_mayFollow || m_redirections == mostRedirections)
        return std::nullopt;
    const QUrl target = m_reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    const QUrl next = m_reply->url().resolved(target);
    return !target.isEmpty() && m_mayFollow(m_reply->url(), next) ? std::optional(next)
                                                                  : std::nullopt;
}

Transfer::End Transfer::end() const
{
    const auto failure = [](SendProblem problem, const QString &detail = {}) {
        return unexpected<SendFailure>(SendFailure{problem, detail});
    };
    if (m_stopped)
        return failure(*m_stopped);
    // A server that answers before it has read everything closes the connection.
    const auto status = statusOf(*m_reply);
    if (const auto problem = status ? problemOfStatus(*status) : std::nullopt)
        return failure(*problem, QString::number(*status));
    if (m_reply->error() != QNetworkReply::NoError)
        return failure(problemOf(m_reply->error()), m_reply->errorString());
    // Of a connection that is cut in the body, Qt does not always tell.
    const QVariant length = m_reply->header(QNetworkRequest::ContentLengthHeader);
    if (length.isValid() && length.toLongLong() != m_received)
        return failure(SendProblem::unreachable);
    return {};
}

} // namespace corvane
