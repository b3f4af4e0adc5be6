#include "ProblemReport.h"
#include "Redaction.h"
#include "ReportAnswer.h"
#include "ServerAddress.h"
#include "StoreFolder.h"

#include <QtCore/QRegularExpression>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

const Redaction redaction({.users = {u"bob"_s, u"Zelda de la Quux"_s, u"josé"_s, u""_s},
    .homes = {u"/home/bob"_s, u"/data/My People/bob"_s, u"/"_s, u""_s},
    .hosts = {u"Bob-Tower.example.org"_s}});

QString redacted(const QString &detail)
{
    return redaction.redacted(FlightRecorder::Event{{}, u"move"_s, detail}).detail;
}

} // namespace

TEST(RedactionTests, whoTheUserIsAndWhatTheyNamedIsReplaced)
{
    const std::pair<QString, QString> samples[]{
        {u"40,60 700×600"_s, u"40,60 700×600"_s},
        {u"cannot write /home/bob/.local/share"_s, u"cannot write <home>/.local/share"_s},
        {u"/home/alice: denied; /var/home/bob"_s, u"<home>: denied; <home>"_s},
        {u"(/root) /data/my people/bob/x"_s, u"(<home>) <home>/x"_s},
        {u"file:///home/jos%C3%A9/x file:///data/My%20People/bob"_s,
            u"file:<home>/x file:<home>"_s},
        {u"%2Fhome%2Fbob and /homework, /rooted, ~5, ~/x"_s,
            u"<home> and /homework, /rooted, ~5, ~/x"_s},
        {u"~bob/x ~alice"_s, u"<home>/x <home>"_s},
        {u"BOB's bobsled, bob_old, x%20bob%20y"_s,
            u"<user>'s bobsled, <user>_old, x%20<user>%20y"_s},
        {u"zelda  DE LA quux; Quux; la"_s, u"<user>; <user>; la"_s},
        {u"JOSÉ, jose\u0301, jos%c3%a9"_s, u"<user>, <user>, <user>"_s},
        {u"bob@bob-tower, BOB-TOWER.EXAMPLE.ORG"_s, u"<user>@<host>, <host>"_s},
        {u"Mail \"a \"b\" c\" moved"_s, u"Mail \"<title>\" moved"_s},
        {u"the “Tax” layout and the „Steuer“ one"_s, u"the “<title>“ one"_s},
        {u"cut off: “Tax retu…"_s, u"cut off: “<title>"_s},
    };
    for (const auto &[detail, expected] : samples)
        EXPECT_EQ(redacted(detail).toStdString(), expected.toStdString());
}

RC_GTEST_PROP(RedactionTests, noSecretSurvivesInTheDocumentWhateverTheDetailsHold, ())
{
    const QStringList pieces{u"bob"_s, u"BOB"_s, u"Zelda"_s, u"quux"_s, u"Zelda de la Quux"_s,
        u"bob-tower"_s, u"Bob-Tower.example.org"_s, u"/home/"_s, u"/home/alice"_s, u"~"_s, u"/"_s,
        u"%20"_s, u"%2f"_s, u"%c3%a9"_s, u"jos"_s, u"é"_s, u" "_s, u"\n"_s, u"\\"_s, u"."_s, u"_"_s,
        u"x"_s, u"7"_s, u"<"_s, u"\"secret\""_s, u"“secret”"_s, u"\u0301"_s, u"\U0001f600"_s};
    const auto indexes =
        *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, static_cast<int>(pieces.size())));
    QString detail;
    for (const int index : indexes)
        detail += pieces[index];
    ProblemReport report;
    report.events = {redaction.redacted(FlightRecorder::Event{{}, u"move"_s, detail})};

    const QString document = QString::fromUtf8(report.toJson()) + report.toText();

    static const QRegularExpression secret(
        u"(?<![\\p{L}\\p{N}])(bob|zelda|quux|bob-tower|josé|secret)(?![\\p{L}\\p{N}])|/home/\\p{L}"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    RC_ASSERT(!secret.match(document).hasMatch());
}

TEST(ReportTests, theDocumentIsOneLineAndTheTextTellsAPersonTheSame)
{
    const ProblemReport report{.date = noon,
        .text = u"It \"moved\".\nThen it did not."_s,
        .facts = {{u"qt"_s, u"Qt"_s, u"6.4"_s}},
        .events = {{noon, u"move"_s, u"a\x1b[31m\nb"_s}},
        .isShortened = true};

    EXPECT_EQ(report.toJson(),
        R"({"date":"2026-03-01T12:00:00Z","events":[{"date":"2026-03-01T12:00:00Z",)"
        R"("detail":"a\u001b[31m\nb","kind":"move"}],"facts":{"qt":"6.4"},"format":1,)"
        R"("isShortened":true,"text":"It \"moved\".\nThen it did not."})");
    const QString text = report.toText();
    for (const QString &part : {u"\nIt \"moved\".\nThen it did not.\n"_s, u"\nQt: 6.4\n"_s,
             u"left out"_s, u"  move: a [31m b\n"_s})
        EXPECT_TRUE(text.contains(part)) << part.toStdString();
}

TEST(ReportTests, aReportGoesByHttpsOrStaysOnThisComputer)
{
    const std::pair<const char *, bool> addresses[]{
        {"https://reports.example.org/new", true},
        {"http://127.0.0.1:8080/", true},
        {"http://[::1]:8080/", true},
        {"http://reports.example.org/", false},
        {"http://localhost/", false},
        {"http://127.0.0.1.example.org/", false},
        {"http://127.0.0.1@example.org/", false},
        {"ftp://127.0.0.1/", false},
        {"file:///etc/passwd", false},
        {"https:///x", false},
        {"", false},
    };
    for (const auto &[address, isPrivate] : addresses)
        EXPECT_EQ(isPrivateAddress(QUrl(QString::fromLatin1(address))), isPrivate) << address;

    qputenv("CORVANE_REPORT_TEST_ADDRESS", "https://reports.example.org/");
    const QUrl builtIn = reportAddress();
    qputenv("CORVANE_REPORT_TEST_ADDRESS", "http://127.0.0.1:1/");
    EXPECT_EQ(reportAddress().port(), 1);
    qunsetenv("CORVANE_REPORT_TEST_ADDRESS");
    EXPECT_EQ(builtIn, reportAddress());
}

TEST(ReportTests, whatTheHelperSaysIsReadBackAndNothingElse)
{
    for (const ReportAnswer &answer : {ReportAnswer{u"R-17"_s},
             ReportAnswer{unexpected<SendFailure>(SendFailure{SendProblem::refused, u"404"_s})}})
        EXPECT_EQ(ReportAnswer::fromLine(answer.toLine()), answer);
    const QByteArray longest(64, 'x');
    const std::pair<QByteArray, bool> bodies[]{
        {R"({"id":")" + longest + R"("})", true},
        {R"({"id":"x)" + longest + R"("})", false},
        {R"({"id":""})", false},
        {R"({"id":"a b"})", false},
        {R"({"id":"a\u202eb"})", false},
        {R"({"id":17})", false},
        {R"(["id"])", false},
        {R"({"id":"a")", false},
        {"", false},
    };
    for (const auto &[body, isUnderstood] : bodies) {
        EXPECT_EQ(ReportAnswer::ofServer(body).value.has_value(), isUnderstood) << body.data();
        EXPECT_EQ(ReportAnswer::fromLine(body).has_value(), isUnderstood) << body.data();
    }
}

} // namespace corvane
