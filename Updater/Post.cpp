#include "Post.h"

#include "ServerAddress.h"

#include <QtNetwork/QNetworkProxy>
#include <QtNetwork/QNetworkRequest>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QNetworkRequest requestTo(const QUrl &address, const Post::Limits &limits)
{
    QNetworkRequest request(address);
    // Qt would say by itself which languages the user reads, and that it can unpack.
    request.setRawHeader("Accept-Language", "en");
    request.setRawHeader("Accept-Encoding", "identity");
    request.setRawHeader("User-Agent", "Corvane/" CORVANE_VERSION);
    request.setHeader(QNetworkRequest::ContentTypeHeader, u"application/json"_s);
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
    request.setTransferTimeout(static_cast<int>(limits.silence.count()));
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

/// Nothing where the server has taken the document.
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

} // namespace

Post::Post(const Limits &limits) : m_limits(limits)
{
    m_deadline.setSingleShot(true);
    m_deadline.callOnTimeout(this, [this] { stop(SendProblem::timedOut); });
}

void Post::send(
    const QUrl &address, const QByteArray &document, std::function<void(const Answer &)> onEnd)
{
    m_onEnd = std::move(onEnd);
    if (document.size() > m_limits.document)
        m_stopped = SendProblem::documentTooLarge;
    else if (!isPrivateAddress(address))
        m_stopped = SendProblem::noAddress;
    if (m_stopped) {
        QMetaObject::invokeMethod(this, &Post::finish, Qt::QueuedConnection);
        return;
    }
    // What is for this very computer goes through nobody else.
    if (address.scheme() == "http"_L1)
        m_manager.setProxy(QNetworkProxy::NoProxy);
    m_reply.reset(m_manager.post(requestTo(address, m_limits), document));
    m_reply->setReadBufferSize(m_limits.answer);
    connect(m_reply.get(), &QNetworkReply::readyRead, this, &Post::read);
    connect(m_reply.get(), &QNetworkReply::finished, this, &Post::finish);
    m_deadline.start(m_limits.whole);
}

void Post::read()
{
    m_body += m_reply->readAll();
    if (m_body.size() > m_limits.answer)
        stop(SendProblem::answerTooLong);
}

void Post::stop(SendProblem problem)
{
    if (m_stopped)
        return;
    m_stopped = problem;
    m_reply->abort();
}

void Post::finish()
{
    m_deadline.stop();
    if (m_reply && m_reply->isOpen())
        read();
    if (const auto onEnd = std::exchange(m_onEnd, nullptr))
        onEnd(answer());
}

Post::Answer Post::answer() const
{
    if (m_stopped)
        return unexpected<SendFailure>(SendFailure{*m_stopped});
    // A server that answers before it has read everything closes the connection.
    const QVariant status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    if (const auto problem = status.isValid() ? problemOfStatus(status.toInt()) : std::nullopt)
        return unexpected<SendFailure>(SendFailure{*problem, status.toString()});
    if (m_reply->error() != QNetworkReply::NoError)
        return unexpected<SendFailure>(
            SendFailure{problemOf(m_reply->error()), m_reply->errorString()});
    // Of a connection that is cut in the body, Qt does not always tell.
    const QVariant length = m_reply->header(QNetworkRequest::ContentLengthHeader);
    if (length.isValid() && length.toLongLong() != m_body.size())
        return unexpected<SendFailure>(SendFailure{SendProblem::unreachable});
    return m_body;
}

} // namespace corvane
