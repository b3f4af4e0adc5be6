#include "DesktopChoice.h"

#include "BundleUpdater.h"
#include "DeskFile.h"
#include "GnomePlatform.h"
#include "HelperProcess.h"
#include "InstallRecord.h"
#include "KWinPlatform.h"
#include "Spawn.h"
#include "SwayPlatform.h"
#include "X11Platform.h"

#include <QtCore/QFile>

#include <algorithm>
#include <array>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

using Opened = expected<std::unique_ptr<Platform>, QString>;

Opened openSimulatedPlatform(std::function<void()>)
{
    return loadDesk(qEnvironmentVariable("CORVANE_DESK"));
}

/// A kind of desktop, and whether this session is one. Those of Wayland come first: an X server answers in
/// most of their sessions, too.
struct BackEnd {
    QLatin1StringView name;
    const char *windows; ///< Qt's name for how windows are shown there
    bool (*answers)();
    Opened (*open)(std::function<void()> onBroken);
};

constexpr std::array backEnds{
    BackEnd{"sway"_L1, "wayland;xcb", &swayAnswers, &openSwayPlatform},
    BackEnd{"kwin"_L1, "wayland;xcb", &kwinAnswers, &openKWinPlatform},
    BackEnd{"gnome"_L1, "wayland;xcb", &gnomeAnswers, &openGnomePlatform},
    BackEnd{"x11"_L1, "xcb", [] { return true; }, &openX11Platform},
    BackEnd{"simulated"_L1, "offscreen", [] { return false; }, &openSimulatedPlatform},
};

/// The one that CORVANE_BACKEND names, else the first that answers. Null for a wrong name.
const BackEnd *backEnd()
{
    static const BackEnd *const chosen = [] {
        const QString name = qEnvironmentVariable("CORVANE_BACKEND");
        const auto *const found = std::ranges::find_if(backEnds, [&](const BackEnd &each) {
            return name.isEmpty() ? each.answers() : name == each.name;
        });
        return found == backEnds.end() ? nullptr : found;
    }();
    return chosen;
}

QString wrongNameSentence()
{
    QStringList names;
    for (const BackEnd &each : backEnds)
        names << each.name;
    const QString last = names.takeLast();
    return u"CORVANE_BACKEND names no back end: \"%1\" is neither %2 nor %3."_s.arg(
        qEnvironmentVariable("CORVANE_BACKEND"), names.join(u", "_s), last);
}

} // namespace

expected<std::unique_ptr<Platform>, QString> openDesktop(std::function<void()> onBroken)
{
    const BackEnd *chosen = backEnd();
    return chosen ? chosen->open(std::move(onBroken)) : unexpected<QString>(wrongNameSentence());
}

QByteArray returningDesktop()
{
    const BackEnd *chosen = backEnd();
    const bool mayReturn = chosen && QLatin1StringView(chosen->windows).startsWith("wayland"_L1);
    return mayReturn ? QByteArray(chosen->name.data(), chosen->name.size()) : QByteArray();
}

QString prepareWindows()
{
    const BackEnd *chosen = backEnd();
    if (!chosen)
        return {};
    // Qt would end the program where it cannot reach the desktop.
    const bool isX11 = chosen->name == "x11"_L1;
    if (const QString problem = isX11 ? x11Problem() : QString(); !problem.isEmpty())
        return problem;
    const bool isSimulated = chosen->name == "simulated"_L1;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM",
            isSimulated && qEnvironmentVariableIsSet("DISPLAY") ? "xcb" : chosen->windows);
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
