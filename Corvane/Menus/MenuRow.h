#pragma once

#include "Board.h"
#include "Placement.h"
#include "Symbol.h"

#include <QtCore/QStringList>
#include <QtGui/QIcon>

#include <optional>

class QAction;

namespace corvane {

/// What one row of a menu shows: an icon, a title, and at its end the key caps of its shortcut. The
/// row's action holds the record as its data.
struct MenuRow {
    QString title;
    std::optional<QString> subtitle = {}; ///< a smaller line below the title
    std::optional<QString> symbol = {}; ///< the icon, by the name of a symbol
    std::optional<Placement> image = {}; ///< the icon is the picture of a placement instead
    std::optional<Symbol::Colors> symbolColors = {};
    QStringList keys = {}; ///< the parts of the shortcut, one cap each; empty where there is none
    std::optional<QColor> tint = {}; ///< the colour of title and symbol
    std::optional<QString> remark = {}; ///< what the icon says, in words for assistive technology

    /// The record that the action holds: none for a separator and for the menu's header.
    [[nodiscard]] static std::optional<MenuRow> of(const QAction &action);

    [[nodiscard]] bool hasIcon() const { return symbol || image; }
    /// The icon for a desktop that draws the menu itself.
    [[nodiscard]] QIcon icon(const Board::Palette &palette) const;
    /// The row as assistive technology reads it.
    [[nodiscard]] QString spokenText() const;
    /// The row as one line of text, with its keys behind a tab.
    [[nodiscard]] QString plainText() const;
};

} // namespace corvane
