#pragma once

#include "AppModel.h"
#include "MenuRows.h"
#include "MenuTarget.h"

#include <QtWidgets/QMenuBar>

#include <memory>

/// The menu bar of the program's windows, for the time that task bars list them.
namespace corvane::MainMenu {

/// Makes the bar of one window. The rows' shortcuts work in the window that the bar is put into.
/// `rows` outlives the bar.
[[nodiscard]] std::unique_ptr<QMenuBar> build(
    MenuRows &rows, const MenuTarget &target, const AppModel &model);

} // namespace corvane::MainMenu
