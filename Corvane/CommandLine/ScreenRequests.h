#pragma once

#include "AppModel.h"
#include "CommandLine.h"
#include "CommandResult.h"

/// Has the windows of the program show what a command line asks for.
namespace corvane::ScreenRequests {

/// By the model's requests. Says which windows there are not yet.
[[nodiscard]] CommandResult show(const ScreenFlags &flags, AppModel &model);

} // namespace corvane::ScreenRequests
