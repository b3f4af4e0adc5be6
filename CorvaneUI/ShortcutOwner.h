#pragma once

#include "ShortcutPreset.h"
#include "WindowLayout.h"

#include <QtCore/QUuid>

#include <variant>

namespace corvane {

/// What a shortcut belongs to: a placement, or a layout by its id.
struct ShortcutOwner {
    std::variant<Placement, QUuid> value;

    bool operator==(const ShortcutOwner &) const = default;
};

size_t qHash(const ShortcutOwner &owner, size_t seed = 0) noexcept;

/// A combination that one owner holds and another is to get, waiting for the user's answer.
struct ShortcutSteal {
    QUuid id = QUuid::createUuid();
    KeyCombo combo;
    ShortcutOwner to;
    ShortcutOwner from;
    bool isSample = false; ///< only shows what the question is like

    bool operator==(const ShortcutSteal &) const = default;
};

/// The placement that holds the combination, else the first layout that does.
[[nodiscard]] std::optional<ShortcutOwner> ownerOf(
    const KeyCombo &combo, const ShortcutMap &shortcuts, const QList<WindowLayout> &layouts);

/// A shortcut that was taken from one of two that held it.
struct ShortcutLoss {
    KeyCombo combo;
    ShortcutOwner keeper;
    ShortcutOwner loser;

    bool operator==(const ShortcutLoss &) const = default;
};

/// Takes each combination that several hold from all but the one that `ownerOf` names.
[[nodiscard]] QList<ShortcutLoss> settleShortcuts(
    ShortcutMap &shortcuts, QList<WindowLayout> &layouts);

} // namespace corvane
