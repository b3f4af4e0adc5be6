#include "MenuParts.h"

#include "OneLine.h"
#include "Screens.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QMenu>

namespace corvane::MenuParts {

using namespace Qt::StringLiterals;

using Row = MenuRows::Row;
using Trailing = MenuRows::Trailing;

namespace {

Row layoutRow(
    const WindowLayout &layout, const QList<DisplayKey> &connected, const Board::Palette &palette)
{
    if (layout.matches(connected))
        return {.title = oneLine(layout.name), .symbol = u"display"_s};
    return {.title = oneLine(layout.name),
        .symbol = u"display.trianglebadge.exclamationmark"_s,
        .symbolColors = Symbol::Colors{palette.muted, palette.attention},
        .spokenTrailing =
            QCoreApplication::translate("Menu", "made for displays that are not connected")};
}

} // namespace

Trailing trailing(
    const AppModel &model, const ShortcutOwner &owner, const std::optional<KeyCombo> &combo)
{
    if (!combo || model.unregistered.value().contains(owner))
        return {};
    return {Trailing::Keys{combo->parts()}};
}

void addPlacement(MenuRows &rows, QMenu &menu, Placement placement, const AppModel &model,
    const MenuTarget &target, Shortcuts shortcuts)
{
    Row row{.title = title(placement), .image = placement};
    const auto combo = model.settings().shortcuts.constFind(placement);
    if (shortcuts == Shortcuts::shown && combo != model.settings().shortcuts.cend())
        row.trailing = trailing(model, {placement}, *combo);
    rows.add(menu, row, [perform = target.perform, placement] { perform(placement); });
}

void addLayouts(MenuRows &rows, QMenu &menu, const AppModel &model, const MenuTarget &target,
    Shortcuts shortcuts)
{
    const QList<DisplayKey> connected = Screens::signature();
    for (const WindowLayout &layout : model.layouts()) {
        Row row = layoutRow(layout, connected, rows.palette());
        if (shortcuts == Shortcuts::shown)
            row.trailing = trailing(model, {layout.id}, layout.shortcut);
        if (row.spokenTrailing) {
            if (const auto *keys = std::get_if<Trailing::Keys>(&row.trailing.value))
                *row.spokenTrailing += u", "_s + KeyCaps::spoken(keys->parts);
        }
        rows.add(menu, row, [apply = target.applyLayout, layout] { apply(layout); });
    }
}

void addCapture(MenuRows &rows, QMenu &menu, const MenuTarget &target)
{
    rows.add(menu,
        {.title = QCoreApplication::translate("Menu", "Capture Current Windows"),
            .symbol = u"camera.viewfinder"_s},
        target.captureLayout);
}

} // namespace corvane::MenuParts
