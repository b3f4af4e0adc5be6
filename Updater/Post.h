#pragma once

#include "Transfer.h"

namespace corvane {

/// Sends one document to a server, and hands over what it answers. It goes only to the address that was
/// asked for: no redirection is followed.
class Post final
{
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
    qsizetype m_longest;
    Transfer m_transfer;
    QByteArray m_body;
    std::function<void(const Answer &)> m_onEnd;
};

} // namespace corvane
