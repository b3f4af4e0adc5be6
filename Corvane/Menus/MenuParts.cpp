#include "MenuParts.h"

#include "KeyCaps.h"
#include "OneLine.h"
#include "Screens.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QMenu>

namespace corvane::MenuParts {

using namespace Qt::StringLiterals;

namespace {

QStringList keys(
    const AppModel &model, const ShortcutOwner &owner, const std::optional<KeyCombo> &combo)
{
    const bool works = combo && !model.unregistered.value().contains(owner);
    return works ? KeyCaps::partsOf(*combo) : QStringList();
}

MenuRow layoutRow(
    const WindowLayout &layout, const QList<DisplayKey> &connected, const Board::Palette &palette)
{
    if (layout.matches(connected))
        return {.title = oneLine(layout.name), .symbol = u"display"_s};
    return {.title = oneLine(layout.name),
        .symbol = u"display.trianglebadge.exclamationmark"_s,
        .symbolColors = Symbol::Colors{palette.muted, palette.attention},
        .remark = QCoreApplication::translate("Menu", "made for displays that are not connected")};
}

} // namespace

void addPlacement(MenuRows &rows, QMenu &menu, Placement placement, const AppModel &model,
    const MenuTarget &target, Shortcuts shortcuts)
{
    MenuRow row{.title = title(placement), .image = placement};
    const auto combo = model.settings().shortcuts.constFind(placement);
    if (shortcuts == Shortcuts::shown && combo != model.settings().shortcuts.cend())
        row.keys = keys(model, {placement}, *combo);
    rows.add(menu, row, [perform = target.perform, placement] { perform(placement); });
}

void addLayouts(MenuRows &rows, QMenu &menu, const AppModel &model, const MenuTarget &target,
    Shortcuts shortcuts)
{
    const QList<DisplayKey> connected = Screens::signature();
    for (const WindowLayout &layout : model.layouts()) {
        MenuRow row = layoutRow(layout, connected, rows.palette());
        if (shortcuts == Shortcuts::shown)
            row.keys = keys(model, {layout.id}, layout.shortcut);
        rows.add(menu, row, [apply = target.applyLayout, layout] { apply(layout); });
    }
}

void addCapture(MenuRows &rows, QMenu &menu, const AppModel &model, const MenuTarget &target)
{
    if (!model.layouts().isEmpty()) {
        QMenu *editing = rows.addSubmenu(menu,
            {.title = QCoreApplication::translate("Menu", "Edit Layout"),
                .symbol = u"rectangle.split.2x1"_s});
        for (const WindowLayout &layout : model.layouts())
            rows.add(*editing, {.title = oneLine(layout.name)},
                [edit = target.editLayout, id = layout.id] { edit(id); });
        rows.layoutRows(*editing, 0);
    }
    rows.add(menu,
        {.title = QCoreApplication::translate("Menu", "Capture Current Windows"),
            .symbol = u"camera.viewfinder"_s},
        target.captureLayout);
}

} // namespace corvane::MenuParts
