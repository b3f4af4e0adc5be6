#pragma once

#include "AppModel.h"
#include "MenuRows.h"
#include "MenuTarget.h"

#include <QtWidgets/QMenuBar>

#include <memory>

/// The application's menus, for the windows that it shows while task bars list it.
namespace corvane::MainMenu {

/// For one window, after which the rows' shortcuts work in it. `rows` outlives the bar.
[[nodiscard]] std::unique_ptr<QMenuBar> build(
    MenuRows &rows, const MenuTarget &target, const AppModel &model);

} // namespace corvane::MainMenu
