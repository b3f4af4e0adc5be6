#include "Fetch.h"
#include "SecureServer.h"

#include <QtCore/QEventLoop>

namespace corvane {

using namespace std::chrono_literals;
using enum SendProblem;
using Then = TestServer::Then;

namespace {

const QByteArray megabyte(1024LL * 1024, 'x');
const QByteArray fileAnswer = httpAnswer("200 OK", "file");
const QByteArray toThere = httpAnswer("302 Found", "gone", "Location: /there\r\n");

QByteArray to(const QUrl &address)
{
    return httpAnswer("302 Found", {}, "Location: " + address.toEncoded() + "\r\n");
}

/// A document, or a file from the first of these addresses that has the one that is wanted.
Fetch::Body fetch(const QList<QUrl> &addresses, const std::optional<QByteArray> &wanted = {},
    const Fetch::Limits &limits = Fetch::artefactLimits(megabyte.size()))
{
    Fetch::Body body;
    QByteArray file;
    QEventLoop loop;
    Fetch fetch(limits);
    const auto end = [&](const Fetch::Body &given) {
        body = given;
        loop.quit();
    };
    const auto write = [&](const QByteArray &piece, qint64 at) {
        file.truncate(at);
        file += piece;
    };
    if (wanted)
        fetch.get(addresses, {write, [&] { return file == wanted; }},
            [&](const Transfer::End &given) { end(given.map([&] { return file; })); });
    else
        fetch.get(addresses.first(), end);
    loop.exec();
    EXPECT_LE(file.size(), limits.answer);
    return body;
}

std::optional<SendProblem> problem(const Fetch::Body &body)
{
    return body ? std::nullopt : std::optional(body.error().problem);
}

} // namespace

TEST(FetchTests, aDocumentIsLookedForWithinItsOriginOnlyAndAFileWhereverNobodyListensIn)
{
    const SecureServer secure(fileAnswer);
    const Trust trust(secure.certificate());
    const TestServer elsewhere(fileAnswer);
    const QUrl secret = secure.server().address(u"https"_s);
    QUrl withPassword = elsewhere.address();
    withPassword.setUserInfo(u"me:secret"_s);
    const struct {
        const char *name;
        QByteArrayList answers;
        bool isDocumentFollowed, isFileFollowed;
    } rows[]{
        {"five times", {toThere, toThere, toThere, toThere, toThere}, true, true},
        {"six times", {toThere, toThere, toThere, toThere, toThere, toThere}, false, false},
        {"nowhere", {httpAnswer("302 Found", {})}, false, false},
        {"another port", {to(elsewhere.address())}, false, true},
        {"https", {to(secret)}, false, true},
        {"by http to another computer", {to(QUrl(u"http://192.0.2.1/"_s))}, false, false},
        {"a file of this computer", {to(QUrl(u"file:///etc/hostname"_s))}, false, false},
        {"with a password", {to(withPassword)}, false, false},
    };
    for (const auto &[name, answers, isDocumentFollowed, isFileFollowed] : rows) {
        TestServer server(fileAnswer);

        server.firstAnswers = answers;
        EXPECT_EQ(fetch({server.address()}).has_value(), isDocumentFollowed) << name;
        server.firstAnswers = answers;
        EXPECT_EQ(fetch({server.address()}, "file").has_value(), isFileFollowed) << name;
    }
    const SecureServer leading(to(elsewhere.address()));
    const Trust trustInIt(leading.certificate());
    const auto before = elsewhere.requests.size();
    EXPECT_EQ(problem(fetch({leading.server().address(u"https"_s)}, "file")), redirected);
    EXPECT_EQ(elsewhere.requests.size(), before);
}

TEST(FetchTests, whatHasNoEndOrComesTooSlowlyIsLeft)
{
    const auto hasty = [](qint64 pace) {
        return Fetch::Limits{.silence = 1h, .answer = 1500, .pace = pace, .period = 500ms};
    };
    const QByteArray endless = "HTTP/1.1 200 OK\r\n\r\n";
    const struct {
        const char *name;
        QByteArray answer;
        Fetch::Limits limits;
        SendProblem problem;
    } rows[]{
        {"no end", endless + megabyte, hasty(0), answerTooLong},
        {"a byte a day", endless, hasty(megabyte.size()), timedOut},
        {"slow, but on its way", endless, hasty(1), answerTooLong},
        {"an error without an end", "HTTP/1.1 500 Oh\r\n\r\nx", hasty(0), serverFailed},
        {"half a day", endless, {.whole = 200ms, .answer = megabyte.size()}, timedOut},
    };
    for (const auto &[name, answer, limits, expected] : rows) {
        const TestServer server(answer, Then::drip);

        EXPECT_EQ(problem(fetch({server.address()}, "file", limits)), expected) << name;
    }
    const TestServer liar(fileAnswer + megabyte);
    EXPECT_TRUE(fetch({liar.address()}, "file", hasty(0))) << "what it says is all that is read";
}

TEST(FetchTests, anAddressThatFailsPartWayIsFollowedByTheNext)
{
    const TestServer cut(httpAnswer("200 OK", megabyte).chopped(1));
    const TestServer good(httpAnswer("200 OK", megabyte));
    const QUrl nobody(u"http://127.0.0.1:1/"_s);

    EXPECT_EQ(fetch({nobody, cut.address(), good.address()}, megabyte), megabyte);
}

TEST(FetchTests, whatIsCancelledHearsNoMore)
{
    const TestServer server(httpAnswer("200 OK", megabyte));
    Fetch cancelled(Fetch::artefactLimits(megabyte.size()));
    int pieces = 0;
    const auto cancel = [&](const QByteArray &, qint64) {
        ++pieces;
        cancelled.cancel();
    };
    const auto mustNotEnd = [](const Transfer::End &) { ADD_FAILURE(); };

    cancelled.get({server.address()}, {cancel, [] { return true; }}, mustNotEnd);

    EXPECT_TRUE(fetch({server.address()}, megabyte)) << "and meanwhile nothing of the other";
    EXPECT_EQ(pieces, 1);
}

} // namespace corvane
