#include "Fetch.h"

#include "ServerAddress.h"

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr qint64 slowestArtefact = 4096; // bytes per second

bool isWithinOrigin(const QUrl &from, const QUrl &to)
{
    const auto origin = [](const QUrl &url) {
        return std::tuple(
            url.scheme(), url.host(), url.port(url.scheme() == "https"_L1 ? 443 : 80));
    };
    return origin(from) == origin(to);
}

/// Whether nobody on the way can read or change what comes from there, who could not from here.
bool isAsPrivate(const QUrl &from, const QUrl &to)
{
    return isPrivateAddress(to) && to.userInfo().isEmpty()
        && (to.scheme() == "https"_L1 || from.scheme() == "http"_L1);
}

} // namespace

Fetch::Limits Fetch::documentLimits(qint64 longest)
{
    return {.whole = 30s, .answer = longest};
}

Fetch::Limits Fetch::artefactLimits(qint64 size)
{
    Limits limits{.answer = size};
    limits.pace =
        slowestArtefact * std::chrono::duration_cast<std::chrono::seconds>(limits.period).count();
    return limits;
}

Fetch::Fetch(const Limits &limits)
    : m_transfer(limits,
        {.onPiece = [this](const QByteArray &piece) { take(piece); },
            .onEnd = [this](const Transfer::End &end) { finish(end); }})
{
}

void Fetch::get(const QUrl &address, std::function<void(const Body &)> onEnd)
{
    m_addresses = {address};
    m_mayFollow = isWithinOrigin;
    m_sink = {.write = [this](const QByteArray &piece, qint64) { m_body += piece; },
        .accept = [] { return true; }};
    m_onEnd = [this, onEnd = std::move(onEnd)](
                  const Transfer::End &end) { onEnd(end.map([this] { return m_body; })); };
    askNext();
}

void Fetch::get(
    const QList<QUrl> &addresses, Sink sink, std::function<void(const Transfer::End &)> onEnd)
{
    m_addresses = addresses;
    m_mayFollow = isAsPrivate;
    m_sink = std::move(sink);
    m_onEnd = std::move(onEnd);
    askNext();
}

void Fetch::cancel()
{
    m_transfer.cancel();
}

void Fetch::askNext()
{
    m_received = 0;
    m_transfer.start(
        m_addresses.takeFirst(),
        [](QNetworkAccessManager &manager, const QNetworkRequest &request) {
            return manager.get(request);
        },
        m_mayFollow);
}

void Fetch::take(const QByteArray &piece)
{
    m_sink.write(piece, std::exchange(m_received, m_received + piece.size()));
}

void Fetch::finish(const Transfer::End &end)
{
    const bool isWanted = end && m_sink.accept();
    if (!isWanted && !m_addresses.isEmpty())
        return askNext();
    const auto onEnd = std::exchange(m_onEnd, nullptr);
    onEnd(isWanted || !end
            ? end
            : unexpected<SendFailure>(SendFailure{SendProblem::answerNotUnderstood}));
}

} // namespace corvane
