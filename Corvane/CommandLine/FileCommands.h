#pragma once

#include "CommandLine.h"
#include "CommandResult.h"
#include "Settings.h"

/// The commands that the user's files answer, for which no desktop is needed.
namespace corvane::FileCommands {

/// Whether the program that runs would answer no more than the files do.
[[nodiscard]] bool isAnsweredByFiles(const Command &command);
[[nodiscard]] bool needsDesktop(const Command &command);

[[nodiscard]] CommandResult showHistory(const Command::ShowHistory &history, ReportForm form);
[[nodiscard]] CommandResult printSettings(const Settings &settings);

/// Carries out every command, in order. Those that need a desktop are refused with the sentence, which
/// says why there is none.
[[nodiscard]] CommandResult run(const CommandLine &line, const QString &whyNoDesktop);

} // namespace corvane::FileCommands
