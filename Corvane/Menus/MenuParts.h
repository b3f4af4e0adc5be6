#pragma once

#include "AppModel.h"
#include "MenuRows.h"
#include "MenuTarget.h"

/// Rows that the status menu and the main menu share.
namespace corvane::MenuParts {

enum class Shortcuts {
    shown,
    hidden,
};

/// None for a shortcut that is not set, or that the system did not give us.
[[nodiscard]] MenuRows::Trailing trailing(
    const AppModel &model, const ShortcutOwner &owner, const std::optional<KeyCombo> &combo);

void addPlacement(MenuRows &rows, QMenu &menu, Placement placement, const AppModel &model,
    const MenuTarget &target, Shortcuts shortcuts);
void addLayouts(MenuRows &rows, QMenu &menu, const AppModel &model, const MenuTarget &target,
    Shortcuts shortcuts);
void addCapture(MenuRows &rows, QMenu &menu, const MenuTarget &target);

} // namespace corvane::MenuParts
