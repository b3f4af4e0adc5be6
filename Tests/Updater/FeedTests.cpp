#include "FeedDraft.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QTimeZone>

#include <gtest/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;
using enum UpdateProblem;

namespace {

QByteArray changed(QByteArray text, const QByteArray &from, const QByteArray &to)
{
    EXPECT_TRUE(text.contains(from)) << from.toStdString();
    return text.replace(from, to);
}

/// The document without one of its fields, or with a value of another type, in every way.
QByteArrayList spoilt(const QByteArray &document)
{
    QByteArrayList results;
    const QString text = QString::fromUtf8(document);
    for (const auto &pattern : {u"\"(\\w+)\":"_s, u": (\"[^\"]*\"|\\w+)"_s}) {
        auto match = QRegularExpression(pattern).globalMatch(text);
        for (; match.hasNext(); match.next()) {
            const auto found = match.peekNext();
            const QString other = found.captured().endsWith(u':') ? u"other"_s : u"{}"_s;
            const auto length = found.capturedLength(1);
            results << QString(text).replace(found.capturedStart(1), length, other).toUtf8();
        }
    }
    return results;
}

struct FeedTests : testing::Test {
    [[nodiscard]] QByteArray release(const QByteArray &payload = releaseDraft) const
    {
        return releaseKey.envelope(releaseType, payload);
    }
    [[nodiscard]] QByteArray feed(const QByteArray &payload) const
    {
        return feedKey.envelope(feedType, payload);
    }
    [[nodiscard]] QByteArray offering(const QByteArrayList &releases) const
    {
        return feed(feedDraft(releases));
    }
    [[nodiscard]] std::optional<UpdateProblem> problem(const QByteArray &document) const
    {
        const auto read = reader.read(document);
        return read ? std::nullopt : std::optional(read.error());
    }

    const SigningKey releaseKey, feedKey, otherKey;
    const QByteArray otherRelease = changed(releaseDraft, "12,", "11,");
    FeedReader reader{{{releaseKey.publicKey}, {feedKey.publicKey}}, u"Corvane"_s, u"stable"_s};
};

} // namespace

TEST_F(FeedTests, fieldsOfLaterVersionsAreNoHindrance)
{
    const QByteArray payload =
        changed(feedDraft({release()}), "{\"critical\": false", R"({"new": 1, "critical": true)");
    const auto read = reader.read(feed(payload));

    ASSERT_TRUE(read);
    EXPECT_TRUE(read->entries.first().critical);
    EXPECT_EQ(read->entries.first().rollout,
        (Rollout{QDateTime({2026, 3, 2}, {}, QTimeZone::utc()), std::chrono::days(1)}));
}

TEST_F(FeedTests, whoHasOldKeysFindsTheReleaseThatBringsTheNew)
{
    const auto document =
        offering({otherKey.envelope(releaseType, releaseDraft), release(otherRelease)});

    ASSERT_EQ(reader.read(document)->entries.size(), 1);
    EXPECT_EQ(reader.read(document)->entries.first().release.build, 11);
    reader.keys.release << otherKey.publicKey;
    EXPECT_EQ(reader.read(document)->entries.size(), 2);
}

TEST_F(FeedTests, noPieceComesWithoutItsOwnSignature)
{
    const QByteArray good = feedDraft({release()});
    const auto signature = [](const QByteArray &envelope) {
        return envelope.mid(envelope.indexOf("\"signatures"));
    };
    const auto unsignedly = [&](const QByteArray &envelope) {
        return changed(envelope, signature(envelope), "\"signatures\": []}");
    };
    const auto mixed = changed(release(), signature(release()), signature(release(otherRelease)));
    const std::tuple<const char *, QByteArray, UpdateProblem> rows[]{
        {"not in an envelope", good, envelopeNotUnderstood},
        {"endless signatures",
            changed(feed(good), "[", '[' + QByteArray("{\"sig\": \"\"},").repeated(8)),
            envelopeNotUnderstood},
        {"no signature", unsignedly(feed(good)), feedNotSigned},
        {"signed as something else",
            changed(feedKey.envelope("x", good), "\"x\"", '"' + feedType.toByteArray() + '"'),
            feedNotSigned},
        {"a release without", offering({unsignedly(release())}), releaseNotSigned},
        {"mix and match", offering({mixed}), releaseNotSigned},
        {"a feed as a release", offering({releaseKey.envelope(feedType, releaseDraft)}),
            envelopeNotUnderstood},
        {"a build twice", offering({release(), release()}), feedNotUnderstood},
    };
    for (const auto &[name, document, expected] : rows)
        EXPECT_EQ(problem(document), expected) << name;
    reader.keys.release.clear();
    EXPECT_EQ(problem(feed(good)), noKeys);
}

TEST_F(FeedTests, noBitOfWhatWasSignedCanBeChanged)
{
    const QByteArray good = release();
    // Whoever has the feed's key can sign whatever they make of a release.
    for (const auto &document : {std::pair(feed(feedDraft({good})), false), {good, true}}) {
        for (qsizetype at = 0; at < document.first.size(); ++at) {
            QByteArray bytes = document.first;
            bytes[at] = static_cast<char>(bytes[at] ^ (1 << at % 8));
            const auto read = reader.read(document.second ? offering({bytes}) : bytes);
            EXPECT_TRUE(!read || read == reader.read(offering({good}))) << bytes.toStdString();
        }
    }
}

TEST_F(FeedTests, aSignedDocumentIsGoodAsAWholeOrNotAtAll)
{
    QByteArrayList releases = spoilt(releaseDraft);
    for (const auto &[from, to] : std::initializer_list<std::pair<QByteArray, QByteArray>>{
             {": 12", ": 0"}, {": 12", ": 12.5"}, {": 12", ": 1e16"}, {": 3", ": 12"},
             {": 3", ": -1"}, {"1.2\"", "../1\""}, {"1.2\"", "\""}, {"1.2\"", "1\\n\""},
             {"1.2\"", QByteArray(33, '1') + '"'}, {"00Z", "00"}, {": 1000", ": 0"},
             {": 1000", ": 134217729"}, {": 9000", ": 536870913"}, {"aa\"", "AA\""}, {"aa\"", "\""},
             {"2.36", "2"}, {"https:", "http:"}, {"https:", "file:"}, {"https://", "https://me@"},
             {"https://corvane.example", "http://localhost"}, {"https://corvane.example", ""},
             {"example/", "example/" + QByteArray(2000, 'a')},
             {"[\"https", R"(["https://a","https://b","https://c","https)"},
             {R"(["https://corvane.example/1.2.tar.zst"])", "[]"},
             {releaseDraft.mid(releaseDraft.indexOf("[{")), "[]}"}})
        releases << changed(releaseDraft, from, to);
    const QByteArray good = feedDraft({release()});
    QByteArrayList feeds = spoilt(good);
    feeds << feedDraft(QByteArrayList(33, otherKey.envelope(releaseType, {})));
    for (const auto &[from, to] : std::initializer_list<std::pair<QByteArray, QByteArray>>{
             {"-16", "-02"}, {": 10,", ": 65537,"}, {": 86400", ": -1"}, {": 86400", ": 2592001"}})
        feeds << changed(good, from, to);

    for (const QByteArray &each : releases)
        EXPECT_EQ(problem(offering({release(each)})), releaseNotUnderstood) << each.toStdString();
    for (const QByteArray &each : feeds)
        EXPECT_EQ(problem(feed(each)), feedNotUnderstood) << each.toStdString();
}

// Each limit, and the clocks that no whole pass can be run with.
TEST(KnownTimeTests, aFeedIsBelievedWhileItIsFreshWhateverTheClockSays)
{
    const auto day = [](double number) {
        return QDateTime({2026, 3, 1}, {}, QTimeZone::utc()).addSecs(qint64(86400 * number));
    };
    constexpr double never = -9999;
    const struct {
        const char *name;
        double issued, expires, clock, remembered, built;
        std::optional<UpdateProblem> problem = std::nullopt;
    } rows[]{
        {"the same again, for a month", 0, 30, 1, 0, never},
        {"freeze", 0, 14, 14, 0, never, expired},
        {"freeze, with the clock set back", 0, 14, -99, never, 14, expired},
        {"the clock a day behind", 1, 14, 0, never, never},
        {"no clock", 2, 14, never, 1, never},
        {"no clock and no state", 2, 14, never, never, 1},
    };
    for (const auto &[name, issued, expires, clock, remembered, built, expected] : rows) {
        const auto before = remembered == never ? std::nullopt : std::optional(day(remembered));
        const KnownTime time{day(clock), day(built), before};

        EXPECT_EQ(time.problem({{}, {}, day(issued), day(expires)}), expected) << name;
    }
}

} // namespace corvane
