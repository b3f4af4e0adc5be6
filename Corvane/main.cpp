#include "AppDelegate.h"
#include "Catalogues.h"
#include "CommandLine.h"
#include "DataFolder.h"
#include "DesktopChoice.h"
#include "FileCommands.h"
#include "FlightRecorder.h"
#include "Instance.h"
#include "LegacyIdentity.h"
#include "RunMark.h"
#include "StatusIcon.h"
#include "Successor.h"
#include "TerminationSignals.h"
#include "UserDefaults.h"

#include <qcorotask.h>
#include <QtDBus/QDBusMetaType>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cstdio>
#include <tuple>

using namespace corvane;
using namespace Qt::StringLiterals;

namespace {

int finish(const CommandResult &result)
{
    std::fputs(qUtf8Printable(result.output), stdout);
    std::fflush(stdout);
    std::fputs(qUtf8Printable(result.error), stderr);
    return result.status;
}

/// What is asked of the program and not of a desktop; nothing when no such thing is.
std::optional<CommandResult> textAskedFor(const CommandLine &line)
{
    if (!line.help && !line.version)
        return std::nullopt;
    return CommandResult{
        CommandResult::done, line.help ? CommandLine::helpText() : CommandLine::versionText(), {}};
}

/// Runs the command line of a second start, or of the updater, which asks who answers.
QCoro::Task<CommandResult> run(Commands &commands, QStringList arguments, QString activation)
{
    auto line = CommandLine::parse(arguments);
    if (!line)
        co_return failure(CommandResult::misused, line.error());
    if (const auto text = textAskedFor(*line))
        co_return *text;
    line->activation = activation;
    const CommandResult result = co_await commands.run(*line);
    co_return result;
}

/// Runs the command line of the start itself, for a program that stays.
QCoro::Task<> runAtStart(Commands &commands, CommandLine line)
{
    const CommandResult result = co_await commands.run(line);
    finish(result);
}

/// Answers from the files, and asks the desktop only what a report tells of it.
int runOnFiles(const CommandLine &line)
{
    const bool asksDesktop = std::ranges::any_of(line.commands, [](const Command &command) {
        return std::holds_alternative<Command::SaveReport>(command.value);
    });
    const auto desktop = asksDesktop ? openDesktop([] {}).value_or(nullptr) : nullptr;
    return finish(FileCommands::run(line, {}, desktop.get()));
}

/// Runs the command line without staying.
int runOnce(const CommandLine &line)
{
    if (std::ranges::none_of(line.commands, FileCommands::needsDesktop))
        return runOnFiles(line);
    const auto desktop = openDesktop([] {});
    if (!desktop)
        return finish(FileCommands::run(line, desktop.error()));
    AppModel model{SettingsStore(), LayoutStore(), ActivityLog()};
    Mover mover(model);
    Commands commands(model, [&](Placement placement) { return mover.perform(placement); });
    commands.onRenderStatusIcon = StatusIcon::render;
    CommandResult result = QCoro::waitFor(commands.run(line));
    FlightRecorder::shared().flush();
    // The recorder's thread posts its problems to the model.
    QCoreApplication::sendPostedEvents(&model);
    for (const AppModel::Notice &notice : model.notices()) {
        if (!result.error.contains(notice.text))
            result.error += KeyCaps::plainSentence(notice.text) + u'\n';
    }
    return finish(result);
}

/// Whether this copy can run here, for what is about to make it the one that starts.
int testItself(int argc, char **argv)
{
    if (const QString problem = prepareWindows(); !problem.isEmpty())
        return finish(failure(CommandResult::refused, problem));
    QApplication::setDesktopSettingsAware(false);
    const QApplication application(argc, argv);
    const Catalogues catalogues;
    if (const auto desktop = openDesktop([] {}); !desktop)
        return finish(failure(CommandResult::refused, desktop.error()));
    return finish(
        {CommandResult::done, QString::number(updateSource().installedCopy.build) + u'\n', {}});
}

/// How a run ended.
struct End {
    int status = 0;
    QString next = {}; ///< the program to start then; usually none
};

/// Runs until the user quits the program.
End stay(int argc, char **argv, const QStringList &arguments, const CommandLine &line)
{
    // The plug-in with which a desktop draws widgets is four times as large as the whole program.
    QApplication::setDesktopSettingsAware(false);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    UserDefaults::prepare();
    const Catalogues catalogues;
    const auto desktop = openDesktop([] {
        std::fputs("Corvane: the desktop is gone.\n", stderr);
        QCoreApplication::exit(1);
    });
    if (!desktop)
        return {finish(failure(CommandResult::refused, desktop.error()))};
    AppDelegate delegate(
        line.verbose ? AppDelegate::Log::verbose : AppDelegate::Log::quiet, updateSource());
    Instance instance;
    const auto claim = instance.claim(
        [&](const QStringList &asked, const QString &activation) {
            return run(delegate.commands(), asked, activation);
        },
        {.perform = [&](Placement placement) { delegate.performFromMenu(placement); },
            .capture = [&] { delegate.captureLayout(); }});
    if (claim == Instance::Claim::taken)
        return {finish(Instance::handOver(arguments, line.activation).value_or(CommandResult{}))};
    if (claim == Instance::Claim::unavailable)
        std::fputs(
            "Corvane: there is no session bus, so a second start cannot reach this one.\n", stderr);
    const TerminationSignals signals;
    // Where the display ends before the program, a library of it exits at once, past everything local.
    static const RunMark mark(dataFolder());
    LegacyIdentity::adopt(LegacyIdentity::earlier);
    delegate.start();
    if (!Successor::isOne() && mark.foundAnother())
        delegate.tellCrash();
    if (line.isCommand() || line.asksForScreens())
        std::ignore = runAtStart(delegate.commands(), line);
    else
        delegate.welcome();
    const int status = QCoreApplication::exec();
    return {status, delegate.opensAgain() ? installedProgram() : QString()};
}

/// Does what needs no program that stays, and returns the exit status. Nothing when this one is to stay.
std::optional<int> finishEarly(
    int argc, char **argv, const QStringList &arguments, const CommandLine &line)
{
    const QCoreApplication application(argc, argv);
    const Catalogues catalogues;
    if (const auto text = textAskedFor(line))
        return finish(*text);
    const bool isOneOff = line.isCommand() && !line.asksForScreens();
    if (isOneOff && std::ranges::all_of(line.commands, FileCommands::isAnsweredByFiles))
        return runOnFiles(line);
    // Where the user was quicker than the successor of a program that ended with its compositor, nothing is
    // asked of the one that runs.
    const QStringList asked = Successor::isOne() ? QStringList{u"--version"_s} : arguments;
    if (const auto result = Instance::handOver(asked, line.activation))
        return finish(*result);
    if (isOneOff)
        return runOnce(line);
    if (const QString problem = prepareWindows(); !problem.isEmpty())
        return finish(failure(CommandResult::refused, problem));
    // Calls from the bus are let in by an event that is posted to this object, which ends now.
    QCoreApplication::sendPostedEvents();
    // What let them in deletes itself by another one.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return std::nullopt;
}

} // namespace

int main(int argc, char **argv)
{
    // GLib's event loop would add its own work to every key press.
    if (!qEnvironmentVariableIsSet("QT_NO_GLIB"))
        qputenv("QT_NO_GLIB", "1");
    // What is made first is destroyed last, and the bus has a thread that needs its types to the end.
    std::ignore = QDBusMetaType::signatureToMetaType("s");
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    arguments = CommandLine::withAbsolutePaths(arguments);
    auto line = CommandLine::parse(arguments);
    if (!line)
        return finish(failure(CommandResult::misused, line.error()));
    line->activation = Instance::takeActivation();
    if (line->selfTest)
        return testItself(argc, argv);
    if (const auto status = finishEarly(argc, argv, arguments, *line))
        return *status;
    // While the program is small: the process that waits keeps what there is of it now.
    const QByteArray returning = returningDesktop();
    const auto successor = returning.isEmpty() ? nullptr : std::make_unique<Successor>(returning);
    const End end = stay(argc, argv, arguments, *line);
    // Its name on the bus is free by now.
    const QString problem = end.next.isEmpty() ? QString() : startAgain(end.next);
    if (!problem.isEmpty())
        std::fprintf(stderr, "Corvane: %s\n", qUtf8Printable(problem));
    return end.status;
}
