#include "FileCommands.h"

#include "ActivityLog.h"
#include "HistoryReport.h"
#include "ReportBuilder.h"
#include "ReportFile.h"
#include "SettingsStore.h"
#include "UserDefaults.h"

#include <QtCore/QJsonDocument>

namespace corvane::FileCommands {

using namespace Qt::StringLiterals;

namespace {

CommandResult printStoredSettings()
{
    const auto [settings, problem] = SettingsStore().inspect();
    CommandResult result = printSettings(settings);
    if (problem)
        result.error = sentence(*problem) + u'\n';
    return result;
}

} // namespace

bool isAnsweredByFiles(const Command &command)
{
    return std::holds_alternative<Command::ShowHistory>(command.value)
        || std::holds_alternative<Command::SaveReport>(command.value);
}

bool needsDesktop(const Command &command)
{
    return !isAnsweredByFiles(command)
        && !std::holds_alternative<Command::PrintSettings>(command.value);
}

CommandResult showHistory(const Command::ShowHistory &history, ReportForm form)
{
    const QList<ActivityEntry> entries = ActivityLog().recent(history.count);
    return {CommandResult::done,
        form == ReportForm::json ? historyJson(entries) : historyTable(entries), {}};
}

CommandResult printSettings(const Settings &settings)
{
    const QJsonDocument document(settings.toJson());
    return {CommandResult::done, QString::fromUtf8(document.toJson()), {}};
}

CommandResult saveReport(const Command::SaveReport &saving, Platform *desktop)
{
    // For the install id to be the one of the program that stays.
    UserDefaults::prepare();
    ProblemReport report = buildReport(desktop).result();
    report.text = saving.text;
    if (saving.file == "-"_L1)
        return {CommandResult::done, report.toText(), {}};
    const auto saved = corvane::saveReport(report, saving.file);
    return saved ? CommandResult{} : failure(CommandResult::refused, saved.error());
}

CommandResult run(const CommandLine &line, const QString &whyNoDesktop, Platform *desktop)
{
    CommandResult result;
    for (const Command &command : line.commands) {
        if (needsDesktop(command))
            result += failure(CommandResult::refused, whyNoDesktop);
        else if (const auto *history = std::get_if<Command::ShowHistory>(&command.value))
            result += showHistory(*history, line.form());
        else if (const auto *saving = std::get_if<Command::SaveReport>(&command.value))
            result += saveReport(*saving, desktop);
        else
            result += printStoredSettings();
    }
    return result;
}

} // namespace corvane::FileCommands
