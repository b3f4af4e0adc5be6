#pragma once

#include "CommandLine.h"
#include "CommandResult.h"
#include "Settings.h"

namespace corvane {
class Platform;
}

/// The commands that the user's files answer, for which no desktop is needed.
namespace corvane::FileCommands {

/// Whether the program that runs would answer no more than the files do. It is not asked for a report:
/// that it hangs may be the problem.
[[nodiscard]] bool isAnsweredByFiles(const Command &command);
[[nodiscard]] bool needsDesktop(const Command &command);

[[nodiscard]] CommandResult showHistory(const Command::ShowHistory &history, ReportForm form);
[[nodiscard]] CommandResult printSettings(const Settings &settings);

/// `desktop` is null where there is none, and then the report lacks its facts.
[[nodiscard]] CommandResult saveReport(const Command::SaveReport &saving, Platform *desktop);

/// Carries out every command, in order. Those that need a desktop are refused with the sentence, which
/// says why there is none.
[[nodiscard]] CommandResult run(
    const CommandLine &line, const QString &whyNoDesktop, Platform *desktop = nullptr);

} // namespace corvane::FileCommands
