#include "DesktopChoice.h"

#include "BundleUpdater.h"
#include "DeskFile.h"
#include "HelperProcess.h"
#include "InstallRecord.h"
#include "Spawn.h"
#include "X11Platform.h"

#include <QtCore/QFile>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QString backEnd()
{
    return qEnvironmentVariable("CORVANE_BACKEND", u"x11"_s);
}

} // namespace

expected<std::unique_ptr<Platform>, QString> openDesktop(std::function<void()> onBroken)
{
    const QString name = backEnd();
    if (name == "x11"_L1)
        return openX11Platform(std::move(onBroken));
    if (name == "simulated"_L1) {
        auto desk = loadDesk(qEnvironmentVariable("CORVANE_DESK"));
        if (!desk)
            return unexpected<QString>(desk.error());
        return std::move(*desk);
    }
    return unexpected<QString>(
        u"CORVANE_BACKEND names no back end: \"%1\" is neither x11 nor simulated."_s.arg(name));
}

QString prepareWindows()
{
    const QString name = backEnd();
    const bool isX11 = name == "x11"_L1;
    // Qt would end the program where it cannot reach the desktop.
    if (const QString problem = isX11 ? x11Problem() : QString(); !problem.isEmpty())
        return problem;
    const bool isSeen = isX11 || (name == "simulated"_L1 && qEnvironmentVariableIsSet("DISPLAY"));
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", isSeen ? "xcb" : "offscreen");
    return {};
}

UpdateSource updateSource()
{
    UpdateSource source{.installedCopy = freedesktop::ownCopy()};
    if (source.installedCopy.canUpdateItself())
        source.updater = std::make_unique<BundleUpdater>(
            BundleUpdater::Setup{.helper = HelperProcess::path(u"corvane-updater"_s),
                .spawn = [](const QByteArrayList &command) {
                    return freedesktop::spawn(command, {});
                }});
    return source;
}

QString installedProgram()
{
    return freedesktop::ownProgram();
}

QString startAgain(const QString &program)
{
    return freedesktop::spawn({QFile::encodeName(program)}, {});
}

} // namespace corvane
