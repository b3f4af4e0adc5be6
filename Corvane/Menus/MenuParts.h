#pragma once

#include "AppModel.h"
#include "MenuRows.h"
#include "MenuTarget.h"

/// Rows that the status menu and the main menu share.
namespace corvane::MenuParts {

/// Whether rows show the key caps of their shortcuts. Those of a shortcut that the system did not give
/// us are never shown.
enum class Shortcuts {
    shown,
    hidden,
};

void addPlacement(MenuRows &rows, QMenu &menu, Placement placement, const AppModel &model,
    const MenuTarget &target, Shortcuts shortcuts);
/// Adds a row for each layout.
void addLayouts(MenuRows &rows, QMenu &menu, const AppModel &model, const MenuTarget &target,
    Shortcuts shortcuts);
/// Adds what makes layouts and leads to those that are there.
void addCapture(MenuRows &rows, QMenu &menu, const AppModel &model, const MenuTarget &target);

} // namespace corvane::MenuParts
