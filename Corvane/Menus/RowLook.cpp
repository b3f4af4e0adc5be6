#include "RowLook.h"

namespace corvane {

RowLook RowLook::of(const DesktopLook &look)
{
    return {.keyCaps = KeyCapStyle::ofHeight(20),
        .titleFont = Board::font(Board::Type::body),
        .iconSlot = static_cast<double>(Board::length(20)),
        .gap = static_cast<double>(Board::length(10)),
        .palette = Board::palette(look)};
}

RowLook RowLook::withoutIcons() const
{
    RowLook look = *this;
    look.iconSlot = look.gap = 0;
    return look;
}

} // namespace corvane
