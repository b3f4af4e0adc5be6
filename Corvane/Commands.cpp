#include "Commands.h"

#include "LayoutReport.h"
#include "Platform.h"
#include "ScreenRequests.h"
#include "Screens.h"

#include <QtCore/QJsonDocument>

namespace corvane {

using namespace Qt::StringLiterals;

QCoro::Task<CommandResult> Commands::run(CommandLine line)
{
    m_model.refreshFiles();
    CommandResult result;
    if (line.isCommand()) {
        result = co_await perform(line);
    } else if (!line.asksForScreens()) {
        line.screens.openSettings = true;
        result.output = u"Corvane is running already.\n"_s;
    }
    if (line.asksForScreens()) {
        m_model.pendingActivation = line.activation;
        result += show(line.screens);
    }
    co_return result;
}

QCoro::Task<CommandResult> Commands::perform(CommandLine line)
{
    if (line.printSettings)
        co_return settingsReport(m_model.settings());
    if (line.place)
        co_return m_mover.perform(*line.place).result(line.json);
    if (line.capture)
        co_return capture(*line.capture, line.json);
    if (line.applyLayout) {
        const CommandResult result = co_await apply(*line.applyLayout, line.json);
        co_return result;
    }
    if (line.layouts)
        co_return CommandResult{CommandResult::done,
            layoutList(m_model.layouts(), Screens::signature(), line.json), {}};
    co_return line.quitCompetitors ? quitCompetitors() : renderStatusIcon(*line.renderStatusIcon);
}

CommandResult Commands::capture(const QString &name, bool asJson)
{
    WindowAccess &windows = Platform::current().windows();
    if (!windows.isTrusted())
        return failure(CommandResult::refused, windows.distrustReason());
    const auto layout = m_model.captureCurrentWindows(name);
    if (!layout)
        return failure(CommandResult::refused, layout.error());
    return {CommandResult::done, captureText(*layout, asJson), {}};
}

QCoro::Task<CommandResult> Commands::apply(QString nameOrID, bool asJson)
{
    const auto layout = m_model.layout(nameOrID);
    if (!layout)
        co_return failure(CommandResult::misused, noSuchLayout(nameOrID, m_model.layouts()));
    const QList<PaneResult> results = co_await m_model.apply(*layout);
    co_return applyResult(*layout, results, asJson);
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

CommandResult settingsReport(const Settings &settings)
{
    const QJsonDocument document(settings.toJson());
    return {CommandResult::done, QString::fromUtf8(document.toJson()), {}};
}

} // namespace corvane
