#include "ArchiveDraft.h"
#include "FeedDraft.h"
#include "InstallFolder.h"
#include "SecureServer.h"
#include "UpdateMessage.h"
#include "UpdateState.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <gmock/gmock.h>

namespace corvane {

using Message = UpdateMessage;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

constexpr qint64 running = 5; ///< the build that asks

QByteArray sha256(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

QByteArray text(const QJsonObject &json)
{
    return QJsonDocument(json).toJson(QJsonDocument::Compact);
}

QByteArray now(int days = 0)
{
    return QDateTime::currentDateTimeUtc().addDays(days).toString(Qt::ISODate).toLatin1();
}

/// A version that says its build, as an archive.
QByteArray packed(qint64 build)
{
    const QByteArray content = "#!/bin/sh\necho " + QByteArray::number(build) + '\n';
    const QByteArray manifest =
        "bin/corvane " + QByteArray::number(content.size()) + ' ' + sha256(content) + '\n';
    return archiveOf({{.path = "MANIFEST", .content = manifest}, binFolder,
        {.path = "bin/corvane", .content = content, .mode = 0755}});
}

/// A copy of build 5 in somebody's home, and a server that offers build 12.
struct PassTests : testing::Test {
    PassTests()
    {
        QDir(home.path()).mkpath(u"copy/libexec/corvane"_s);
        QDir(home.path()).mkpath(u"copy/share/corvane"_s);
        QFile::copy(QStringLiteral(CORVANE_TEST_UPDATER), helper());
        QFile record(home.filePath(u"copy/share/corvane/install.json"_s));
        EXPECT_TRUE(record.open(QFile::WriteOnly));
        record.write(R"({"kind": "bundle", "build": 5, "built": ")" + now(-30) + "\"}");
        offer();
    }

    [[nodiscard]] QString helper() const
    {
        return home.filePath(u"copy/libexec/corvane/corvane-updater"_s);
    }
    [[nodiscard]] QString data() const { return home.filePath(u".local/share/Corvane"_s); }
    [[nodiscard]] QString address(const QString &path) const
    {
        return web.server().address(u"https"_s).resolved(QUrl(path)).toString();
    }
    void serve(const QByteArray &path, const QByteArray &body)
    {
        web.server().answers[path] = httpAnswer("200 OK", body);
    }

    /// Signs the release and the feed as they are, and publishes them.
    void offer()
    {
        artefact[u"addresses"] = QJsonArray{address(u"/12.tar.zst"_s)};
        if (!mirror.isEmpty())
            artefact[u"addresses"] =
                QJsonArray{address(u"/mirror.tar.zst"_s), address(u"/12.tar.zst"_s)};
        serve("/mirror.tar.zst", mirror);
        serve("/12.tar.zst", archive);
        serve("/release-notes/Corvane-1.2", notes);
        release[u"artefacts"] = QJsonArray{artefact};
        entry[u"release"] =
            QJsonDocument::fromJson(releaseKey.envelope(releaseType, text(release))).object();
        feed[u"releases"] = QJsonArray{entry};
        serve("/updates/stable.json", feedKey.envelope(feedType, text(feed)));
    }

    /// What the helper says until it ends, where the user wants to install whatever is found.
    QList<Message> pass(const QStringList &options = {u"--check"_s, u"--asked"_s})
    {
        QProcess process;
        auto variables = QProcessEnvironment::systemEnvironment();
        variables.insert(u"HOME"_s, home.path());
        variables.remove(u"XDG_DATA_HOME"_s);
        variables.insert(u"CORVANE_UPDATE_TEST_FEED"_s, address(u"/updates/stable.json"_s));
        variables.insert(u"CORVANE_TEST_CERTIFICATE"_s, web.certificatePath());
        variables.insert(u"CORVANE_TEST_RELEASE_KEYS"_s, base64(releaseKey));
        variables.insert(u"CORVANE_TEST_FEED_KEYS"_s, base64(feedKey));
        process.setProcessEnvironment(variables);
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(helper(), options);
        QList<Message> heard;
        const QDeadlineTimer deadline(std::chrono::seconds(60));
        while (!deadline.hasExpired() && process.state() != QProcess::NotRunning) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
            while (process.canReadLine()) {
                const auto message = Message::fromLine(process.readLine());
                EXPECT_TRUE(message);
                heard << message.value_or(Message{Message::NotFound{}});
                if (std::holds_alternative<Message::Found>(heard.last().value)
                    || std::holds_alternative<Message::Ready>(heard.last().value))
                    process.write("install\n");
            }
        }
        EXPECT_EQ(process.state(), QProcess::NotRunning);
        return heard;
    }
    [[nodiscard]] std::optional<qint64> installed() const
    {
        const auto folder = InstallFolder::open(home.filePath(u".local/lib/corvane"_s));
        EXPECT_TRUE(folder);
        return folder->current().value_or(std::nullopt);
    }
    [[nodiscard]] static QString base64(const SigningKey &key)
    {
        return QString::fromLatin1(key.publicKey.toBase64());
    }

    QTemporaryDir home;
    SecureServer web{httpAnswer("404 Not Found", {})};
    SigningKey releaseKey, feedKey, stranger;
    QByteArray archive = packed(12), mirror, notes = "<h2>New</h2><li>Faster</li>";
    QJsonObject artefact{{u"os"_s, u"linux"_s}, {u"arch"_s, QSysInfo::currentCpuArchitecture()},
        {u"glibc"_s, u"2.30"_s}, {u"size"_s, archive.size()},
        {u"sha256"_s, QString::fromLatin1(sha256(archive))}, {u"unpackedSize"_s, 1000}};
    QJsonObject release{{u"product"_s, u"Corvane"_s}, {u"version"_s, u"1.2"_s}, {u"build"_s, 12},
        {u"date"_s, QString::fromLatin1(now(-1))}, {u"minimumBuild"_s, 3}};
    QJsonObject entry{{u"critical"_s, false},
        {u"notes"_s,
            QJsonObject{
                {u"size"_s, notes.size()}, {u"sha256"_s, QString::fromLatin1(sha256(notes))}}},
        {u"rollout"_s,
            QJsonObject{{u"start"_s, QString::fromLatin1(now(-1))}, {u"interval"_s, 0}}}};
    QJsonObject feed{{u"product"_s, u"Corvane"_s}, {u"channel"_s, u"stable"_s},
        {u"issued"_s, QString::fromLatin1(now())}, {u"expires"_s, QString::fromLatin1(now(14))}};
};

Message failed(auto problem)
{
    return {Message::Failed{problem, {}}};
}

/// Without what the system says of it.
Message plain(Message message)
{
    if (auto *const failure = std::get_if<Message::Failed>(&message.value))
        failure->detail.clear();
    return message;
}

} // namespace

TEST_F(PassTests, aReleaseThatBothKeysSignedIsInstalledWithThreeRequestsThatNameNobody)
{
    const QList<Message> heard = pass();

    ASSERT_FALSE(heard.isEmpty());
    EXPECT_EQ(heard.last(), (Message{Message::Installed{12, u"1.2"_s, std::nullopt}}));
    EXPECT_THAT(heard, Contains(Message{Message::Notes{notes}}));
    EXPECT_THAT(heard, Contains(Message{Message::Received{archive.size()}}));
    EXPECT_EQ(installed(), 12);
    EXPECT_TRUE(UpdateState::load(data()).lastChecked);
    QStringList paths;
    for (const QByteArray &request : std::as_const(web.server().requests)) {
        paths << QString::fromLatin1(request.split(' ').value(1));
        EXPECT_THAT(request.toStdString(), HasSubstr("User-Agent: Corvane/"));
        for (const QByteArray &secret : {QSysInfo::machineHostName().toUtf8(), qgetenv("USER"),
                 QFileInfo(home.path()).fileName().toUtf8(), QByteArray("Cookie")})
            EXPECT_THAT(request.toStdString(), Not(HasSubstr('/' + secret.toStdString() + '/')));
    }
    paths.sort();
    EXPECT_THAT(paths,
        ElementsAre(u"/12.tar.zst"_s, u"/release-notes/Corvane-1.2"_s, u"/updates/stable.json"_s));

    // The next version comes beside it.
    archive = packed(13);
    artefact[u"size"] = archive.size();
    artefact[u"sha256"] = QString::fromLatin1(sha256(archive));
    release[u"build"] = 13;
    offer();
    EXPECT_EQ(pass().last(), (Message{Message::Installed{13, u"1.2"_s, 12}}));
    EXPECT_EQ(installed(), 13);
}

TEST_F(PassTests, aQuietCheckFindsAndDoesNoMore)
{
    const QList<Message> heard = pass({u"--check"_s});

    ASSERT_EQ(heard.size(), 1);
    EXPECT_TRUE(std::holds_alternative<Message::Found>(heard.first().value));
    EXPECT_EQ(web.server().requests.size(), 1);
    EXPECT_FALSE(QFileInfo::exists(home.filePath(u".local/lib"_s)));
}

TEST_F(PassTests, noAttackInstallsAnything)
{
    const auto signedBy = [](const SigningKey &key, QByteArrayView type,
                              const QByteArray &payload) {
        return QJsonDocument::fromJson(key.envelope(type, payload)).object();
    };
    const auto wrongFile = [this](const QByteArray &bytes) { serve("/12.tar.zst", bytes); };
    const struct {
        const char *attack;
        std::function<void()> prepare; ///< before what is offered is signed
        std::function<void()> spoil; ///< afterwards
        Message end;
    } rows[]{
        {"arbitrary installation: a stranger's feed", {},
            [&] { serve("/updates/stable.json", stranger.envelope(feedType, text(feed))); },
            failed(UpdateProblem::feedNotSigned)},
        {"the feed's key alone was stolen", {},
            [&] {
                entry[u"release"] = signedBy(feedKey, releaseType, text(release));
                feed[u"releases"] = QJsonArray{entry};
                serve("/updates/stable.json", feedKey.envelope(feedType, text(feed)));
            },
            failed(UpdateProblem::releaseNotSigned)},
        {"the release key alone was stolen", {},
            [&] { serve("/updates/stable.json", releaseKey.envelope(feedType, text(feed))); },
            failed(UpdateProblem::feedNotSigned)},
        {"endless data", {}, [&] { wrongFile(archive + QByteArray(1 << 20, 'x')); },
            failed(SendProblem::answerTooLong)},
        {"an endless feed", {}, [&] { serve("/updates/stable.json", QByteArray(1 << 20, ' ')); },
            failed(SendProblem::answerTooLong)},
        {"fast-forward", [&] { feed[u"issued"] = QString::fromLatin1(now(2)); }, {},
            failed(UpdateProblem::clockBehind)},
        {"a feed for ever", [&] { feed[u"expires"] = QString::fromLatin1(now(40)); }, {},
            failed(UpdateProblem::lifetimeTooLong)},
        {"freeze",
            [&] {
                feed[u"issued"] = QString::fromLatin1(now(-15));
                feed[u"expires"] = QString::fromLatin1(now(-1));
            },
            {}, failed(UpdateProblem::expired)},
        {"a feed older than this build, everything forgotten",
            [&] {
                feed[u"issued"] = QString::fromLatin1(now(-60));
                feed[u"expires"] = QString::fromLatin1(now(-46));
            },
            {}, failed(UpdateProblem::expired)},
        {"rollback to an older build", [&] { release[u"build"] = 4; }, {}, {Message::NotFound{}}},
        {"a build that this one cannot become", [&] { release[u"minimumBuild"] = 6; }, {},
            {Message::NotFound{}}},
        {"another computer's", [&] { artefact[u"arch"] = u"riscv64"_s; }, {},
            {Message::NotFound{}}},
        {"a newer system's", [&] { artefact[u"glibc"] = u"9.99"_s; }, {}, {Message::NotFound{}}},
        {"another program's feed", [&] { feed[u"product"] = u"Other"_s; }, {},
            failed(UpdateProblem::wrongProduct)},
        {"another program's release", [&] { release[u"product"] = u"Other"_s; }, {},
            failed(UpdateProblem::wrongProduct)},
        {"another channel's", [&] { feed[u"channel"] = u"nightly"_s; }, {},
            failed(UpdateProblem::wrongChannel)},
        {"mix and match", {}, [&] { wrongFile(packed(11).leftJustified(archive.size(), 0, true)); },
            failed(InstallProblem::notAsSigned)},
        {"a byte of the file", {},
            [&] {
                QByteArray bytes = archive;
                bytes[40] = char(~bytes[40]);
                wrongFile(bytes);
            },
            failed(InstallProblem::notAsSigned)},
        {"cut off", {},
            [&] {
                QByteArray answer = httpAnswer("200 OK", archive);
                web.server().answers["/12.tar.zst"] = answer.chopped(100);
            },
            failed(SendProblem::unreachable)},
        {"more than was promised when unpacked", [&] { artefact[u"unpackedSize"] = 20; }, {},
            failed(InstallProblem::tooMuch)},
        {"a version that calls itself another", [&] { release[u"build"] = 14; }, {},
            failed(InstallProblem::doesNotRun)},
        {"no such file", {},
            [&] { web.server().answers["/12.tar.zst"] = httpAnswer("404 Not Found", {}); },
            failed(SendProblem::refused)},
    };
    const auto before = std::tuple(release, artefact, feed, entry);
    for (const auto &[attack, prepare, spoil, end] : rows) {
        SCOPED_TRACE(attack);
        std::tie(release, artefact, feed, entry) = before;
        QFile::remove(data() + u"/update-state.json"_s);
        if (prepare)
            prepare();
        offer();
        if (spoil)
            spoil();

        const QList<Message> heard = pass();

        ASSERT_FALSE(heard.isEmpty());
        EXPECT_EQ(plain(heard.last()).toLine().toStdString(), end.toLine().toStdString());
        EXPECT_EQ(installed(), std::nullopt);
    }
}

TEST_F(PassTests, aFeedOlderThanTheOneThatWasBelievedIsRefused)
{
    ASSERT_TRUE(std::holds_alternative<Message::Found>(pass({u"--check"_s}).last().value));
    feed[u"issued"] = QString::fromLatin1(now(-1));
    offer();

    EXPECT_EQ(pass().last(), failed(UpdateProblem::olderThanRemembered));
}

TEST_F(PassTests, aMirrorThatGivesSomethingElseIsFollowedByTheNextAndNotesOfAnotherAreNotShown)
{
    mirror = packed(11);
    offer();
    serve("/release-notes/Corvane-1.2", notes + " ");

    const QList<Message> heard = pass();

    EXPECT_EQ(heard.last(), (Message{Message::Installed{12, u"1.2"_s, std::nullopt}}));
    EXPECT_THAT(heard, Contains(Message{Message::NotesFailed{SendProblem::answerNotUnderstood}}));
}

TEST_F(PassTests, aServerOfAnUnknownNameOrABuildThatFailedHereIsNotUsed)
{
    UpdateState state;
    state.noteFailed(12);
    QDir().mkpath(data());
    ASSERT_TRUE(state.save(data()));
    EXPECT_EQ(pass().last(), Message{Message::NotFound{}});

    QFile::remove(web.certificatePath());
    EXPECT_EQ(plain(pass().last()), failed(SendProblem::untrusted));
    EXPECT_EQ(UpdateState::load(data()).failedBuilds, QList<qint64>{12});
}

// Whoever runs this test as another user sees that it trusts no key of the test's.
TEST_F(PassTests, theProgramThatIsShippedWorksNeitherForRootNorWithTheTestsKeys)
{
    QFile::remove(helper());
    ASSERT_TRUE(QFile::copy(QStringLiteral(CORVANE_UPDATER), helper()));

    const QList<Message> heard = pass();

    EXPECT_EQ(heard.isEmpty(), ::getuid() == 0);
    EXPECT_TRUE(heard.isEmpty() || std::holds_alternative<Message::Failed>(heard.last().value));
    EXPECT_FALSE(QFileInfo::exists(home.filePath(u".local/lib"_s)));
}

} // namespace corvane
