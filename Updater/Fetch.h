#pragma once

#include "Transfer.h"

namespace corvane {

/// Gets a file from a server.
class Fetch final
{
public:
    using Limits = Transfer::Limits;
    using Body = expected<QByteArray, SendFailure>;
    /// Where a large file goes.
    struct Sink {
        /// A piece, and where in the file it stands. One that stands at 0 begins the file anew: what
        /// came before it came from an address that failed. May call `cancel`.
        std::function<void(const QByteArray &piece, qint64 at)> write;
        /// Whether the file, now whole, is the one that was wanted.
        std::function<bool()> accept;
    };

    /// For what is read whole, of so many bytes at most.
    [[nodiscard]] static Limits documentLimits(qint64 longest);
    /// For what may take its time, as long as it gets on.
    [[nodiscard]] static Limits artefactLimits(qint64 size);

    explicit Fetch(const Limits &limits);

    /// The whole file. Redirections are followed within the address's origin.
    void get(const QUrl &address, std::function<void(const Body &)> onEnd);
    /// The file from the first of the addresses (one at least) that gives the one that is wanted; the
    /// failure is the last one's. Redirections are followed from https to https.
    void get(
        const QList<QUrl> &addresses, Sink sink, std::function<void(const Transfer::End &)> onEnd);
    // Each calls `onEnd` once, never from within. One of them is to be called, once.

    /// Nothing is called any more.
    void cancel();

private:
    void askNext();
    void take(const QByteArray &piece);
    void finish(const Transfer::End &end);

    Transfer m_transfer;
    QList<QUrl> m_addresses; ///< that have not been asked
    Transfer::MayFollow m_mayFollow;
    Sink m_sink;
    std::function<void(const Transfer::End &)> m_onEnd;
    qint64 m_received = 0;
    QByteArray m_body;
};

} // namespace corvane
