#include "ReportSender.h"
#include "TestServer.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEventLoop>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <gmock/gmock.h>

namespace corvane {

using testing::HasSubstr;

namespace {

ReportSender::Outcome send(const QString &helper = {})
{
    ReportSender::Outcome outcome;
    QEventLoop loop;
    ReportSender sender(helper);
    sender.send("{}", [&](const ReportSender::Outcome &given) {
        outcome = given;
        loop.quit();
    });
    loop.exec();
    return outcome;
}

void sendTo(const TestServer &server)
{
    qputenv("CORVANE_REPORT_TEST_ADDRESS", server.address().toEncoded());
}

struct ReportSenderTests : testing::Test {
    ~ReportSenderTests() override { qunsetenv("CORVANE_REPORT_TEST_ADDRESS"); }
};

} // namespace

TEST_F(ReportSenderTests, theReportsNumberOrASentenceComesBack)
{
    const std::pair<QByteArray, const char *> answers[]{
        {httpAnswer("302 Found", {}, "Location: http://127.0.0.1:1/\r\n"), "another address"},
        {httpAnswer("413 Large", {}), "too large"},
        {httpAnswer("429 Many", {}), "too many"},
        {httpAnswer("503 Busy", {}), "problem of its own"},
        {httpAnswer("404 No", {}), "(404)"},
        {httpAnswer("200 OK", "<html>"), "not understood"},
        {httpAnswer("200 OK", QByteArray(1 << 20, 'x')), "too long"},
        {"", "reached"},
    };
    for (const auto &[answer, said] : answers) {
        const TestServer server(answer);
        sendTo(server);

        const auto outcome = send();

        ASSERT_FALSE(outcome) << said;
        EXPECT_THAT(outcome.error().toStdString(), HasSubstr(said));
    }
    const TestServer server(goodAnswer);
    sendTo(server);
    EXPECT_EQ(send(), ReportSender::Outcome(u"R-17"_s));
    EXPECT_TRUE(server.requests.value(0).endsWith("\r\n\r\n{}"));
}

TEST_F(ReportSenderTests, aHelperThatIsNotThereOrGoesWrongIsASentence)
{
    const QTemporaryDir folder;
    const QString script = folder.filePath(u"helper"_s);
    for (const char *line :
        {"", "echo hello", "kill -SEGV $$", "cat /dev/zero", "exit 3", R"(echo '{"id":"a b"}')"}) {
        if (*line) {
            QFile file(script);
            ASSERT_TRUE(file.open(QFile::WriteOnly));
            file.write(QByteArray("#!/bin/sh\n") + line + '\n');
            file.setPermissions(QFile::ReadUser | QFile::ExeUser);
            file.close();
        }

        const auto outcome = send(script);

        ASSERT_FALSE(outcome) << line;
        EXPECT_THAT(outcome.error().toStdString(), HasSubstr("did not work")) << line;
        QFile::remove(script);
    }
}

TEST_F(ReportSenderTests, whatIsCancelledOrReplacedSaysNothing)
{
    const TestServer silent({}, TestServer::Then::stay);
    sendTo(silent);
    ReportSender sender;
    const auto mustNotEnd = [](const ReportSender::Outcome &) { ADD_FAILURE(); };
    sender.send("{}", mustNotEnd);
    sender.send("{}", mustNotEnd);
    ASSERT_TRUE(silent.waitForRequest());

    sender.cancel();

    const TestServer server(goodAnswer);
    sendTo(server);
    EXPECT_TRUE(send()) << "and nothing of the other two";
}

TEST_F(ReportSenderTests, theHelperEndsWithTheProgramAndSendsNoHalfADocument)
{
    for (const auto &[input, isWhole] : {std::pair("{}\n", true), {R"({"text":)", false}}) {
        const TestServer server({}, TestServer::Then::stay);
        sendTo(server);
        QProcess helper;
        helper.start(QStringLiteral(CORVANE_REPORTER), {});
        helper.write(input);
        EXPECT_TRUE(!isWhole || server.waitForRequest());

        helper.closeWriteChannel();

        EXPECT_TRUE(helper.waitForFinished());
        EXPECT_EQ(helper.readAllStandardOutput(), "");
        EXPECT_EQ(server.requests.size(), isWhole ? 1 : 0);
    }
}

} // namespace corvane
