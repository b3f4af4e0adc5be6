#include "Post.h"
#include "SecureServer.h"

#include <QtCore/QEventLoop>

#include <gmock/gmock.h>

namespace corvane {

using namespace std::chrono_literals;
using Then = TestServer::Then;

namespace {

constexpr Post::Limits patient{.silence = 10s, .whole = 20s};
// The other limit must not be what ends it.
constexpr Post::Limits hasty{.silence = 100ms, .whole = 1h};

Post::Answer post(const QUrl &address, const Post::Limits &limits = patient)
{
    Post::Answer answer;
    QEventLoop loop;
    Post sender(limits);
    sender.send(address, "{}", [&](const Post::Answer &given) {
        answer = given;
        loop.quit();
    });
    loop.exec();
    return answer;
}

std::optional<SendProblem> problem(const Post::Answer &answer)
{
    return answer ? std::nullopt : std::optional(answer.error().problem);
}

} // namespace

TEST(PostTests, theServerGetsTheDocumentAndLearnsNoMoreThanTheVersion)
{
    const TestServer server(
        httpAnswer("200 OK", "thanks", "Set-Cookie: a=b\r\nContent-Encoding: gzip\r\n"));

    EXPECT_EQ(post(server.address()), Post::Answer("thanks"));
    ASSERT_EQ(server.requests.size(), 1);
    // Some versions of Qt write the names of headers in small letters.
    const QByteArray request = server.requests.first().toLower().replace("\r\n", "\n");
    const QByteArray host = "host: " + server.address().authority().toLatin1();
    EXPECT_THAT(request.split('\n'),
        testing::UnorderedElementsAreArray<QByteArray>({"post /new http/1.1", host, "{}", "",
            "content-length: 2", "content-type: application/json", "accept-encoding: identity",
            "accept-language: en", ("user-agent: corvane/" CORVANE_VERSION),
            "connection: keep-alive"}));
}

TEST(PostTests, everyWayOfAServerToFailIsToldApart)
{
    const TestServer elsewhere(goodAnswer);
    const QByteArray there = "Location: " + elsewhere.address().toEncoded() + "\r\n";
    const QByteArray megabyte(1024LL * 1024, 'x');
    struct Row {
        const char *name;
        QByteArray answer;
        SendProblem problem;
        Then then = Then::close;
        Post::Limits limits = patient;
    };
    const Row rows[]{
        {"redirect", httpAnswer("302 Found", {}, there), SendProblem::redirected},
        {"redirect of a post", httpAnswer("307 Moved", {}, there), SendProblem::redirected},
        {"too large", httpAnswer("413 Large", "no"), SendProblem::documentTooLarge},
        {"too many", httpAnswer("429 Many", "no"), SendProblem::tooMany},
        {"broken", httpAnswer("500 Oh", "no"), SendProblem::serverFailed},
        {"not found", httpAnswer("404 No", "no"), SendProblem::refused},
        {"a password", httpAnswer("401 Who", "no", "WWW-Authenticate: Basic\r\n"),
            SendProblem::refused},
        {"a megabyte", httpAnswer("200 OK", megabyte), SendProblem::answerTooLong},
        {"without an end", "HTTP/1.1 200 OK\r\n\r\n" + megabyte, SendProblem::answerTooLong,
            Then::stay},
        {"no answer", "", SendProblem::timedOut, Then::stay, hasty},
        {"half an answer", goodAnswer.chopped(1), SendProblem::timedOut, Then::stay, hasty},
        {"an answer without an end", "HTTP/1.1 200 OK\r\n\r\n", SendProblem::timedOut, Then::stay,
            {.silence = 1h, .whole = 100ms}},
        {"closed at once", "", SendProblem::unreachable},
    };
    for (const Row &row : rows) {
        const TestServer server(row.answer, row.then);

        EXPECT_EQ(problem(post(server.address(), row.limits)), row.problem) << row.name;
    }
    EXPECT_TRUE(elsewhere.requests.isEmpty());
    EXPECT_EQ(problem(post(QUrl(u"http://127.0.0.1:1/"_s))), SendProblem::unreachable);
    EXPECT_EQ(problem(post(QUrl(u"http://192.0.2.1/"_s))), SendProblem::noAddress);
    EXPECT_EQ(problem(post(elsewhere.address(), {.document = 1})), SendProblem::documentTooLarge);
}

TEST(PostTests, anAnswerThatIsCutAnywhereIsNoAnswer)
{
    for (qsizetype length = 0; length < goodAnswer.size(); ++length) {
        const TestServer server(goodAnswer.first(length));

        EXPECT_FALSE(post(server.address())) << length;
    }
}

TEST(PostTests, onlyAServerWhoseCertificateIsTrustedGetsTheDocument)
{
    const SecureServer secure;
    const QUrl address = secure.server().address(u"https"_s);

    EXPECT_EQ(problem(post(address)), SendProblem::untrusted);
    EXPECT_TRUE(secure.server().requests.isEmpty());
    const Trust trust(secure.certificate());
    EXPECT_TRUE(post(address).has_value());
}

} // namespace corvane
