#include "UpdateHelper.h"

#include "HomeInstall.h"
#include "InstallRecord.h"
#include "Relauncher.h"
#include "ServerAddress.h"
#include "UpdatePass.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QSocketNotifier>
#include <QtCore/QSysInfo>
#include <QtNetwork/QNetworkProxyFactory>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <gnu/libc-version.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace corvane::UpdateHelper {

using namespace Qt::StringLiterals;

namespace {

constexpr int failed = 1;
constexpr int misused = 2;
constexpr qsizetype longestWord = 4096;
constexpr std::chrono::minutes lockPatience(1);

int refuse(const char *sentence)
{
    std::fprintf(stderr, "%s\n", sentence);
    return misused;
}

/// Gives away what a pass does not need. What it starts, besides a test of a new version, is none of its
/// work: programs that users run may need more.
void confine()
{
    ::umask(077);
    ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    const rlimit none{0, 0};
    ::setrlimit(RLIMIT_CORE, &none);
#ifndef __SANITIZE_ADDRESS__
    constexpr rlim_t addressSpace = 2UL * 1024 * 1024 * 1024;
    const rlimit space{addressSpace, addressSpace};
    ::setrlimit(RLIMIT_AS, &space);
#endif
}

RunningCopy runningCopy(const freedesktop::InstallRecord &record)
{
    return {.build = record.build,
        .os = u"linux"_s,
        .arch = QSysInfo::currentCpuArchitecture(),
        .glibc = QVersionNumber::fromString(QLatin1StringView(gnu_get_libc_version())),
        .failedBuilds = {}};
}

/// Hands on the words that stand on standard input, a line each.
class WordReader final : public QObject
{
public:
    explicit WordReader(std::function<void(UpdateWord)> onWord) : m_onWord(std::move(onWord))
    {
        connect(&m_input, &QSocketNotifier::activated, this, &WordReader::read);
        ::fcntl(STDIN_FILENO, F_SETFL, ::fcntl(STDIN_FILENO, F_GETFL) | O_NONBLOCK);
    }

private:
    void read()
    {
        QByteArray block(longestWord, Qt::Uninitialized);
        const ssize_t count = ::read(STDIN_FILENO, block.data(), block.size());
        if (count < 0 && (errno == EAGAIN || errno == EINTR))
            return;
        // Whoever asked is not there any more.
        if (count <= 0 || m_text.size() > longestWord)
            return QCoreApplication::exit(failed);
        m_text += block.first(count);
        for (qsizetype end = 0; (end = m_text.indexOf('\n')) >= 0;) {
            const auto word = updateWords.named(QString::fromLatin1(m_text.first(end)));
            m_text.remove(0, end + 1);
            if (word)
                m_onWord(*word);
        }
    }

    std::function<void(UpdateWord)> m_onWord;
    QSocketNotifier m_input{STDIN_FILENO, QSocketNotifier::Read};
    QByteArray m_text;
};

/// Of the copy that this program is a part of.
QString ownFolder()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + u"/../.."_s);
}

int check(Asker asker, const UpdateKeys &keys)
{
    const auto record = freedesktop::InstallRecord::read(ownFolder());
    // An update must not fail for want of a date.
    const QDateTime built = record.built.value_or(QDateTime::fromSecsSinceEpoch(0));
    QNetworkProxyFactory::setUseSystemConfiguration(true);
    UpdatePass pass({.keys = keys,
                        .feed = updateFeedAddress(),
                        .running = runningCopy(record),
                        .built = built,
                        .asker = asker},
        {.onMessage =
                [](const UpdateMessage &message) {
                    std::fputs(message.toLine().constData(), stdout);
                    std::fflush(stdout);
                },
            .onEnd = [] { QCoreApplication::exit(); }});
    const WordReader reader([&pass](UpdateWord word) { pass.hear(word); });
    pass.start();
    return QCoreApplication::exec();
}

/// The bundle that this program is a part of.
int installHere()
{
    return corvane::installHere(ownFolder(), HomeUser::ofProcess(), QDBusConnection::sessionBus(),
        [](const QString &sentence) { std::printf("%s\n", qUtf8Printable(sentence)); });
}

/// Once nobody else is installing: the user must not be left without the program.
InstallResult<InstallFolder> openPatiently()
{
    const QDeadlineTimer deadline(lockPatience);
    auto folder = InstallFolder::open();
    while (!folder && folder.error().problem == InstallProblem::busy && !deadline.hasExpired())
        folder = InstallFolder::open();
    return folder;
}

int relaunch(const Relauncher::Step &step)
{
    auto folder = openPatiently();
    if (!folder)
        return failed;
    Relauncher relauncher(*folder, QDBusConnection::sessionBus(), dataFolder(), {});
    relauncher.start(
        step, [](const Relauncher::End &end) { QCoreApplication::exit(end ? 0 : failed); });
    return QCoreApplication::exec();
}

} // namespace

int run(const QStringList &arguments, const Rules &rules)
{
    std::signal(SIGPIPE, SIG_IGN);
    QCommandLineParser parser;
    const QCommandLineOption check(u"check"_s), asked(u"asked"_s), installHere(u"install-here"_s);
    const QCommandLineOption relaunch(u"relaunch"_s, {}, u"build"_s);
    const QCommandLineOption version(u"version"_s, {}, u"text"_s);
    const QCommandLineOption previous(u"previous"_s, {}, u"build"_s);
    parser.addOptions({check, asked, installHere, relaunch, version, previous});
    if (!parser.parse(arguments) || !parser.positionalArguments().isEmpty())
        return refuse(qUtf8Printable(parser.errorText()));
    if (!rules.worksForRoot && !InstallFolder::checkUser(::getuid(), ::geteuid()))
        return refuse("Corvane is installed for one user: call this as that user, without sudo.");
    if (parser.isSet(check)) {
        confine();
        return UpdateHelper::check(parser.isSet(asked) ? Asker::user : Asker::schedule, rules.keys);
    }
    if (parser.isSet(installHere))
        return UpdateHelper::installHere();
    const qint64 build = parser.value(relaunch).toLongLong();
    if (build <= 0)
        return refuse("This program is started by Corvane. With --install-here it installs the "
                      "copy that it is a part of.");
    Relauncher::Step step{.build = build, .version = parser.value(version), .previous = {}};
    if (const qint64 before = parser.value(previous).toLongLong(); before > 0)
        step.previous = before;
    return UpdateHelper::relaunch(step);
}

} // namespace corvane::UpdateHelper
