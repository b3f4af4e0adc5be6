#include "ShortcutOwner.h"

#include "Match.h"

#include <QtCore/QHash>

#include <algorithm>

namespace corvane {

namespace {

/// A file may hold more bits than a key press; those make no difference to the system.
KeyCombo pressed(const KeyCombo &combo)
{
    return {combo.keyCode, combo.modifiers};
}

} // namespace

size_t qHash(const ShortcutOwner &owner, size_t seed) noexcept
{
    return match(
        owner.value, [seed](Placement placement) { return qHashMulti(seed, 0, int(placement)); },
        [seed](const QUuid &layout) { return qHashMulti(seed, 1, layout); });
}

std::optional<ShortcutOwner> ownerOf(
    const KeyCombo &combo, const ShortcutMap &shortcuts, const QList<WindowLayout> &layouts)
{
    for (const auto &[placement, held] : shortcuts.asKeyValueRange()) {
        if (pressed(held) == pressed(combo))
            return ShortcutOwner{placement};
    }
    const auto layout = std::ranges::find_if(layouts, [&combo](const WindowLayout &each) {
        return each.shortcut && pressed(*each.shortcut) == pressed(combo);
    });
    return layout == layouts.end() ? std::nullopt : std::optional(ShortcutOwner{layout->id});
}

QList<ShortcutLoss> settleShortcuts(ShortcutMap &shortcuts, QList<WindowLayout> &layouts)
{
    QList<ShortcutLoss> losses;
    QHash<KeyCombo, ShortcutOwner> holders;
    const auto holds = [&](const KeyCombo &combo, const ShortcutOwner &owner) {
        const auto holder = holders.constFind(pressed(combo));
        if (holder == holders.constEnd()) {
            holders.insert(pressed(combo), owner);
            return true;
        }
        losses << ShortcutLoss{combo, *holder, owner};
        return false;
    };
    shortcuts.removeIf([&](const std::pair<const Placement &, KeyCombo &> &entry) {
        return !holds(entry.second, ShortcutOwner{entry.first});
    });
    for (qsizetype i = 0; i < layouts.size(); ++i) {
        const WindowLayout &layout = layouts.at(i);
        if (layout.shortcut && !holds(*layout.shortcut, ShortcutOwner{layout.id}))
            layouts[i].shortcut.reset();
    }
    return losses;
}

} // namespace corvane
