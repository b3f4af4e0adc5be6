#include "MenuRow.h"

#include "KeyCaps.h"
#include "PlacementIcon.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QAction>

namespace corvane {

using namespace Qt::StringLiterals;

std::optional<MenuRow> MenuRow::of(const QAction &action)
{
    const QVariant data = action.data();
    if (data.metaType() != QMetaType::fromType<MenuRow>())
        return std::nullopt;
    return data.value<MenuRow>();
}

QIcon MenuRow::icon(const Board::Palette &palette) const
{
    if (image)
        return PlacementIcon::icon(*image, palette);
    const Symbol::Colors colors =
        symbolColors.value_or(Symbol::Colors{tint.value_or(palette.fore)});
    return symbol ? Symbol::icon(*symbol, colors) : QIcon();
}

QString MenuRow::spokenText() const
{
    QStringList texts{title};
    if (subtitle)
        texts << *subtitle;
    if (remark)
        texts << *remark;
    if (!keys.isEmpty())
        texts << KeyCaps::spoken(keys);
    return texts.join(u", "_s);
}

// Desktops on Qt put what follows the tab into a column of its own, the others leave a gap.
QString MenuRow::plainText() const
{
    const QString text =
        subtitle ? QCoreApplication::translate("MenuRow", "%1 (%2)").arg(title, *subtitle) : title;
    return keys.isEmpty() ? text : text + u'\t' + KeyCaps::plainText(keys);
}

} // namespace corvane
