#include "Post.h"
#include "TestServer.h"

#include <QtCore/QEventLoop>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtNetwork/QSslConfiguration>

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

/// With a certificate that is made for this run.
class SecureServer final
{
public:
    SecureServer()
    {
        QProcess openssl;
        openssl.setWorkingDirectory(m_folder.path());
        openssl.start(QStringLiteral(CORVANE_OPENSSL),
            u"req -x509 -newkey rsa:2048 -nodes -days 1 -subj /CN=127.0.0.1 -addext "
            "subjectAltName=IP:127.0.0.1 -keyout key -out certificate"_s.split(u' '));
        openssl.waitForFinished();
        QFile key(m_folder.filePath(u"key"_s));
        EXPECT_TRUE(key.open(QFile::ReadOnly));
        QSslConfiguration configuration;
        configuration.setLocalCertificate(certificate());
        configuration.setPrivateKey(QSslKey(&key, QSsl::Rsa));
        auto server = std::make_unique<QSslServer>();
        server->setSslConfiguration(configuration);
        m_server = std::make_unique<TestServer>(goodAnswer, Then::close, std::move(server));
    }

    [[nodiscard]] QSslCertificate certificate() const
    {
        return QSslCertificate::fromPath(m_folder.filePath(u"certificate"_s)).value(0);
    }
    [[nodiscard]] const TestServer &server() const { return *m_server; }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<TestServer> m_server;
};

} // namespace

TEST(PostTests, theServerGetsTheDocumentAndLearnsNoMoreThanTheVersion)
{
    const TestServer server(httpAnswer("200 OK", "thanks", "Set-Cookie: a=b\r\n"));

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
    const auto before = QSslConfiguration::defaultConfiguration();
    auto trusting = before;
    trusting.addCaCertificate(secure.certificate());
    QSslConfiguration::setDefaultConfiguration(trusting);
    EXPECT_TRUE(post(address).has_value());
    QSslConfiguration::setDefaultConfiguration(before);
}

} // namespace corvane
