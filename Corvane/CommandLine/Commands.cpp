#include "Commands.h"

#include "FileCommands.h"
#include "KeyCaps.h"
#include "LayoutReport.h"
#include "Match.h"
#include "Platform.h"
#include "ScreenRequests.h"
#include "Screens.h"

namespace corvane {

using namespace Qt::StringLiterals;

QCoro::Task<CommandResult> Commands::run(CommandLine line)
{
    m_model.refreshFiles();
    CommandResult result;
    for (const Command &command : std::as_const(line.commands)) {
        const CommandResult next = co_await perform(command, line.form());
        result += next;
    }
    if (!line.isCommand() && !line.asksForScreens()) {
        line.screens.openSettings = true;
        result.output = u"Corvane is running already.\n"_s;
    }
    if (line.asksForScreens()) {
        m_model.pendingActivation = line.activation;
        result += show(line.screens);
    }
    co_return result;
}

QCoro::Task<CommandResult> Commands::perform(Command command, ReportForm form)
{
    if (const auto *layout = std::get_if<Command::ApplyLayout>(&command.value)) {
        const CommandResult result = co_await apply(layout->nameOrID, form);
        co_return result;
    }
    co_return performAtOnce(command, form);
}

CommandResult Commands::performAtOnce(const Command &command, ReportForm form)
{
    return match(
        command.value,
        [&](const Command::Place &place) { return m_place(place.placement).result(form); },
        [&](const Command::Capture &capturing) { return capture(capturing.name, form); },
        [](const Command::ApplyLayout &) { return CommandResult{}; },
        [&](Command::ListLayouts) {
            return CommandResult{
                CommandResult::done, layoutList(m_model.layouts(), Screens::signature(), form), {}};
        },
        [&](Command::ShowHistory history) { return FileCommands::showHistory(history, form); },
        [&](Command::PrintSettings) { return printSettings(); },
        [&](Command::QuitCompetitors) { return quitCompetitors(); },
        [&](const Command::RenderStatusIcon &icon) { return renderStatusIcon(icon.file); },
        [](const Command::SaveReport &saving) {
            return FileCommands::saveReport(saving, &Platform::current());
        });
}

CommandResult Commands::capture(const QString &name, ReportForm form)
{
    WindowAccess &windows = Platform::current().windows();
    if (!windows.isTrusted())
        return failure(CommandResult::refused, windows.distrustReason());
    const auto layout = m_model.captureCurrentWindows(name);
    if (!layout)
        return failure(CommandResult::refused, layout.error());
    return {CommandResult::done, captureText(*layout, form), {}};
}

QCoro::Task<CommandResult> Commands::apply(QString nameOrID, ReportForm form)
{
    const auto layout = m_model.layout(nameOrID);
    if (!layout)
        co_return failure(CommandResult::misused, noSuchLayout(nameOrID, m_model.layouts()));
    const QList<PaneResult> results = co_await m_model.apply(*layout);
    co_return applyResult(*layout, results, form);
}

CommandResult Commands::printSettings() const
{
    CommandResult result = FileCommands::printSettings(m_model.settings());
    if (const auto notice = m_model.unreadableSettings())
        result.error = KeyCaps::plainSentence(notice->text) + u'\n';
    return result;
}

CommandResult Commands::quitCompetitors()
{
    m_model.refreshCompetitors();
    CommandResult result;
    for (const Competitor::Running &each : m_model.competitors.value()) {
        m_model.quit(each.application);
        result.output += u"Asked %1 to quit.\n"_s.arg(each.competitor.name);
    }
    if (result.output.isEmpty())
        result.output = u"No other window manager is running.\n"_s;
    return result;
}

CommandResult Commands::renderStatusIcon(const QString &path)
{
    if (!onRenderStatusIcon)
        return later(u"status icon"_s);
    const auto drawn = onRenderStatusIcon(path);
    return drawn ? CommandResult{} : failure(CommandResult::refused, drawn.error());
}

CommandResult Commands::show(const ScreenFlags &flags)
{
    CommandResult result = ScreenRequests::show(flags, m_model);
    if (flags.popMenu && onPopMenu)
        onPopMenu();
    else if (flags.popMenu)
        result += later(u"menu in the panel"_s);
    return result;
}

} // namespace corvane
