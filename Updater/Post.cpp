#include "Post.h"

namespace corvane {

using namespace Qt::StringLiterals;

Post::Post(const Limits &limits)
    : m_longest(limits.document)
    , m_transfer({.silence = limits.silence, .whole = limits.whole, .answer = limits.answer},
          {.onPiece = [this](const QByteArray &piece) { m_body += piece; },
              .onEnd =
                  [this](const Transfer::End &end) {
                      const auto onEnd = std::exchange(m_onEnd, nullptr);
                      onEnd(end.map([this] { return m_body; }));
                  }})
{
}

void Post::send(
    const QUrl &address, const QByteArray &document, std::function<void(const Answer &)> onEnd)
{
    m_onEnd = std::move(onEnd);
    if (document.size() > m_longest) {
        const auto refuse = [this] {
            m_onEnd(unexpected<SendFailure>(SendFailure{SendProblem::documentTooLarge}));
        };
        QMetaObject::invokeMethod(&m_transfer, refuse, Qt::QueuedConnection);
        return;
    }
    m_transfer.start(
        address, [document](QNetworkAccessManager &manager, const QNetworkRequest &plain) {
            QNetworkRequest request = plain;
            request.setHeader(QNetworkRequest::ContentTypeHeader, u"application/json"_s);
            return manager.post(request, document);
        });
}

} // namespace corvane
