#include "Commands.h"

#include "LayoutReport.h"
#include "Platform.h"
#include "Screens.h"

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QString names(const QList<WindowLayout> &layouts)
{
    QStringList names;
    for (const WindowLayout &layout : layouts)
        names << layout.name;
    return names.join(u", "_s);
}

} // namespace

QCoro::Task<CommandResult> Commands::run(CommandLine line)
{
    m_model.refreshLayouts();
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
    co_return CommandResult{CommandResult::done, u"Corvane is running already.\n"_s, {}};
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
    if (!layout) {
        const QString known = m_model.layouts().isEmpty()
            ? u"none has been saved yet"_s
            : u"the layouts are: "_s + names(m_model.layouts());
        co_return failure(
            CommandResult::misused, u"There is no layout \"%1\"; %2."_s.arg(nameOrID, known));
    }
    const QList<PaneResult> results = co_await m_model.apply(*layout);
    co_return applyResult(*layout, results, asJson);
}

} // namespace corvane
