#include "HomeInstall.h"

#include "BundleCopy.h"
#include "DataFolder.h"
#include "DesktopFiles.h"
#include "Identity.h"
#include "Installation.h"
#include "InstallRecord.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtDBus/QDBusConnectionInterface>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusReply>

#include <cstdlib>
#include <fcntl.h>
#include <numeric>
#include <utility>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr int busPatience = 5000; ///< ms

FileDescriptor openFolder(const QString &path)
{
    return FileDescriptor(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

QString sentence(const InstallFailure &failure, const QString &installation)
{
    const QString place = abbreviatedPath(installation);
    const QString detail = abbreviatedPath(failure.detail);
    switch (failure.problem) {
    case InstallProblem::folderNotOurs:
        return u"\"%1\" belongs to another user, or others may write to it."_s.arg(
            detail.isEmpty() ? place : detail);
    case InstallProblem::busy:
        return u"Corvane is being installed or updated already. Try again in a moment."_s;
    case InstallProblem::noSpace:
        return u"There is not enough free space for \"%1\"."_s.arg(place);
    case InstallProblem::cannotWrite:
        return u"\"%1\" cannot be written: %2"_s.arg(place, detail);
    case InstallProblem::manifestNotUnderstood:
    case InstallProblem::treeDiffers:
        return u"This copy is not as it was released (\"%1\"). Unpack it anew."_s.arg(
            detail.isEmpty() ? u"MANIFEST"_s : detail);
    case InstallProblem::doesNotRun:
        return u"This copy does not run on this computer: %1"_s.arg(detail);
    default:
        return u"This copy cannot be installed (%1)."_s.arg(installProblems[failure.problem].name);
    }
}

/// The installation of one bundle into a user's home folder.
class HomeInstall final
{
public:
    HomeInstall(QString bundle, const HomeUser &user, DesktopFiles::Say say)
        : m_bundle(std::move(bundle))
        , m_user(user)
        , m_installation(InstallFolder::pathIn(user.home))
        , m_say(std::move(say))
    {
    }

    [[nodiscard]] QString installation() const { return m_installation; }

    InstallResult<void> run()
    {
        const FileDescriptor source = openFolder(m_bundle);
        if (auto checked = checkTree(source.number()); !checked)
            return checked;
        const auto record = freedesktop::InstallRecord::read(m_bundle);
        if (record.kind != InstallKind::bundle || record.build == 0)
            return installFailure(InstallProblem::treeDiffers, u"share/corvane/install.json"_s);
        auto folder = InstallFolder::open(m_installation);
        if (!folder)
            return unexpected<InstallFailure>(folder.error());
        return install(*folder, source, record.build);
    }

private:
    InstallResult<void> install(InstallFolder &folder, const FileDescriptor &source, qint64 build)
    {
        const auto current = folder.current();
        if (!current)
            return unexpected<InstallFailure>(current.error());
        const bool isCurrent = *current == build;
        if (isCurrent && checkTree(openFolder(folder.versionPath(build)).number())) {
            m_say(u"Build %1 of Corvane is installed already."_s.arg(build));
            return {};
        }
        const auto manifest = Manifest::ofFolder(source.number());
        if (!manifest)
            return unexpected<InstallFailure>(manifest.error());
        const qint64 size = std::accumulate(manifest->files.cbegin(), manifest->files.cend(),
            qint64(0), [](qint64 sum, const Manifest::File &file) { return sum + file.size; });
        const auto staging = folder.stage(size);
        if (!staging)
            return unexpected<InstallFailure>(staging.error());
        if (auto copied = copyBundle(source.number(), *manifest, staging->number()); !copied)
            return copied;
        if (auto tried = tryStaged(folder, *staging, build); !tried)
            return tried;
        if (const auto adopted = adoptStaged(folder, build); !adopted)
            return unexpected<InstallFailure>(adopted.error());
        const QString done = isCurrent
            ? u"Build %1 of Corvane was damaged in \"%2\" and is mended."_s
            : u"Build %1 of Corvane is installed in \"%2\"."_s;
        m_say(done.arg(build).arg(abbreviatedPath(m_installation)));
        return {};
    }

    QString m_bundle;
    HomeUser m_user;
    QString m_installation;
    DesktopFiles::Say m_say;
};

/// What runs now, and where the bus would start it from.
void lookAtTheBus(
    const QDBusConnection &bus, const QString &installation, const DesktopFiles::Say &say)
{
    if (!bus.isConnected())
        return;
    // It knows of a service only once it has read the folder again.
    const auto reload = QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s,
        u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"ReloadConfig"_s);
    bus.call(reload, QDBus::Block, busPatience);
    const auto owner = bus.interface()->servicePid(Identity::bundleIdentifier);
    if (!owner.isValid())
        return;
    const QString running = QFile::symLinkTarget(u"/proc/%1/exe"_s.arg(owner.value()));
    const QString installed =
        QFileInfo(installation + u"/current/bin/corvane"_s).canonicalFilePath();
    if (running != installed)
        say(u"Another copy runs, \"%1\", until it is quit. Then open Corvane again."_s.arg(
            abbreviatedPath(running)));
}

} // namespace

HomeUser HomeUser::ofProcess()
{
    QStringList commandFolders;
    for (const QString &folder : qEnvironmentVariable("PATH").split(u':', Qt::SkipEmptyParts))
        commandFolders << QDir::cleanPath(folder);
    return {QDir::homePath(), QFileInfo(dataFolder()).path(), commandFolders};
}

int installHere(const QString &bundle, const HomeUser &user, const QDBusConnection &bus,
    const std::function<void(const QString &)> &say)
{
    HomeInstall home(bundle, user, say);
    if (const auto installed = home.run(); !installed) {
        say(sentence(installed.error(), home.installation()));
        return EXIT_FAILURE;
    }
    const DesktopFiles files(user.home, user.data, home.installation(), say);
    const bool isComplete = files.put();
    files.announce();
    lookAtTheBus(bus, home.installation(), say);
    if (!user.commandFolders.contains(files.commandFolder()))
        say(u"\"%1\" is not on your PATH. Many systems add it at the next login."_s.arg(
            abbreviatedPath(files.commandFolder())));
    return isComplete ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace corvane
