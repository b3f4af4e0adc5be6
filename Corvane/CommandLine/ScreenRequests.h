#pragma once

#include "AppModel.h"
#include "CommandLine.h"
#include "CommandResult.h"

/// Has the program's windows show what a command line asks for.
namespace corvane::ScreenRequests {

/// Raises the model's requests, which the windows answer. The result says what cannot be shown.
[[nodiscard]] CommandResult show(const ScreenFlags &flags, AppModel &model);

} // namespace corvane::ScreenRequests
