#pragma once

#include "CommandLine.h"
#include "CommandResult.h"
#include "Settings.h"

/// What the user's files answer without a desktop.
namespace corvane::FileCommands {

/// Whether the running program knows no more than the files.
[[nodiscard]] bool isKeptInFiles(const Command &command);
[[nodiscard]] bool needsDesktop(const Command &command);

[[nodiscard]] CommandResult showHistory(const Command::ShowHistory &history, bool asJson);
[[nodiscard]] CommandResult printSettings(const Settings &settings);

/// Every command, in order. Those that need a desktop are refused with the sentence.
[[nodiscard]] CommandResult run(const CommandLine &line, const QString &withoutDesktop);

} // namespace corvane::FileCommands
